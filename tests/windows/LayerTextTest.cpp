#include "windows/LayerText.h"

#include "screen/LWScreen.h"
#include "still/LWStill.h"
#include "tests/screen/TestHost.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <limits>

namespace {
constexpr QSize output{1920, 1080};
constexpr int furthest = std::numeric_limits<int>::max();

class LayerTextTest : public ::testing::Test
{
protected:
    /// 8 x 5 panels of 128 x 64: 65,536 px a row, 40,960 px a column.
    LayerPointer wall()
    {
        LayerPointer made = LWScreen::init(host);
        made->setCol(8);
        made->setRow(5);
        made->setPanelWidth(128);
        made->setPanelHeight(64);
        made->drawInRect();
        return made;
    }

    TestHost host;
};
} // namespace

TEST_F(LayerTextTest, ATieOfTheCurrentGoesToTheEvenDigit)
{
    const LayerPointer layer = wall();
    layer->setPowerOnCell(26);
    layer->setCol(1);
    layer->setRow(1);
    EXPECT_EQ(LayerText::power({layer}, 208, 1), "0.12 A at 208 V, 1 phase"); // 0.125
}

TEST_F(LayerTextTest, APanelIsOffOnceHoweverOftenItIsNamed)
{
    const auto layer = std::static_pointer_cast<LWScreen>(wall());
    layer->setHiddenBoxes(QStringList{"0,0", "0,0", "4,7", " 1,1", "+2,2", "03,3", "5,0", "0,8", "1,1,1", "-1,0"});
    EXPECT_EQ(LayerText::wall({layer}), "8 × 5 panels, 1,024 × 320 px, 2 off");
}

TEST_F(LayerTextTest, NothingIsWrongWithALayerThatTouchesTheOutput)
{
    const LayerPointer layer = wall();
    for (const QPoint place : {QPoint(0, 0), QPoint(1919, 1079), QPoint(-1023, -319)}) {
        layer->setXpoint(place.x());
        layer->setYpoint(place.y());
        EXPECT_EQ(LayerText::warnings(*layer, output), QStringList()) << place.x();
    }
}

TEST_F(LayerTextTest, ALayerWhollyOutsideIsTold)
{
    const QStringList outside{"It lies wholly outside the output of 1,920 × 1,080 px; change its left and top."};
    const LayerPointer layer = wall();
    for (const QPoint place : {QPoint(1920, 0), QPoint(0, 1080), QPoint(-1024, 0), QPoint(0, -320), QPoint(furthest, 0),
                               QPoint(0, furthest)}) {
        layer->setXpoint(place.x());
        layer->setYpoint(place.y());
        EXPECT_EQ(LayerText::warnings(*layer, output), outside) << place.x() << ", " << place.y();
    }
    EXPECT_EQ(LayerText::warnings(*layer, {}), QStringList());
}

