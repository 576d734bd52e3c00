#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <QVariant>

#include <gtest/gtest.h>
#include <limits>

namespace {
std::shared_ptr<LWScreen> decoded(LayerHost &host, const ArchiveObject &coder)
{
    auto screen = LWScreen::initWithCoder(host, coder);
    EXPECT_TRUE(screen.has_value()) << (screen ? "" : qPrintable(screen.error().text));
    return screen ? *screen : LWScreen::init(host);
}

std::shared_ptr<LWScreen> savedAndLoaded(LayerHost &host, const LWScreen &screen)
{
    ArchiveObject coder("LWScreen");
    screen.encodeWithCoder(coder);
    return decoded(host, coder);
}

/// A screen in which every value that a file keeps differs from the default.
std::shared_ptr<LWScreen> unusualScreen(LayerHost &host)
{
    auto screen = LWScreen::init(host);
    screen->setRow(3);
    screen->setCol(4);
    screen->setPanelWidth(31);
    screen->setPanelHeight(17);
    screen->setVisible(false);
    screen->setRectColor(Colour{0.125, 0.25, 0.5, 0.75});
    screen->setRectColor2(NamedColour::purple);
    screen->setBoarderColor(NamedColour::cyan);
    screen->setCircleColor(NamedColour::orange);
    screen->setXyColor(NamedColour::yellow);
    screen->setSfColor(NamedColour::magenta);
    screen->setLabelColor(NamedColour::lightGray);
    screen->setXpoint(-5);
    screen->setYpoint(777);
    screen->setXYFontSize(12);
    screen->setXYFontEnable(true);
    screen->setScreenFontEnable(true);
    screen->setScreenFontSize(13);
    screen->setCircleEnable(true);
    screen->setBgEnable(false);
    screen->setBoarderEnable(false);
    screen->setBoarderWidth(3);
    screen->setCircleBWidth(7);
    screen->setLabel("IMAG left");
    screen->setDrawLabels(true);
    screen->setLabelFontSize(9);
    screen->setDrawFlowPath(true);
    screen->setPixelLimit(1234);
    screen->setPattern(5);
    screen->setPowerOnCell(150);
    screen->setHiddenBoxes(QStringList{"0,1", "2,3"});
    screen->drawInRect();
    return screen;
}
} // namespace

TEST(LWScreenArchive, KeysAreWrittenInTheirOrderAndSpelling)
{
    TestHost host;
    ArchiveObject coder("LWScreen");
    unusualScreen(host)->encodeWithCoder(coder);

    QStringList keys;
    for (const auto &[key, value] : coder.entries())
        keys.append(key);
    EXPECT_EQ(keys, (QStringList{"col",         "bgenable",     "boarderenable", "panelwidth",   "panelheight",
                                 "row",         "rectcolor",    "rectcolor2",    "visible",      "screenheight",
                                 "screenwidth", "xpoint",       "ypoint",        "xycolor",      "sfcolor",
                                 "xyfontsize",  "xyenable",     "fontenable",    "circleenable", "screenfontsize",
                                 "circlecolor", "boardercolor", "label",         "boarderwidth", "circlebwidth",
                                 "drawLabels",  "labelColor",   "labelFontSize", "drawFlowPath", "pixelLimit",
                                 "pattern",     "powerOnCell",  "hiddenBoxes"}));
}

TEST(LWScreenArchive, FlagsAreBooleansExceptTheTwoThatAreNumbers)
{
    TestHost host;
    ArchiveObject coder("LWScreen");
    unusualScreen(host)->encodeWithCoder(coder);

    for (const char *key : {"bgenable", "boarderenable", "visible", "xyenable", "fontenable", "circleenable"})
        EXPECT_EQ(coder.value(key).kind(), "a boolean") << key;
    for (const char *key : {"drawLabels", "drawFlowPath", "labelFontSize", "pixelLimit", "pattern"})
        EXPECT_TRUE(std::holds_alternative<qint64>(coder.value(key).storage)) << key;
    EXPECT_EQ(coder.decodeInt32("drawLabels"), 1);
    EXPECT_EQ(coder.decodeInt32("drawFlowPath"), 1);
}

TEST(LWScreenArchive, EveryKeptValueComesBack)
{
    TestHost host;
    const auto screen = unusualScreen(host);
    const auto loaded = savedAndLoaded(host, *screen);

    for (const ArchiveField &field : screen->keptFields()) {
        const QVariant kept = screen->property(field.property);
        const QVariant read = loaded->property(field.property);
        const bool isSame = field.form == StoredAs::Colour
                                ? read.value<OptionalColour>() == kept.value<OptionalColour>()
                                : read.toString() == kept.toString();
        EXPECT_TRUE(isSame) << field.key;
    }
    EXPECT_EQ(loaded->hiddenBoxes(), (QStringList{"0,1", "2,3"}));
    EXPECT_EQ(loaded->thumbnail(), screen->thumbnail());
}

