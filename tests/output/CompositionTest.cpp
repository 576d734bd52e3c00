#include "output/Composition.h"

#include "tests/output/SamplePictures.h"

#include <QPainter>

#include <gtest/gtest.h>
#include <limits>

namespace {
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();
} // namespace

TEST(Composition, AnOutputWithoutPixelsIsNull)
{
    Composition composition;
    EXPECT_TRUE(composition.compose({}, {QSize(0, 1080)}).isNull());
    EXPECT_TRUE(composition.compose({}, {QSize(1920, -1)}).isNull());
    EXPECT_TRUE(composition.compose({}, {QSize(lowest, lowest)}).isNull());
}

TEST(Composition, AnOutputLargerThanARasterIsNull)
{
    Composition composition;
    EXPECT_TRUE(composition.compose({}, {QSize(32769, 1)}).isNull());
    EXPECT_TRUE(composition.compose({}, {QSize(highest, highest)}).isNull());
}

TEST(Composition, AnOutputIsBlackUnlessColoursAreChosen)
{
    Composition composition;
    EXPECT_EQ(composition.compose({}, {QSize(7, 5)}), filled(QSize(7, 5), Qt::black));
}

TEST(Composition, TheOutlineIsOnePixelWideAndInside)
{
    Composition composition;

    const QImage output = composition.compose({}, style(QSize(7, 5), NamedColour::blue, NamedColour::red));

    QImage expected = filled(QSize(7, 5), Qt::red);
    QPainter(&expected).fillRect(1, 1, 5, 3, Qt::blue);
    EXPECT_EQ(output.format(), Raster::format);
    EXPECT_EQ(output, expected);
}

TEST(Composition, OutputsWithoutAnInsideAreAllOutline)
{
    Composition composition;
    for (const QSize size : {QSize(1, 1), QSize(2, 2), QSize(1, 9), QSize(9, 1), QSize(2, 9), QSize(9, 2)}) {
        const QImage output = composition.compose({}, style(size, NamedColour::blue, NamedColour::red));
        EXPECT_EQ(output, filled(size, Qt::red)) << size.width() << " x " << size.height();
    }
}

TEST(Composition, ATranslucentOutlineLiesOverTheBackground)
{
    Composition composition;

    const QImage output = composition.compose({}, style(QSize(5, 5), NamedColour::blue, {1, 0, 0, 0.2}));

    EXPECT_EQ(output.pixelColor(0, 2), QColor(51, 0, 204));
    EXPECT_EQ(output.pixelColor(2, 2), QColor(Qt::blue));
}

TEST(Composition, TheFirstPictureLiesOnTop)
{
    Composition composition;
    const QImage red = filled(QSize(4, 4), Qt::red);
    const QImage green = filled(QSize(4, 4), Qt::green);

    const QImage output = composition.compose({placed(red, 0, 0), placed(green, 2, 2)}, {QSize(8, 8)});

    EXPECT_EQ(output.pixelColor(3, 3), QColor(Qt::red));
    EXPECT_EQ(output.pixelColor(5, 5), QColor(Qt::green));
    EXPECT_EQ(output.pixelColor(6, 6), QColor(Qt::black));
}

