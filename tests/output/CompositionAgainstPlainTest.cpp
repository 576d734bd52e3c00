#include "tests/output/ChancePictures.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace {
/// The composition by the letter: slow, plain, and what the fast one must look like.
QImage plainComposition(const std::vector<PlacedPicture> &topmostFirst, const OutputStyle &style)
{
    QImage output(style.size, Raster::format);
    QPainter painter(&output);
    const QRect whole = output.rect();
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(whole, style.background.toQColor());
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QRegion outline = QRegion(whole) - QRegion(whole.adjusted(1, 1, -1, -1));
    for (const QRect &side : outline)
        painter.fillRect(side, style.edge.toQColor());
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    for (auto layer = topmostFirst.rbegin(); layer != topmostFirst.rend(); ++layer)
        painter.drawImage(layer->topLeft, layer->picture);
    return output;
}
} // namespace

TEST(CompositionAgainstPlain, AnOpaqueOutputIsPixelEqualToThePlainOne)
{
    Chance chance;
    Composition composition;
    for (int round = 0; round < 300; ++round) {
        const QSize size(chance.number(1, 200), chance.number(1, 120));
        const Colour background = Colour::fromRgba8(chance.colour(255).rgba());
        const Colour edge = Colour::fromRgba8(chance.colour(chance.number(0, 255)).rgba());
        const std::vector<PlacedPicture> pictures = chance.pictures(size);
        ASSERT_EQ(difference(composition.compose(pictures, style(size, background, edge)),
                             plainComposition(pictures, style(size, background, edge))),
                  0)
            << "round " << round;
    }
}

TEST(CompositionAgainstPlain, ATranslucentOutputDiffersFromThePlainOneByAStepAtMost)
{
    Chance chance;
    Composition composition;
    for (int round = 0; round < 300; ++round) {
        const QSize size(chance.number(1, 200), chance.number(1, 120));
        const Colour background = Colour::fromRgba8(chance.colour(chance.number(0, 254)).rgba());
        const Colour edge = Colour::fromRgba8(chance.colour(chance.number(0, 255)).rgba());
        const std::vector<PlacedPicture> pictures = chance.pictures(size);
        ASSERT_LE(difference(composition.compose(pictures, style(size, background, edge)),
                             plainComposition(pictures, style(size, background, edge))),
                  1)
            << "round " << round;
    }
}

TEST(CompositionAgainstPlain, LargeOutputsLookLikeThePlainOnesToo)
{
    Chance chance;
    Composition composition;
    const QSize size(2203, 1999);
    std::vector<PlacedPicture> pictures{chance.picture(QSize(100, 100)), chance.picture(size), chance.picture(size),
                                        placed(filled(QSize(1801, 903), Qt::red), 203, 401)};

    const OutputStyle opaque = style(size, NamedColour::blue, {0, 1, 0, 0.5});
    EXPECT_EQ(difference(composition.compose(pictures, opaque), plainComposition(pictures, opaque)), 0);
    const OutputStyle translucent = style(size, {0.2, 0.4, 0.6, 0.5}, NamedColour::white);
    EXPECT_LE(difference(composition.compose(pictures, translucent), plainComposition(pictures, translucent)), 1);
}
