#include "output/Composition.h"

#include <gtest/gtest.h>

namespace {
QImage picture(const QColor &colour)
{
    QImage image(4, 3, QImage::Format_ARGB32_Premultiplied);
    image.fill(colour);
    return image;
}

/// An output of 20 x 10 with two pictures on it.
class LastComposition : public ::testing::Test
{
protected:
    LastComposition() { composition.compose(pictures, style); }

    OutputStyle style{QSize(20, 10)};
    std::vector<PlacedPicture> pictures{{picture(Qt::red), {1, 1}, {4, 3}}, {picture(Qt::blue), {3, 2}, {8, 6}}};
    Composition composition;
};
} // namespace

TEST_F(LastComposition, IsThatOfTheSamePicturesInTheSamePlaces)
{
    EXPECT_TRUE(composition.isLast(pictures, style));
}

TEST_F(LastComposition, IsAnotherWhereAnythingDiffers)
{
    const auto differs = [&](const auto &change) {
        std::vector<PlacedPicture> others = pictures;
        OutputStyle other = style;
        change(others, other);
        return !composition.isLast(others, other);
    };
    EXPECT_TRUE(differs([](auto &list, auto &) { list[0].topLeft = {2, 1}; }));
    EXPECT_TRUE(differs([](auto &list, auto &) { list[1].size = {8, 7}; }));
    EXPECT_TRUE(differs([](auto &list, auto &) { list[1].picture = picture(Qt::blue); }));
    EXPECT_TRUE(differs([](auto &list, auto &) { list[1].picture.setPixelColor(0, 0, Qt::green); }));
    EXPECT_TRUE(differs([](auto &list, auto &) { std::swap(list[0], list[1]); }));
    EXPECT_TRUE(differs([](auto &list, auto &) { list.pop_back(); }));
    EXPECT_TRUE(differs([](auto &list, auto &) { list.push_back(list[0]); }));
    EXPECT_TRUE(differs([](auto &, OutputStyle &other) { other.size = {21, 10}; }));
    EXPECT_TRUE(differs([](auto &, OutputStyle &other) { other.background = NamedColour::white; }));
    EXPECT_TRUE(differs([](auto &, OutputStyle &other) { other.edge = NamedColour::white; }));
}

TEST_F(LastComposition, IsNoneWhereNothingCouldBeComposed)
{
    style.size = {0, 10};
    composition.compose(pictures, style);
    EXPECT_FALSE(composition.isLast(pictures, style));
}
