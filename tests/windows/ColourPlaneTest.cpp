#include "windows/inspector/ColourPlane.h"

#include "windows/Theme.h"

#include <QTest>

#include <cmath>
#include <gtest/gtest.h>

namespace {
/// The plane by itself, 241 x 176: the field down to 127, the hues in the rows from 136 to 151, below them the
/// opacities from 160 to 175.
class ColourPlaneTest : public ::testing::Test
{
protected:
    static constexpr int inHues = 140;
    static constexpr int inOpacities = 165;

    ColourPlaneTest()
    {
        Theme::apply();
        plane.resize(241, plane.sizeHint().height());
        QObject::connect(&plane, &ColourPlane::pointed, &plane, [this](const QColor &colour) {
            pointed = colour.name(colour.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
            ++times;
        });
    }
    ~ColourPlaneTest() override { QTest::mouseRelease(&plane, Qt::LeftButton); }

    /// Returns what is pointed at then.
    QString press(const QPoint &place)
    {
        pointed.clear();
        QTest::mousePress(&plane, Qt::LeftButton, {}, place);
        return pointed;
    }
    QString drag(const QPoint &place)
    {
        pointed.clear();
        QTest::mouseMove(&plane, place);
        return pointed;
    }
    QImage seen() { return plane.grab().toImage(); }
    static bool isNear(const QColor &one, const QColor &other)
    {
        return std::abs(one.red() - other.red()) <= 5 && std::abs(one.green() - other.green()) <= 5 &&
               std::abs(one.blue() - other.blue()) <= 5;
    }
    /// Whether there is a ring around that place, white within black.
    static bool isMarked(const QImage &seen, const QPoint &place)
    {
        bool hasWhite = false;
        bool hasBlack = false;
        for (int y = -7; y <= 7; ++y) {
            for (int x = -7; x <= 7; ++x) {
                const QColor found = seen.pixelColor(place + QPoint(x, y));
                hasWhite |= qMin(found.red(), qMin(found.green(), found.blue())) > 170;
                hasBlack |= qMax(found.red(), qMax(found.green(), found.blue())) < 24;
            }
        }
        return hasWhite && hasBlack;
    }

    ColourPlane plane;
    QString pointed; ///< digits
    int times = 0;
};
} // namespace

TEST_F(ColourPlaneTest, PressingAndDraggingInTheFieldChoosesSaturationAndBrightness)
{
    ASSERT_EQ(plane.sizeHint().height(), 176);
    EXPECT_EQ(press({60, 0}), "#ffbfbf"); // of red, a quarter
    EXPECT_EQ(drag({240, 0}), "#ff0000");
    EXPECT_EQ(drag({240, 127}), "#000000");
    EXPECT_EQ(times, 3);
}

TEST_F(ColourPlaneTest, WhatIsDraggedBeyondTheFieldStaysAtItsEdge)
{
    press({60, 60});
    EXPECT_EQ(drag({500, -40}), "#ff0000");
    EXPECT_EQ(drag({-5, -5}), "#ffffff");
    EXPECT_EQ(drag({120, inOpacities}), "#000000"); // and what is below it stays as it was
    EXPECT_EQ(drag({240, 0}), "#ff0000");
}

TEST_F(ColourPlaneTest, PressingAndDraggingInTheHuesChoosesOneWhereverTheDragLeads)
{
    press({240, 0});
    EXPECT_EQ(press({40, inHues}), "#ffff00");
    EXPECT_EQ(drag({80, inHues}), "#00ff00");
    EXPECT_EQ(drag({160, 10}), "#0000ff");
    EXPECT_EQ(drag({999, inOpacities}), "#ff0000"); // round to red again
    EXPECT_EQ(drag({120, inHues}), "#00ffff");
    EXPECT_EQ(drag({-7, inHues}), "#ff0000");
}

TEST_F(ColourPlaneTest, PressingAndDraggingInTheOpacitiesChoosesOne)
{
    press({240, 0});
    EXPECT_EQ(press({120, inOpacities}), "#80ff0000");
    EXPECT_EQ(drag({0, inOpacities}), "#00ff0000");
    EXPECT_EQ(drag({900, 20}), "#ff0000");
    EXPECT_EQ(drag({-30, 999}), "#00ff0000");
}

TEST_F(ColourPlaneTest, TheGapsBetweenThePartsBelongToTheNearest)
{
    press({240, 0});
    EXPECT_EQ(press({240, 131}), "#000000"); // the field's lower edge
    press({240, 0});
    EXPECT_EQ(press({80, 132}), "#00ff00");
    EXPECT_EQ(press({160, 155}), "#0000ff");
    EXPECT_EQ(press({120, 156}), "#800000ff");
}

TEST_F(ColourPlaneTest, AGreyThatIsShownLeavesTheHueAndNothingIsTold)
{
    plane.show(Qt::blue);
    plane.show(QColor(128, 128, 128));
    EXPECT_EQ(times, 0);
    EXPECT_EQ(press({240, 0}), "#0000ff");
}

TEST_F(ColourPlaneTest, TheFieldIsOfOneHueAndTheStripsOfAllAndOfTheColour)
{
    plane.show(Qt::blue);
    const QImage image = seen();
    EXPECT_TRUE(isNear(image.pixelColor(0, 0), Qt::white));
    EXPECT_TRUE(isNear(image.pixelColor(120, 0), QColor(127, 127, 255)));
    EXPECT_TRUE(isNear(image.pixelColor(240, 64), QColor(0, 0, 127)));
    EXPECT_TRUE(isNear(image.pixelColor(0, 64), QColor(127, 127, 127)));
    EXPECT_TRUE(isNear(image.pixelColor(120, 127), Qt::black));
    for (const auto &[x, colour] : {std::pair(40, Qt::yellow), {80, Qt::green}, {120, Qt::cyan}, {200, Qt::magenta}})
        EXPECT_TRUE(isNear(image.pixelColor(x, inHues), QColor(colour))) << x;
    EXPECT_TRUE(isNear(image.pixelColor(0, inOpacities), Theme::panel));
    EXPECT_TRUE(isNear(image.pixelColor(228, inOpacities), QColor(2, 2, 245)));
}

TEST_F(ColourPlaneTest, AMarkStandsWhereTheColourIsInEachPart)
{
    plane.show(QColor::fromHsvF(2 / 3.0F, 0.5F, 1 - 64 / 127.0F, 0.25F));
    QImage image = seen();
    for (const QPoint place : {QPoint(120, 64), {160, 144}, {60, 168}})
        EXPECT_TRUE(isMarked(image, place)) << place.x() << ", " << place.y();
    for (const QPoint place : {QPoint(200, 30), {80, 144}, {180, 168}})
        EXPECT_FALSE(isMarked(image, place)) << place.x() << ", " << place.y();

    press({80, inHues});
    image = seen();
    EXPECT_TRUE(isMarked(image, {80, 144}));
    EXPECT_FALSE(isMarked(image, {160, 144}));
    EXPECT_TRUE(isMarked(image, {120, 64}));
}
