#include "bench/MovingChartSubjects.h"

#include "bench/Timing.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstring>
#include <utility>
#include <vector>

namespace {
constexpr QSize eightK(7680, 4320);
constexpr int side = 120;
constexpr int panelsOnAPort = 32;
constexpr int mostHeld = 1000; ///< frames; a picture that stays longer does not move

ChartShape shapeOfPanels()
{
    ChartShape shape{.size = eightK};
    int number = 0;
    for (int y = 0; y < eightK.height(); y += side) {
        for (int x = 0; x < eightK.width(); x += side) {
            shape.panels.push_back({{x, y, side, side},
                                    QString::number(number),
                                    QString("A%1").arg(number / panelsOnAPort + 1),
                                    number % panelsOnAPort + 1});
            ++number;
        }
    }
    return shape;
}

/// A chart and the frame that is shown.
struct Shown
{
    const Chart &chart;
    ChartShape shape = shapeOfPanels();
    QImage raster = chart.picture(shape, 0);
    qint64 frame = 0;

    /// What moves when it goes on.
    QRegion next()
    {
        const qint64 last = frame;
        QRegion moved;
        while (moved.isEmpty() && frame < last + mostHeld)
            moved = chart.moved(shape, last, ++frame);
        return moved;
    }
};

/// The rows of some pictures one after the other, from the first to the one behind the last.
using Bands = std::vector<std::pair<int, int>>;
std::vector<Bands> bandsInWhichItMoves(Shown shown)
{
    constexpr std::size_t pictures = 64;
    std::vector<Bands> all(pictures);
    for (Bands &bands : all) {
        int below = 0;
        for (const QRect &part : shown.next()) { // band after band
            if (part.bottom() >= below)
                bands.emplace_back(std::max(below, part.top()), part.bottom() + 1);
            below = part.bottom() + 1;
        }
    }
    return all;
}
} // namespace

double MovingChartSubjects::timeOfFrame(const Chart &chart)
{
    Shown shown{chart};
    const std::vector<Bands> rows = bandsInWhichItMoves(shown);
    const auto bytesPerRow = static_cast<std::size_t>(shown.raster.bytesPerLine());
    std::vector<char> memory(static_cast<std::size_t>(shown.raster.sizeInBytes()), 1);
    std::size_t picture = 0;
    const auto reference = [&] {
        for (const auto &[first, end] : rows[picture++ % rows.size()])
            std::memset(memory.data() + static_cast<std::size_t>(first) * bytesPerRow, 0x55,
                        static_cast<std::size_t>(end - first) * bytesPerRow);
        benchmark::DoNotOptimize(memory.data());
    };
    const auto work = [&] {
        const QRegion moved = shown.next();
        chart.draw(shown.shape, shown.frame, shown.raster, moved);
        benchmark::DoNotOptimize(shown.raster.constBits());
    };
    return timeOf(work, reference);
}
