#include "tests/charts/TestShapes.h"

TEST(Checker, OfOnePixelIsHalfBlackAndHalfWhite)
{
    for (const QSize &size : {fullHd, ultraHd}) {
        const QImage picture = pictureOf("checker-1px", size);
        qint64 white = 0;
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                const int code = qRed(picture.pixel(x, y));
                ASSERT_EQ(code, (x + y) & 1 ? 255 : 0);
                white += code == 255 ? 1 : 0;
            }
        }
        EXPECT_EQ(2 * white, qint64{size.width()} * size.height());
    }
}

TEST(Checker, OfMorePixelsIsThatManyTimesLarger)
{
    expectGreys(pictureOf("checker-2px", fullHd), {{0, 0, 0}, {1, 1, 0}, {2, 0, 255}, {2, 2, 0}, {1, 3, 255}});
    expectGreys(pictureOf("checker-4px", fullHd), {{3, 3, 0}, {4, 3, 255}, {4, 4, 0}});
    expectGreys(pictureOf("checker-8px", fullHd), {{7, 7, 0}, {8, 7, 255}, {8, 8, 0}});
}

TEST(Lines, AreOnePixelWide)
{
    expectGreys(pictureOf("lines-1px", fullHd), {{0, 0, 0}, {1, 0, 255}, {1, 1, 255}, {1919, 1079, 255}});
    expectGreys(pictureOf("lines-across", fullHd), {{0, 0, 0}, {1, 0, 0}, {0, 1, 255}, {1919, 1079, 255}});
    expectProbes(pictureOf("lines-red-blue", fullHd), {{0, 0, 255, 0, 0}, {1, 0, 0, 0, 255}, {1, 5, 0, 0, 255}});
}

TEST(LineGroups, AreUprightAtTheLeftAndAcrossAtTheRight)
{
    const QImage hd = pictureOf("line-groups", fullHd); // bands of 180 rows
    expectGreys(hd, {{0, 0, 255}, {1, 0, 0}, {1, 180, 255}, {2, 180, 0}, {7, 1079, 255}, {8, 1079, 0}});
    expectGreys(hd, {{960, 0, 255}, {960, 1, 0}, {960, 180, 255}, {960, 182, 0}, {960, 900, 255}, {960, 908, 0}});
}

TEST(Frames, AreOnePixelWideAndMarkTheirCorners)
{
    const QImage hd = pictureOf("frame", fullHd);
    expectGreys(hd, {{0, 540, 255}, {1, 540, 0}, {1918, 540, 0}, {1919, 540, 255}});
    expectGreys(hd, {{960, 0, 255}, {960, 1, 0}, {960, 1078, 0}, {960, 1079, 255}});
    expectGreys(hd, {{2, 2, 255}, {3, 2, 0}, {2, 3, 0}});                          // 1
    expectGreys(hd, {{1917, 2, 255}, {1916, 3, 255}, {1915, 2, 0}, {1917, 4, 0}}); // 2
    expectGreys(hd, {{1917, 1077, 255}, {1915, 1075, 255}, {1914, 1077, 0}});      // 3
    expectGreys(hd, {{2, 1077, 255}, {5, 1074, 255}, {6, 1077, 0}, {2, 1073, 0}}); // 4
}

TEST(Frames, StandAroundEachWallToo)
{
    const QImage picture = pictureOf("frame", ChartShape{.size = fullHd, .walls = {{100, 50, 300, 200}}});
    expectGreys(picture, {{100, 150, 255}, {101, 150, 0}, {399, 150, 255}, {398, 150, 0}, {250, 249, 255}});
}
