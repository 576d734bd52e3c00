#include "output/OpaqueSpans.h"

#include "drawing/Raster.h"

#include <QPainter>

#include <gtest/gtest.h>

using LayerRows::Coverage;
using Spans = std::vector<OpaqueSpans::Span>;

namespace {
bool operator==(const OpaqueSpans::Band &band, const Spans &spans)
{
    return band.spans == spans;
}

QImage filled(int width, int height, const QColor &colour)
{
    QImage picture(width, height, Raster::format);
    picture.fill(colour);
    return picture;
}
} // namespace

TEST(OpaqueSpans, AnOpaquePictureIsOneBandOfOneSpan)
{
    const OpaqueSpans opaque(filled(77, 45, Qt::red));

    ASSERT_EQ(opaque.bands().size(), 1u);
    EXPECT_EQ(opaque.bands()[0].top, 0);
    EXPECT_TRUE(opaque.bands()[0] == (Spans{{0, 77, Coverage::Opaque}}));
}

TEST(OpaqueSpans, ATransparentPictureHasNoSpans)
{
    const OpaqueSpans opaque(filled(77, 45, Qt::transparent));

    ASSERT_EQ(opaque.bands().size(), 1u);
    EXPECT_TRUE(opaque.bands()[0].spans.empty());
}

TEST(OpaqueSpans, ANullPictureHasNoBands)
{
    EXPECT_TRUE(OpaqueSpans(QImage()).bands().empty());
}

TEST(OpaqueSpans, OneTranslucentPixelSpoilsItsBlockOnly)
{
    // In a whole block and in the narrow last one, which are looked through in different ways.
    for (const int x : {40, 70, 76}) {
        QImage picture = filled(77, 45, Qt::red);
        picture.setPixelColor(x, 20, QColor(255, 0, 0, 254));
        const OpaqueSpans opaque(picture);

        ASSERT_EQ(opaque.bands().size(), 3u);
        EXPECT_EQ(opaque.bands()[1].top, 16);
        EXPECT_EQ(opaque.bands()[2].top, 24);
        const Spans expected =
            x == 40 ? Spans{{0, 32, Coverage::Opaque}, {32, 64, Coverage::Mixed}, {64, 77, Coverage::Opaque}}
                    : Spans{{0, 64, Coverage::Opaque}, {64, 77, Coverage::Mixed}};
        EXPECT_TRUE(opaque.bands()[1] == expected) << x;
    }
}

TEST(OpaqueSpans, AFaintPixelIsNotTransparent)
{
    for (const int x : {40, 76}) {
        QImage picture = filled(77, 5, Qt::transparent);
        picture.setPixelColor(x, 4, QColor(0, 0, 0, 1));
        const OpaqueSpans opaque(picture);

        ASSERT_EQ(opaque.bands().size(), 1u);
        EXPECT_EQ(opaque.bands()[0].spans.size(), 1u) << x;
    }
}

TEST(OpaqueSpans, RowsAreFoundInTheirBand)
{
    QImage picture = filled(64, 40, Qt::red);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(0, 16, 64, 8, Qt::transparent);
    painter.end();
    const OpaqueSpans opaque(picture);

    EXPECT_EQ(opaque.at(15).size(), 1u);
    EXPECT_EQ(opaque.at(16).size(), 0u);
    EXPECT_EQ(opaque.at(23).size(), 0u);
    EXPECT_EQ(opaque.at(24).size(), 1u);
    EXPECT_EQ(opaque.at(39).size(), 1u);
}
