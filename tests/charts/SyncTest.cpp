#include "tests/charts/TestShapes.h"

namespace {
const QRgb white = qRgb(255, 255, 255);

/// The seventeen squares from the left: 54 px in the middle of 1920 x 1080, 54 px from the top.
std::vector<bool> squares(const QImage &picture)
{
    std::vector<bool> lit;
    for (int i = 0; i < 17; ++i)
        lit.push_back(picture.pixel(501 + 54 * i + 27, 54 + 27) == white);
    return lit;
}

qint64 grayCode(qint64 frame)
{
    qint64 code = 0;
    const std::vector<bool> lit = squares(pictureOf("sync", {.size = fullHd}, frame));
    for (int i = 0; i < 16; ++i)
        code = 2 * code + (lit[static_cast<std::size_t>(i)] ? 1 : 0);
    return code;
}

/// The clock's letters: an eighth of a line for each.
QImage clockOf(const ChartShape &shape, qint64 frame)
{
    return pictureOf("sync", shape, frame).copy(0, 3 * 54, 1920, 4 * 54);
}

ChartShape withStart(int seconds, double rate = 60)
{
    ChartShape shape{.size = fullHd, .rate = rate};
    shape.options.start = seconds;
    return shape;
}

/// How often each pixel comes on within any second, at most; and how many come on more than three times.
struct Flashes
{
    int most = 0;
    int pixels = 0;
};
Flashes flashesOf(const Chart &chart, const ChartShape &shape)
{
    const auto second = static_cast<int>(std::ceil(shape.rate));
    const auto count = static_cast<std::size_t>(shape.size.width()) * static_cast<std::size_t>(shape.size.height());
    std::vector<std::vector<int>> onsets(count); // frames
    std::vector<bool> wasBright(count, true);
    for (int frame = 0; frame < 3 * second; ++frame) {
        const QImage picture = chart.picture(shape, frame);
        for (std::size_t i = 0; i < count; ++i) {
            const int x = static_cast<int>(i) % shape.size.width();
            const int y = static_cast<int>(i) / shape.size.width();
            const bool isBright = qGray(picture.pixel(x, y)) > 127;
            if (isBright && !wasBright[i])
                onsets[i].push_back(frame);
            wasBright[i] = isBright;
        }
    }
    Flashes flashes;
    for (const std::vector<int> &frames : onsets) {
        int most = 0;
        for (std::size_t first = 0; first < frames.size(); ++first) {
            const auto end = std::lower_bound(frames.begin(), frames.end(), frames[first] + second);
            most = std::max(most, static_cast<int>(end - frames.begin()) - static_cast<int>(first));
        }
        flashes.most = std::max(flashes.most, most);
        flashes.pixels += most > 3 ? 1 : 0;
    }
    return flashes;
}
} // namespace

TEST(Sync, CountsInGraysCode)
{
    for (const auto &[frame, code] : std::vector<std::pair<qint64, qint64>>{
             {0, 0}, {1, 1}, {2, 3}, {3, 2}, {4, 6}, {29, 19}, {59, 38}, {65'535, 32'768}, {65'536, 0}})
        EXPECT_EQ(grayCode(frame), code) << frame;
}

TEST(Sync, HasTheParityAtTheRight)
{
    EXPECT_FALSE(squares(pictureOf("sync", {.size = fullHd}, 4))[16]);
    EXPECT_TRUE(squares(pictureOf("sync", {.size = fullHd}, 5))[16]);
}

TEST(Sync, TellsTheTimeAtItsRate)
{
    // The line comes back to a column after 240 frames.
    for (const int rate : {24, 25, 30, 50, 60})
        EXPECT_EQ(clockOf(withStart(0, rate), rate * 3840), clockOf(withStart(3840, rate), 0)) << rate;
    EXPECT_EQ(clockOf(withStart(86'160), 14'400), clockOf(withStart(0), 0)) << "midnight";
    EXPECT_NE(clockOf(withStart(0), 0), clockOf(withStart(0), 240)) << "four seconds";
    EXPECT_NE(clockOf(withStart(0, 24), 0), clockOf(withStart(0, 50), 240)) << "forty frames";
}

TEST(Sync, HasALineThatMovesEightPixelsAFrame)
{
    expectGreys(pictureOf("sync", {.size = fullHd}, 5), {{40, 1000, 255}, {39, 1000, 0}, {41, 1000, 0}, {40, 0, 255}});
    expectGreys(pictureOf("sync", {.size = fullHd}, 245), {{40, 1000, 255}});
}

TEST(Strobe, IsATenthOfTheChartAndTurnsEachFrame)
{
    const QRect strobe(576, 648, 768, 270);
    EXPECT_EQ(10 * strobe.width() * strobe.height(), 1920 * 1080);
    const std::vector<std::tuple<const char *, QRgb, QRgb>> strobes{
        {"strobe-white", qRgb(255, 255, 255), qRgb(0, 0, 0)}, {"strobe-colour", qRgb(0, 255, 255), qRgb(255, 0, 255)}};
    for (const auto &[name, even, odd] : strobes) {
        EXPECT_TRUE(Chart::find(name)->flashes);
        for (const qint64 frame : {10, 11}) {
            const QImage picture = pictureOf(name, {.size = fullHd}, frame);
            EXPECT_EQ(picture.pixel(strobe.topLeft()), frame % 2 == 0 ? even : odd);
            EXPECT_EQ(picture.pixel(strobe.bottomRight()), frame % 2 == 0 ? even : odd);
            EXPECT_EQ(picture.pixel(strobe.topLeft() - QPoint(1, 1)), qRgb(0, 0, 0));
        }
    }
}

TEST(MovingCharts, FlashNoMoreThanThreeTimesASecond)
{
    for (const Chart &chart : Chart::all()) {
        if (!chart.moves() || chart.flashes || QString(chart.name) == "sync")
            continue;
        for (const double rate : {24.0, 60.0, 240.0}) {
            for (const int speed : {1, 16, 4096}) {
                ChartShape shape = shapeWithPanels({36, 16}); // panels of 4 x 4
                shape.rate = rate;
                shape.options.speed = speed;
                shape.options.hold = 1;
                EXPECT_LE(flashesOf(chart, shape).most, 3) << chart.name << " at " << rate << ", speed " << speed;
            }
        }
    }
}

TEST(MovingCharts, OfTheClockFlashInItsSquaresAndFiguresAlone)
{
    const ChartShape shape{.size = {320, 180}};
    const Flashes flashes = flashesOf(*Chart::find("sync"), shape);
    EXPECT_LT(flashes.pixels, 320 * 180 / 50) << "2 %";
    EXPECT_GT(flashesOf(*Chart::find("strobe-white"), shape).most, 20) << "what the test would see";
}
