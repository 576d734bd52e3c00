#include "drawing/Raster.h"

#include <gtest/gtest.h>
#include <limits>
#include <utility>

TEST(Raster, NewOnesAreTransparent)
{
    const QImage raster = Raster::make(33, 7);

    ASSERT_EQ(raster.size(), QSize(33, 7));
    EXPECT_EQ(raster.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(raster.pixel(32, 6), 0u);
}

TEST(Raster, LargeOnesAreTransparentToo)
{
    const QImage raster = Raster::make(2001, 1001);

    EXPECT_EQ(raster.pixel(0, 0), 0u);
    EXPECT_EQ(raster.pixel(2000, 1000), 0u);
}

TEST(Raster, SizesAreRefusedBeforeMemoryIsAskedFor)
{
    constexpr qint64 most = std::numeric_limits<qint64>::max();

    EXPECT_TRUE(Raster::make(0, 10).isNull());
    EXPECT_TRUE(Raster::make(10, -1).isNull());
    EXPECT_TRUE(Raster::make(32769, 1).isNull());
    EXPECT_TRUE(Raster::make(most, most).isNull());
    EXPECT_FALSE(Raster::canHold(32768, 8193));
    EXPECT_TRUE(Raster::canHold(32768, 8192));
}

TEST(Raster, MemoryIsKeptWhileNobodyElseHoldsIt)
{
    QImage raster = Raster::make(800, 800);
    const uchar *memory = raster.constBits();

    raster = Raster::reuse(std::move(raster), 800, 800);
    EXPECT_EQ(raster.constBits(), memory);

    const QImage held = raster;
    const QImage fresh = Raster::reuse(std::move(raster), 800, 800);
    EXPECT_NE(fresh.constBits(), memory);
    EXPECT_EQ(held.constBits(), memory);
}

TEST(Raster, AnotherSizeOrFormatIsNotReused)
{
    EXPECT_EQ(Raster::reuse(Raster::make(5, 5), 6, 5).size(), QSize(6, 5));
    EXPECT_EQ(Raster::reuse(QImage(5, 5, QImage::Format_RGB32), 5, 5).format(), Raster::format);
}

TEST(Raster, AViewHasThePixelsOfItsPartAndKeepsThem)
{
    QImage raster = Raster::make(5, 4);
    raster.setPixel(2, 3, 0xff112233);
    const uchar *memory = raster.constScanLine(3);
    const QImage view = Raster::view(raster, {2, 1, 3, 3});
    raster = {};

    EXPECT_EQ(view.size(), QSize(3, 3));
    EXPECT_EQ(view.pixel(0, 2), 0xff112233);
    EXPECT_EQ(view.constScanLine(2), memory + 8);
}