TEST(Composition, APicturesTopLeftIsCountedFromTheTopOfTheOutput)
{
    Composition composition;

    const QImage output = composition.compose({placed(filled(QSize(3, 2), Qt::red), 1, 0)}, {QSize(9, 9)});

    EXPECT_EQ(output.pixelColor(1, 0), QColor(Qt::red));
    EXPECT_EQ(output.pixelColor(3, 1), QColor(Qt::red));
    EXPECT_EQ(output.pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(output.pixelColor(1, 2), QColor(Qt::black));
}

TEST(Composition, TranslucentPicturesMixWithWhatLiesBelow)
{
    Composition composition;
    const QImage glass = filled(QSize(40, 40), QColor(255, 0, 0, 51));
    const QImage blue = filled(QSize(40, 40), Qt::blue);

    const QImage output = composition.compose({placed(glass, 0, 0), placed(blue, 0, 0)}, {QSize(40, 40)});

    EXPECT_EQ(output, filled(QSize(40, 40), QColor(51, 0, 204)));
}

TEST(Composition, PicturesDoNotShowOnATransparentBackground)
{
    Composition composition;
    const PlacedPicture red = placed(filled(QSize(9, 9), Qt::red), 0, 0);

    const QImage output = composition.compose({red}, style(QSize(9, 9), NamedColour::clear, NamedColour::clear));

    EXPECT_EQ(output, filled(QSize(9, 9), Qt::transparent));
}

TEST(Composition, PicturesShowOnTheOutlineOfATransparentBackground)
{
    Composition composition;
    const PlacedPicture red = placed(filled(QSize(9, 9), Qt::red), 0, 0);

    const QImage output = composition.compose({red}, style(QSize(9, 9), NamedColour::clear, NamedColour::white));

    QImage expected = filled(QSize(9, 9), Qt::red);
    QPainter painter(&expected);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(1, 1, 7, 7, Qt::transparent);
    painter.end();
    EXPECT_EQ(output, expected);
}

TEST(Composition, ATranslucentBackgroundKeepsItsAlphaUnderPictures)
{
    Composition composition;
    const PlacedPicture white = placed(filled(QSize(50, 50), Qt::white), 0, 0);

    const QImage output = composition.compose({white}, style(QSize(50, 50), {0, 0, 0, 0.4}, NamedColour::clear));

    EXPECT_EQ(output, filled(QSize(50, 50), QColor(255, 255, 255, 102)));
}

TEST(Composition, FarAwayPicturesDrawNothing)
{
    Composition composition;
    const QImage red = filled(QSize(11, 7), Qt::red);
    std::vector<PlacedPicture> pictures;
    for (const int far : {lowest, lowest + 1, -11, 20, highest - 1, highest}) {
        pictures.push_back(placed(red, far, 0));
        pictures.push_back(placed(red, 0, far));
        pictures.push_back({red, QPoint(far, far), QSize(1, 1)});
    }

    EXPECT_EQ(composition.compose(pictures, {QSize(20, 20)}), filled(QSize(20, 20), Qt::black));
}

TEST(Composition, APlaceWithoutPixelsDrawsNothing)
{
    Composition composition;
    const QImage red = filled(QSize(11, 7), Qt::red);
    const std::vector<PlacedPicture> pictures{{red, QPoint(0, 0), QSize(0, 7)},
                                              {red, QPoint(0, 0), QSize(11, -7)},
                                              {red, QPoint(0, 0), QSize(lowest, lowest)},
                                              {QImage(), QPoint(0, 0), QSize(11, 7)}};

    EXPECT_EQ(composition.compose(pictures, {QSize(20, 20)}), filled(QSize(20, 20), Qt::black));
}

TEST(Composition, APictureIsMadeSmallerByAveraging)
{
    Composition composition;
    QImage stripes = filled(QSize(40, 40), Qt::black);
    for (int y = 0; y < 40; y += 4)
        QPainter(&stripes).fillRect(0, y, 40, 1, Qt::white);

    const QImage output = composition.compose({{stripes, QPoint(0, 0), QSize(10, 10)}}, {QSize(10, 10)});

    EXPECT_NEAR(output.pixelColor(5, 5).red(), 64, 1); // one row of four, where picking pixels shows all or none
}

TEST(Composition, APictureIsMadeLargerToItsPlace)
{
    Composition composition;
    QImage halves = filled(QSize(20, 20), Qt::green);
    QPainter(&halves).fillRect(10, 0, 10, 20, Qt::blue);

    const QImage output = composition.compose({{halves, QPoint(-50, 10), QSize(100, 80)}}, {QSize(60, 60)});

    EXPECT_EQ(output.pixelColor(5, 30), QColor(Qt::blue));
    EXPECT_EQ(output.pixelColor(49, 59), QColor(Qt::blue));
    EXPECT_EQ(output.pixelColor(50, 30), QColor(Qt::black));
    EXPECT_EQ(output.pixelColor(5, 9), QColor(Qt::black));
}

TEST(Composition, APlaceLargerThanMemoryShowsItsVisiblePart)
{
    Composition composition;
    QImage quarters = filled(QSize(2, 2), Qt::green);
    quarters.setPixelColor(1, 1, Qt::blue);
    const QSize huge(highest, highest);

    const QImage topLeft = composition.compose({{quarters, QPoint(0, 0), huge}}, {QSize(30, 30)});
    const QImage bottomRight =
        composition.compose({{quarters, QPoint(lowest + 100, lowest + 100), huge}}, {QSize(30, 30)});
    const QImage outside = composition.compose({{quarters, QPoint(lowest, lowest), huge}}, {QSize(30, 30)});

    EXPECT_EQ(topLeft, filled(QSize(30, 30), Qt::green));
    EXPECT_EQ(bottomRight, filled(QSize(30, 30), Qt::blue).copy());
    EXPECT_EQ(outside, filled(QSize(30, 30), Qt::black));
}

TEST(Composition, ScaledPicturesBeyondTheKeptMemoryLookTheSameEachTime)
{
    Composition composition;
    std::vector<PlacedPicture> pictures;
    for (int i = 0; i < 4; ++i)
        pictures.push_back({filled(QSize(7, 5), QColor(60 * i, 0, 255, 128)), QPoint(0, 0), QSize(64, 48)});

    const QImage first = composition.compose(pictures, {QSize(64, 48)});
    const QImage second = composition.compose(pictures, {QSize(64, 48)});

    EXPECT_EQ(first.pixelColor(32, 24), QColor(41, 0, 240)); // 180, 120, 60 and 0, each over half of the last
    EXPECT_EQ(second, first);
}

TEST(Composition, PicturesOfOtherFormatsAreConverted)
{
    Composition composition;
    const QImage picture = filled(QSize(33, 9), QColor(10, 200, 30));
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_RGB888, QImage::Format_RGBA8888,
                                        QImage::Format_ARGB32, QImage::Format_RGBA64}) {
        const QImage output = composition.compose({placed(picture.convertToFormat(format), 0, 0)}, {QSize(33, 9)});
        EXPECT_EQ(output, picture) << "format " << format;
    }
}

