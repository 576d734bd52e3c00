#include "output/LostPicture.h"

#include "output/Composition.h"
#include "tests/output/PictureLayer.h"
#include "tests/output/SamplePictures.h"

#include <gtest/gtest.h>

namespace {
/// An output of 9 x 7 of a plate, which is red, over one that cannot be fitted in.
class LostPictureTest : public ::testing::Test
{
protected:
    std::shared_ptr<PictureLayer> layer(const QString &label, const QImage &picture)
    {
        auto made = std::make_shared<PictureLayer>(host);
        made->setLabel(label);
        made->setThumbnail(picture);
        made->setVisible(true);
        made->setScreenSizeWidth(8000);
        made->setScreenSizeHeight(3);
        return made;
    }
    void compose() { composition.compose(placedPictures(layers), outputStyle); }
    QString told() const
    {
        const Result<void> isWhole = LostPicture::check(composition.composed(), outputStyle.size, layers);
        return isWhole ? QString() : isWhole.error().text;
    }

    QuietHost host;
    OutputStyle outputStyle{QSize(9, 7)};
    std::vector<LayerPointer> layers{layer("HIDDEN", unfittable()), layer("PLATE", filled({4, 3}, Qt::red)),
                                     layer("LOGO", unfittable())};
    Composition composition;

    void SetUp() override
    {
        layers[0]->setVisible(false);
        layers[2]->setYpoint(4);
        compose();
    }
};
} // namespace

TEST_F(LostPictureTest, IsToldByItsNameAndTheOthersAreShown)
{
    EXPECT_EQ(told(),
              "LOGO: there is not enough memory to show it in 8,000 x 3 pixels; close other programs or make it "
              "smaller");
    EXPECT_EQ(composition.output().pixelColor(1, 1), QColor(Qt::red));
    EXPECT_EQ(composition.output().pixelColor(1, 5), QColor(Qt::black));
}

TEST_F(LostPictureTest, IsOneThatWouldTakeMoreThanAllMayTogether)
{
    layers = {layer("FIRST", filled({4, 3}, Qt::red)), layer("SECOND", filled({4, 3}, Qt::green))};
    layers[1]->setScreenSizeWidth(9);
    const auto toldWithin = [&](qint64 pixels) {
        Composition bounded(pixels);
        bounded.compose(placedPictures(layers), outputStyle);
        const Result<void> isWhole = LostPicture::check(bounded.composed(), outputStyle.size, layers);
        return isWhole ? QString() : isWhole.error().text;
    };
    EXPECT_EQ(toldWithin(2 * 9 * 3), QString());
    EXPECT_EQ(toldWithin(2 * 9 * 3 - 1), "SECOND: there is not enough memory to show it in 9 x 3 pixels; close other "
                                         "programs or make it smaller");
    layers[1]->setThumbnail(layers[0]->thumbnail());
    layers[1]->setScreenSizeWidth(8000);
    EXPECT_EQ(toldWithin(9 * 3), QString()); // both are the same copy
}

TEST_F(LostPictureTest, MayBeTheOutputItself)
{
    const auto told = [&](const QSize &size) { return LostPicture::check({}, size, layers); };
    EXPECT_EQ(told({8192, 4320}).error().text,
              "The output: there is not enough memory to show it in 8,192 x 4,320 pixels; close other programs or make "
              "it smaller");
    EXPECT_TRUE(told({8192, 0}));
    EXPECT_TRUE(told({32769, 1}));
}

TEST_F(LostPictureTest, IsNoneThatIsHiddenOrBesideTheOutput)
{
    layers[2]->setYpoint(7);
    compose();
    EXPECT_EQ(told(), QString());

    layers[2]->setYpoint(6);
    compose();
    EXPECT_NE(told(), QString());
    layers[2]->setVisible(false);
    compose();
    EXPECT_EQ(told(), QString());
}

TEST_F(LostPictureTest, IsTriedAgainByTheNextComposition)
{
    EXPECT_FALSE(composition.isLast(placedPictures(layers), outputStyle));

    layers[1]->setXpoint(1); // another part of the output
    compose();
    EXPECT_TRUE(told().startsWith("LOGO: ")) << qUtf8Printable(told());

    layers[2]->setThumbnail(filled({4, 3}, Qt::blue));
    compose();
    EXPECT_EQ(told(), QString());
    EXPECT_EQ(composition.output().pixelColor(1, 5), QColor(Qt::blue));
    EXPECT_TRUE(composition.isLast(placedPictures(layers), outputStyle));
}

TEST_F(LostPictureTest, WithoutANameIsOneAllTheSame)
{
    layers[2]->setLabel({});
    EXPECT_TRUE(told().startsWith("A layer without a name: there is not enough memory"));
}
