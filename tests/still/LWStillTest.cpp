#include "still/LWStill.h"

#include "drawing/Raster.h"
#include "tests/screen/TestHost.h"

#include <QVariant>

#include <gtest/gtest.h>

namespace {
QImage picture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    return image;
}
} // namespace

TEST(LWStill, APictureOf1920x1080GivesItsSizeNoPanelsAndItsAspect)
{
    TestHost host;
    const auto still = LWStill::initWithimage(host, picture(1920, 1080));

    EXPECT_EQ(still->panelWidth(), 1920);
    EXPECT_EQ(still->panelHeight(), 1080);
    EXPECT_EQ(still->screenSizeWidth(), 1920);
    EXPECT_EQ(still->screenSizeHeight(), 1080);
    EXPECT_EQ(still->col(), 0);
    EXPECT_EQ(still->row(), 0);
    EXPECT_EQ(still->aspectValue(), QSizeF(1920.0, 1080.0));
    EXPECT_TRUE(still->visible());
    EXPECT_EQ(still->boarderWidth(), 1);
    EXPECT_EQ(still->powerOnCell(), 0);
    EXPECT_EQ(still->rectColor(), OptionalColour());
    EXPECT_TRUE(still->ImageURL().isNil());
    EXPECT_TRUE(still->label().isNull());
}

TEST(LWStill, APictureBringsItsCaptions)
{
    TestHost host;
    const auto still = LWStill::initWithimage(host, picture(3, 5));

    const char *captions[] = {"Width",   "Height",  "Pos-H",         "Pos-V",
                              "H-Start", "V-Start", "XY Label Size", "Label Screen Size"};
    const bool hidden[] = {false, false, true, true, false, false, true, true};
    for (int i = 0; i < 8; ++i) {
        const QByteArray name = "label" + QByteArray::number(i + 1);
        EXPECT_EQ(still->property(name).toString(), captions[i]) << name.constData();
        EXPECT_EQ(still->property(name + "Hidden").toBool(), hidden[i]) << name.constData();
    }
    EXPECT_FALSE(still->aspectHidden());
    EXPECT_TRUE(still->labelGroupRightHidden());
}

TEST(LWStill, NoPictureGivesAStillOfNoSize)
{
    TestHost host;
    const auto still = LWStill::initWithimage(host, QImage());

    EXPECT_TRUE(still->thumbnail().isNull());
    EXPECT_EQ(still->panelWidth(), 0);
    EXPECT_EQ(still->screenSizeHeight(), 0);
}

TEST(LWStill, ThePlainStillIsAllZero)
{
    TestHost host;
    const LWStill still(host);

    EXPECT_FALSE(still.visible());
    EXPECT_EQ(still.boarderWidth(), 0);
    EXPECT_TRUE(still.label1().isNull());
    EXPECT_EQ(still.aspectValue(), QSizeF(0, 0));
    EXPECT_TRUE(still.thumbnail().isNull());
}

TEST(LWStill, DrawingTakesTheEditedSizeAndLeavesThePictureAlone)
{
    TestHost host;
    const auto still = LWStill::initWithimage(host, picture(31, 17));
    still->setPanelWidth(62);
    still->setPanelHeight(9);

    still->drawInRect();

    EXPECT_EQ(still->screenSizeWidth(), 62);
    EXPECT_EQ(still->screenSizeHeight(), 9);
    EXPECT_EQ(still->thumbnail().size(), QSize(31, 17));
    EXPECT_EQ(still->thumbnail().format(), Raster::format);
    EXPECT_EQ(still->thumbnail().pixelColor(30, 16), QColor(Qt::darkGreen));
}

TEST(LWStill, AClickChangesNothing)
{
    TestHost host;
    const auto still = LWStill::initWithimage(host, picture(31, 17));
    ArchiveObject before("LWStill");
    still->encodeWithCoder(before);

    still->onImageClick(5, 5);

    ArchiveObject after("LWStill");
    still->encodeWithCoder(after);
    ASSERT_EQ(before.entries().size(), after.entries().size());
    for (const auto &[key, value] : before.entries())
        EXPECT_EQ(value.storage, after.value(key).storage) << qPrintable(key);
    EXPECT_EQ(still->thumbnail().size(), QSize(31, 17));
}

TEST(LWStill, ACopyHasLookPlaceCaptionsAndThePictureItself)
{
    TestHost host;
    const auto still = LWStill::initWithimage(host, picture(31, 17));
    still->setImageURL({"plates/logo.png", {"file:///show/"}});
    still->setLabel("Logo");
    still->setXpoint(-40);
    still->setLabel3("Left");
    still->setRectColor2(NamedColour::purple);
    still->setPixelLimit(qint64{1} << 40);
    still->setPattern(7);
    still->setLabelFontSize(12.5);

    const auto copy = std::dynamic_pointer_cast<LWStill>(still->copyWithZone());

    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->ImageURL(), still->ImageURL());
    EXPECT_EQ(copy->label(), "Logo");
    EXPECT_EQ(copy->xpoint(), -40);
    EXPECT_EQ(copy->panelWidth(), 31);
    EXPECT_EQ(copy->screenSizeHeight(), 17);
    EXPECT_EQ(copy->label3(), "Left");
    EXPECT_TRUE(copy->label3Hidden());
    EXPECT_TRUE(copy->labelGroupRightHidden());
    EXPECT_EQ(copy->rectColor2(), OptionalColour(NamedColour::purple));
    EXPECT_EQ(copy->pixelLimit(), qint64{1} << 40);
    EXPECT_EQ(copy->pattern(), 7);
    EXPECT_EQ(copy->labelFontSize(), 12.5);
    EXPECT_EQ(copy->thumbnail().constBits(), still->thumbnail().constBits());
}

TEST(LWStill, ACopyTakesNeitherAspectNorPower)
{
    TestHost host;
    const auto still = LWStill::initWithimage(host, picture(31, 17));
    still->setAspectHidden(true);
    still->setAspectRatio(true);
    still->setShowPower(true);
    still->setShowPowerl(true);
    still->setXYLabelDirection(true);
    still->setPowerOnCell(200);

    const LayerPointer copy = still->copyWithZone();

    EXPECT_FALSE(copy->aspectHidden());
    EXPECT_EQ(copy->aspectValue(), QSizeF(0, 0));
    EXPECT_FALSE(copy->aspectRatio());
    EXPECT_FALSE(copy->showPower());
    EXPECT_FALSE(copy->showPowerl());
    EXPECT_FALSE(copy->XYLabelDirection());
    EXPECT_EQ(copy->powerOnCell(), 0);
}
