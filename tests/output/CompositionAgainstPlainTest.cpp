#include "tests/output/SamplePictures.h"

#include <QPainter>

#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

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

/// The largest difference of any channel of any pixel; 256 for different sizes.
int difference(const QImage &left, const QImage &right)
{
    if (left.size() != right.size())
        return 256;
    int largest = 0;
    for (int y = 0; y < left.height(); ++y) {
        const uchar *one = left.constScanLine(y);
        const uchar *other = right.constScanLine(y);
        for (int i = 0; i < left.width() * 4; ++i)
            largest = std::max(largest, std::abs(one[i] - other[i]));
    }
    return largest;
}

/// Pictures of every kind, by chance but the same in each run.
class Chance
{
public:
    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_engine); }
    QColor colour(int alpha) { return QColor(number(0, 255), number(0, 255), number(0, 255), alpha); }

    PlacedPicture picture(const QSize &output)
    {
        QImage picture = filled(QSize(number(1, 150), number(1, 90)), colour(255));
        const int kind = number(0, 4);
        if (kind == 1)
            picture.fill(colour(number(0, 254)));
        if (kind == 2)
            makeHoles(picture);
        if (kind == 3)
            makeNoise(picture);
        return placed(picture, number(-60, output.width() + 10), number(-60, output.height() + 10));
    }

    std::vector<PlacedPicture> pictures(const QSize &output)
    {
        std::vector<PlacedPicture> pictures(number(0, 9));
        for (PlacedPicture &one : pictures)
            one = picture(output);
        return pictures;
    }

private:
    void makeHoles(QImage &picture)
    {
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        for (int i = 0; i < 3; ++i) {
            const QRect hole(number(0, picture.width()), number(0, picture.height()), number(1, 90), number(1, 40));
            painter.fillRect(hole, Qt::transparent);
        }
    }
    void makeNoise(QImage &picture)
    {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                picture.setPixelColor(x, y, colour(number(0, 255)));
        }
    }

    std::mt19937 m_engine{20260731};
};
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