TEST(LWScreenArchive, AnEmptyRecordGivesAPlainScreen)
{
    TestHost host;
    const auto screen = decoded(host, ArchiveObject("LWScreen"));

    for (const char *number : {"row", "col", "panelWidth", "panelHeight", "xpoint", "ypoint", "screenSizeWidth",
                               "screenSizeHeight", "XYFontSize", "screenFontSize", "boarderWidth", "circleBWidth",
                               "powerOnCell", "pixelLimit", "pattern", "labelFontSize"})
        EXPECT_EQ(screen->property(number).toDouble(), 0.0) << number;
    for (const char *flag : {"visible", "bgEnable", "BoarderEnable", "CircleEnable", "XYFontEnable", "screenFontEnable",
                             "drawLabels", "drawFlowPath", "XYLabelDirection", "aspectHidden", "showPower"})
        EXPECT_FALSE(screen->property(flag).toBool()) << flag;
    for (const char *colour :
         {"rectColor", "rectColor2", "boarderColor", "circleColor", "xyColor", "sfColor", "labelColor"})
        EXPECT_EQ(screen->property(colour).value<OptionalColour>(), std::nullopt) << colour;
    EXPECT_TRUE(screen->label().isNull());
    EXPECT_EQ(screen->PositionArray(), std::nullopt);
    EXPECT_TRUE(screen->thumbnail().isNull());
}

TEST(LWScreenArchive, WithoutAListOfHiddenPanelsEveryPanelIsOn)
{
    TestHost host;
    ArchiveObject coder("LWScreen");
    coder.encodeInt32("row", 2);
    coder.encodeInt32("col", 2);
    coder.encodeInt32("panelwidth", 5);
    coder.encodeInt32("panelheight", 5);
    coder.encodeBool("bgenable", true);
    coder.encodeColour("rectcolor", NamedColour::red);
    coder.encodeColour("rectcolor2", NamedColour::blue);
    const auto screen = decoded(host, coder);

    EXPECT_EQ(screen->hiddenBoxes(), std::nullopt);
    const QImage raster = screen->thumbnail();
    EXPECT_EQ(raster.pixelColor(2, 7), QColor(Qt::red));
    EXPECT_EQ(raster.pixelColor(7, 7), QColor(Qt::blue));
    EXPECT_EQ(raster.pixelColor(2, 2), QColor(Qt::blue));
    EXPECT_EQ(raster.pixelColor(7, 2), QColor(Qt::red));
}

TEST(LWScreenArchive, CaptionsAndSwitchesOfTheInspectorAreNotKept)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setShowPower(true);
    screen->setAspectRatio(true);
    screen->setAspectValue(QSizeF(16, 9));
    screen->setXYLabelDirection(true);
    screen->setLabel3Hidden(true);
    screen->setLabelGroupRightHidden(true);
    ASSERT_TRUE(screen->aspectHidden());
    const auto loaded = savedAndLoaded(host, *screen);

    EXPECT_TRUE(loaded->label1().isNull());
    EXPECT_TRUE(loaded->label8().isNull());
    EXPECT_FALSE(loaded->aspectHidden());
    EXPECT_FALSE(loaded->showPower());
    EXPECT_FALSE(loaded->aspectRatio());
    EXPECT_EQ(loaded->aspectValue(), QSizeF(0, 0));
    EXPECT_FALSE(loaded->XYLabelDirection());
    EXPECT_FALSE(loaded->label3Hidden());
    EXPECT_FALSE(loaded->labelGroupRightHidden());
}

TEST(LWScreenArchive, LabelSizesLoseTheirFractions)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setLabelFontSize(12.7);
    ArchiveObject coder("LWScreen");
    screen->encodeWithCoder(coder);

    EXPECT_EQ(coder.decodeInt32("labelFontSize"), 12);
    EXPECT_EQ(decoded(host, coder)->labelFontSize(), 12.0);
}

TEST(LWScreenArchive, PixelLimitsKeepTheirLow32Bits)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setPixelLimit((qint64{1} << 32) + 7);
    EXPECT_EQ(savedAndLoaded(host, *screen)->pixelLimit(), 7);

    screen->setPixelLimit(qint64{1} << 31);
    EXPECT_EQ(savedAndLoaded(host, *screen)->pixelLimit(), std::numeric_limits<qint32>::min());
}

TEST(LWScreenArchive, WallSizesAreRecomputedNotBelieved)
{
    TestHost host;
    ArchiveObject coder("LWScreen");
    LWScreen::init(host)->encodeWithCoder(coder);
    coder.encodeInt32("screenwidth", 1920);
    coder.encodeInt32("screenheight", -3);
    const auto loaded = decoded(host, coder);

    EXPECT_EQ(loaded->screenSizeWidth(), 240);
    EXPECT_EQ(loaded->screenSizeHeight(), 240);
    EXPECT_EQ(loaded->thumbnail().size(), QSize(240, 240));
}

TEST(LWScreenArchive, AValueOfAWrongKindIsAnErrorThatNamesItsKey)
{
    TestHost host;
    ArchiveObject coder("LWScreen");
    coder.encodeText("panelwidth", "wide");
    const auto screen = LWScreen::initWithCoder(host, coder);

    ASSERT_FALSE(screen.has_value());
    EXPECT_TRUE(screen.error().text.contains("panelwidth")) << qPrintable(screen.error().text);
}