TEST_F(LayerTextTest, APortThatCannotCarryOneRowIsTold)
{
    const LayerPointer layer = wall(); // whose path is not drawn
    layer->setPixelLimit(65'536);
    EXPECT_EQ(LayerText::warnings(*layer, output), QStringList());
    layer->setPixelLimit(65'535);
    EXPECT_EQ(
        LayerText::warnings(*layer, output),
        QStringList("One row of panels has 65,536 px, a port carries 65,535; raise the pixels per port or make the "
                    "rows shorter."));
    layer->setPattern(4);
    EXPECT_EQ(LayerText::warnings(*layer, output), QStringList());
    layer->setPixelLimit(40'959);
    EXPECT_EQ(
        LayerText::warnings(*layer, output),
        QStringList("One column of panels has 40,960 px, a port carries 40,959; raise the pixels per port or make "
                    "the columns shorter."));
}

TEST_F(LayerTextTest, AWallWithoutALimitOrAPatternHasNoPortsToBeOver)
{
    const LayerPointer layer = wall();
    layer->setPixelLimit(0);
    EXPECT_EQ(LayerText::warnings(*layer, output), QStringList());
    layer->setPixelLimit(1);
    layer->setPattern(8);
    EXPECT_EQ(LayerText::warnings(*layer, output), QStringList());
}

TEST_F(LayerTextTest, AWallThatIsTooLargeToBeDrawnIsTold)
{
    const LayerPointer layer = wall();
    layer->setPixelLimit(0);
    layer->setCol(256); // 32,768 px, the longest that there is
    layer->drawInRect();
    EXPECT_EQ(LayerText::warnings(*layer, output), QStringList());
    layer->setCol(257);
    layer->drawInRect();
    EXPECT_TRUE(layer->thumbnail().isNull());
    EXPECT_EQ(LayerText::warnings(*layer, output),
              QStringList("32,896 x 320 pixels are too large to draw; make the wall smaller."));
    layer->setXpoint(1920);
    EXPECT_EQ(LayerText::warnings(*layer, output).size(), 2);
}

TEST_F(LayerTextTest, APictureThatIsNotShownSaysWhy)
{
    const auto still = LWStill::initWithimage(host, {});
    still->setImageURL(Address::fromLocalFile("/gone/logo.png"));
    EXPECT_EQ(LayerText::picture({still}), "The picture is missing. Choose it again.");
    still->setImageURL({"file://server/logo.png", {}});
    EXPECT_EQ(LayerText::picture({still}), "The picture is not on this machine, and a show asks no other.");
}

TEST_F(LayerTextTest, APictureThatIsTooLargeSaysSoOnceItWasRead)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("wide.png");
    ASSERT_TRUE(QImage(32769, 1, QImage::Format_RGB32).save(path));
    const auto still = LWStill::initWithimage(host, {});
    still->setImageURL(Address::fromLocalFile(path));
    still->loadThumbnail();
    EXPECT_EQ(LayerText::warnings(*still, output), QStringList()); // it begins like a picture
    const QString reason =
        "has more than 32,768 px a side or 268,435,456 px in all; make it smaller and choose it again";
    EXPECT_EQ(LayerText::picture({still}), "The picture " + reason + '.');
    EXPECT_EQ(LayerText::warnings(*still, output),
              QStringList(QString("The picture %1 %2. It stays in the show.").arg(path, reason)));

    const LayerPointer copy = still->copyWithZone();
    EXPECT_EQ(LayerText::picture({copy}), "The picture " + reason + '.');
    still->setImageURL(Address::fromLocalFile("/gone/logo.png"));
    still->loadThumbnail();
    EXPECT_EQ(LayerText::picture({still}), "The picture is missing. Choose it again.");
}

TEST_F(LayerTextTest, TheMostUrgentComesFirst)
{
    const auto still = LWStill::initWithimage(host, {});
    const QString gone = QDir::temp().filePath("gone/logo.png");
    still->setImageURL(Address::fromLocalFile(gone));
    EXPECT_EQ(LayerText::warnings(*still, output),
              QStringList(QString("The picture %1 is missing or cannot be read; choose it again.").arg(gone)));
    still->setPanelWidth(40);
    still->setPanelHeight(30);
    still->setXpoint(1920);
    still->drawInRect();
    const QStringList warnings = LayerText::warnings(*still, output);
    ASSERT_EQ(warnings.size(), 2);
    EXPECT_TRUE(warnings[0].startsWith("The picture")) << qPrintable(warnings[0]);
    EXPECT_TRUE(warnings[1].startsWith("It lies")) << qPrintable(warnings[1]);
}

TEST_F(LayerTextTest, AWallThatNoNumberCountsIsNoFault)
{
    const LayerPointer layer = wall();
    layer->setCol(furthest);
    layer->setRow(furthest);
    layer->setPanelWidth(furthest);
    layer->setPanelHeight(furthest);
    layer->setDrawFlowPath(true);
    layer->setPixelLimit(1);
    EXPECT_EQ(LayerText::warnings(*layer, output).size(), 2); // too large to draw, and for a port
    EXPECT_EQ(LayerText::ports({layer}), "1 port, 9,223,372,036,854,775,807 px, more than one port carries");
}
