#include "output/Composition.h"
#include "tests/output/PictureLayer.h"

#include <gtest/gtest.h>

namespace {
std::shared_ptr<PictureLayer> layer(LayerHost &host, const QColor &colour, const QRect &place)
{
    auto layer = std::make_shared<PictureLayer>(host);
    QImage picture(place.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(colour);
    layer->setThumbnail(picture);
    layer->setVisible(true);
    layer->setXpoint(place.x());
    layer->setYpoint(place.y());
    layer->setScreenSizeWidth(place.width());
    layer->setScreenSizeHeight(place.height());
    return layer;
}
} // namespace

TEST(PlacedPictures, VisibleLayersComeInListOrderAtTheirPlaces)
{
    QuietHost host;
    const auto red = layer(host, Qt::red, QRect(-3, 5, 7, 9));
    const auto green = layer(host, Qt::green, QRect(40, 50, 11, 13));

    const std::vector<PlacedPicture> pictures = placedPictures({red, green});

    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(pictures[0].picture, red->thumbnail());
    EXPECT_EQ(pictures[0].topLeft, QPoint(-3, 5));
    EXPECT_EQ(pictures[0].size, QSize(7, 9));
    EXPECT_EQ(pictures[1].picture, green->thumbnail());
}

TEST(PlacedPictures, HiddenLayersAreLeftOutAndNotEvenDrawn)
{
    QuietHost host;
    const auto hidden = layer(host, Qt::red, QRect(0, 0, 7, 9));
    hidden->setVisible(false);

    EXPECT_TRUE(placedPictures({hidden}).empty());
    EXPECT_EQ(hidden->timesAsked, 0);
}

TEST(PlacedPictures, ALayersSizeMayDifferFromItsPicturesAndBeAnything)
{
    QuietHost host;
    const auto odd = layer(host, Qt::red, QRect(0, 0, 7, 9));
    odd->setXpoint(2147483647);
    odd->setYpoint(-2147483647);
    odd->setScreenSizeWidth(-1);
    odd->setScreenSizeHeight(2147483647);

    const std::vector<PlacedPicture> pictures = placedPictures({odd});

    EXPECT_EQ(pictures[0].topLeft, QPoint(2147483647, -2147483647));
    EXPECT_EQ(pictures[0].size, QSize(-1, 2147483647));
    Composition composition;
    EXPECT_EQ(composition.compose(pictures, {QSize(9, 9)}).pixelColor(4, 4), QColor(Qt::black));
}
