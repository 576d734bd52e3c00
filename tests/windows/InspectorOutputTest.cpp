#include "canvas/LWCanvasImageView.h"
#include "drawing/Raster.h"
#include "tests/windows/InspectorFixture.h"

#include <QTest>

/// The output's size and colours, at the foot of the inspector.
class InspectorOutputTest : public InspectorFixture
{
protected:
    NumberField &width() { return control<NumberField>("Width"); }
    NumberField &height() { return control<NumberField>("Height"); }
    /// Without a composition, which would need the memory.
    void setOutput(int pixelsWide, int pixelsHigh)
    {
        window.document().setOutputWidth(pixelsWide);
        window.document().setOutputHeight(pixelsHigh);
        inspector().refresh();
    }
};

TEST_F(InspectorOutputTest, TheOutputHasItsSizeAndColours)
{
    type(control<NumberField>("Height"), "720");
    EXPECT_EQ(window.document().OutputHeight(), 720);
    EXPECT_EQ(undoText(), "output height");
    chooseFrom("Usual sizes of the output", "3,840 × 2,160");
    EXPECT_EQ(window.document().OutputWidth(), 3840);
    EXPECT_EQ(window.document().OutputHeight(), 2160);
    undo();
    EXPECT_EQ(window.document().OutputHeight(), 720);
}

TEST_F(InspectorOutputTest, TheOutputsWidthIsTypedArchivedAndUndone)
{
    const QByteArray before = archive();
    type(control<NumberField>("Width"), "1280");
    EXPECT_EQ(window.document().OutputWidth(), 1280);
    EXPECT_TRUE(QTest::qWaitFor([&] { return canvas().readOut().output == QSize(1280, 1080); }));
    EXPECT_NE(archive(), before);
    undo();
    EXPECT_EQ(archive(), before);
}

TEST_F(InspectorOutputTest, TheOutputsColoursAreSeenAtOnce)
{
    window.document().timerupdate();
    chooseColour("Background colour", QColor(0, 128, 0));
    EXPECT_EQ(window.document().bgColor(), Colour::fromRgba8(0xff008000));
    window.document().timerupdate();
    chooseColour("Edge colour", QColor(0, 0, 255));
    window.document().timerupdate();
    window.document().update();
    EXPECT_EQ(window.document().img().pixelColor(1500, 900), QColor(0, 128, 0));
    EXPECT_EQ(window.document().img().pixelColor(1919, 900), QColor(0, 0, 255));
}

TEST_F(InspectorOutputTest, ASideThatNoRasterCouldHoldBesideTheOtherIsRefused)
{
    setOutput(1, 32'768);
    window.document().finishEdit("Setting");
    type(width(), "8193");
    EXPECT_EQ(window.document().OutputWidth(), 1);
    EXPECT_EQ(width().accessibleDescription(), "8193 is out of range; type 1 to 8,192.");
    QTest::keyClick(&width(), Qt::Key_Return);
    EXPECT_EQ(width().text(), "1 px");

    setOutput(20'000, 1);
    window.document().finishEdit("Setting");
    type(height(), "13422"); // 268,440,000 pixels
    EXPECT_EQ(window.document().OutputHeight(), 1);
    EXPECT_TRUE(Raster::canHold(20'000, 13'421));
    EXPECT_EQ(height().maximum(), 13'421);
}

TEST_F(InspectorOutputTest, ASmallSideLeavesTheOtherItsWholeRange)
{
    setOutput(1, 1);
    EXPECT_EQ(width().maximum(), 32'768);
    EXPECT_EQ(height().maximum(), 32'768);
    setOutput(8'192, 32'768); // the most that can be had
    EXPECT_EQ(width().value(), 8'192);
    EXPECT_EQ(height().value(), 32'768);
    setOutput(32'768, 8'192);
    EXPECT_EQ(width().value(), 32'768);
    EXPECT_EQ(height().value(), 8'192);
}

TEST_F(InspectorOutputTest, AUsualSizeIsNeverRefused)
{
    setOutput(100, 32'768);
    chooseFrom("Usual sizes of the output", "7,680 × 4,320");
    EXPECT_EQ(window.document().OutputWidth(), 7'680);
    EXPECT_EQ(window.document().OutputHeight(), 4'320);
    EXPECT_EQ(width().value(), 7'680);
    EXPECT_EQ(height().value(), 4'320);
    setOutput(32'768, 100);
    chooseFrom("Usual sizes of the output", "4,096 × 2,160");
    EXPECT_EQ(window.document().OutputWidth(), 4'096);
    EXPECT_EQ(height().value(), 2'160);
}