TEST(Composition, APictureThatChangedIsLookedAtAgain)
{
    Composition composition;
    QImage picture = filled(QSize(64, 64), Qt::red);
    composition.compose({placed(picture, 0, 0)}, {QSize(64, 64)});

    picture.fill(Qt::transparent);
    const QImage output = composition.compose({placed(picture, 0, 0)}, {QSize(64, 64)});

    EXPECT_EQ(output, filled(QSize(64, 64), Qt::black));
}

TEST(Composition, AnOutputLetGoOfIsDrawnIntoAgain)
{
    Composition composition;
    QImage first = composition.compose({}, {QSize(64, 64)});
    const uchar *memory = first.constBits();

    first = {};
    EXPECT_EQ(composition.compose({}, {QSize(64, 64)}).constBits(), memory);
}

TEST(Composition, AnOutputThatIsHeldStaysAsItWas)
{
    Composition composition;
    const QImage first = composition.compose({}, style(QSize(64, 64), NamedColour::red, NamedColour::red));

    const QImage second = composition.compose({}, style(QSize(64, 64), NamedColour::blue, NamedColour::blue));

    EXPECT_EQ(first, filled(QSize(64, 64), Qt::red));
    EXPECT_EQ(second, filled(QSize(64, 64), Qt::blue));
}

TEST(Composition, PicturesAreNotHeldSoThatTheirMemoryCanBeDrawnIntoAgain)
{
    Composition composition;
    QImage picture = filled(QSize(64, 64), Qt::red);

    composition.compose({placed(picture, 0, 0)}, {QSize(64, 64)});

    EXPECT_TRUE(picture.isDetached());
}
