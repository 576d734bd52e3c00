#include "still/LWStill.h"
#include "tests/windows/InspectorFixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTest>

using InspectorStillTest = InspectorFixture;

TEST_F(InspectorStillTest, AStillHasItsOwnControls)
{
    addStill();
    EXPECT_TRUE(isShown("Width"));
    EXPECT_TRUE(isShown("Keep ratio"));
    EXPECT_FALSE(isShown("Columns"));
    EXPECT_FALSE(isShown("Watts per panel"));
    EXPECT_EQ(summary("Picture"), "40 × 30 px, shown at 100 %");
}

TEST_F(InspectorStillTest, ItsCaptionsHideWithTheirFlag)
{
    addStill();
    shown()->setLabel1("Breadth");
    shown()->setLabel2("Tallness");
    inspector().refresh();
    EXPECT_EQ(captionOf("Width"), "Breadth");
    EXPECT_EQ(captionOf("Height"), "Tallness");
    shown()->setLabel2Hidden(true);
    inspector().refresh();
    EXPECT_TRUE(isShown("Keep ratio"));
    EXPECT_EQ(captionOf("Width"), "Breadth");
    EXPECT_NE(captionOf("Height"), "Tallness");
}

TEST_F(InspectorStillTest, AMissingPictureIsToldAndChosenAgain)
{
    addStill();
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::green);
    ASSERT_TRUE(picture.save(path("plate.png")));
    answer([&] { click(inspector(), "Choose picture..."); }, {entering(path("plate.png"))});
    EXPECT_EQ(shown()->thumbnail().size(), QSize(20, 10));
    EXPECT_EQ(shown()->panelWidth(), 40);
    EXPECT_EQ(summary("Picture"), "20 × 10 px, shown at 200 %");
    EXPECT_EQ(undoText(), "choose picture");
}

TEST_F(InspectorStillTest, EveryNumberIsTypedArchivedAndUndone)
{
    addStill();
    window.document().finishEdit("Setting");
    const std::tuple<const char *, const char *, int> cases[] = {
        {"Width", "panelWidth", 96}, {"Height", "panelHeight", 72}, {"Left", "xpoint", -40}, {"Top", "ypoint", 55}};
    for (const auto &[name, property, value] : cases) {
        SCOPED_TRACE(name);
        const QByteArray before = archive();
        // The output, below, has a width and a height, too; the picture's come first.
        type(control<NumberField>(name), QString::number(value));
        EXPECT_EQ(shown()->property(property).toInt(), value);
        EXPECT_NE(archive(), before);
        undo();
        EXPECT_EQ(archive(), before);
    }
}

TEST_F(InspectorStillTest, KeepRatioIsSwitchedAndUndone)
{
    addStill();
    window.document().finishEdit("Setting");
    QCheckBox &ratio = control<QCheckBox>("Keep ratio");
    const bool wasKept = ratio.isChecked();
    QTest::mouseClick(&ratio, Qt::LeftButton, {}, QPoint(8, ratio.height() / 2));
    EXPECT_EQ(shown()->aspectRatio(), !wasKept); // a file has no place for it
    undo();
    EXPECT_EQ(shown()->aspectRatio(), wasKept);
    EXPECT_EQ(ratio.isChecked(), wasKept);
}

TEST_F(InspectorStillTest, AKeptRatioLeadsTheHeightFromTheWidthAndBack)
{
    addStill();
    shown()->setAspectRatio(true);
    window.document().finishEdit("Setting");
    type(control<NumberField>("Width"), "80");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown()->panelHeight() == 60; }));
    type(control<NumberField>("Height"), "90");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown()->panelWidth() == 120; }));
}

TEST_F(InspectorStillTest, ItsNameAndVisibilityAreEdited)
{
    addStill();
    window.document().finishEdit("Setting");
    const QByteArray before = archive();
    QLineEdit &name = control<QLineEdit>("Name");
    name.setFocus();
    name.selectAll();
    QTest::keyClicks(&name, "Backdrop");
    EXPECT_EQ(shown()->label(), "Backdrop");
    QCheckBox &visible = control<QCheckBox>("Visible");
    visible.setFocus();
    QTest::keyClick(&visible, Qt::Key_Space);
    EXPECT_FALSE(shown()->visible());
    undo();
    undo();
    EXPECT_EQ(archive(), before);
}

TEST_F(InspectorStillTest, APictureWithoutAFileHasNoFolderToShow)
{
    addStill();
    click(inspector(), "Show in folder");
    EXPECT_TRUE(shows("There is no folder to show; choose the picture first."));
}
