#include "Chance.h"
#include "screen/FlowPath.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace ShowFixture;

namespace {
/// Where a cable begins and ends, in the raster of the wall, y up.
using Ends = std::pair<std::pair<double, double>, std::pair<double, double>>;

std::pair<double, double> point(const QPointF &point)
{
    return {point.x(), point.y()};
}

/// The runs that a chart draws, in the order of drawing.
std::vector<Ends> drawn(const PanelGrid &grid, const FlowPattern &flow, qint64 pixelLimit)
{
    const PortSplit split = *PortSplit::of(grid, flow, pixelLimit);
    std::vector<Ends> ends;
    for (qint64 index = 0; index < split.portCount(); ++index) {
        double start = split.port(index).start;
        double end = 0;
        const auto lines = static_cast<float>(split.port(index).lines);
        const FlowPath::Run run =
            flow.along == FlowPattern::Along::Rows
                ? FlowPath::rowsRun(grid, flow.fromRight, flow.fromBottom, end, start, flow.end, lines)
                : FlowPath::columnsRun(grid, flow.fromRight, flow.fromBottom, start, end, flow.end, lines);
        ends.emplace_back(point(run.start.centre), point(run.end.centre));
    }
    return ends;
}

std::pair<double, double> centre(const PanelGrid &grid, const Cell &cell)
{
    return {grid.columns.centre(cell.column), grid.rowsFromBottom().centre(grid.rows.count() - 1 - cell.row)};
}

std::vector<Ends> wired(const WallShape &wall, const FlowPattern &flow, qint64 pixelLimit)
{
    const WallSplit split = WallSplit::byLines(wall, flow, pixelLimit);
    std::vector<Ends> ends;
    for (const WallSplit::Run &run : split.runs) {
        const auto panels = split.panelsOf(run);
        ends.emplace_back(centre(wall.grid, panels.front().cell), centre(wall.grid, panels.back().cell));
    }
    return ends;
}
} // namespace

TEST(DrawnPath, IsThatOfTheCablesOfWholeLinesAndTheirNumbersComeFromThePatternsEdge)
{
    for (unsigned seed = 1; seed <= 20'000; ++seed) {
        Chance chance(seed);
        const int columns = chance.from(1, 9);
        const int rows = chance.from(1, 9);
        // A chart begins a run at a whole pixel; panels of even sizes have theirs in the middle.
        const int width = 2 * chance.from(1, 40);
        const WallShape wall{{{columns, width}, {rows, 2 * chance.from(1, 40)}}};
        const int code = chance.from(0, 7);
        const FlowPattern flow = *FlowPattern::ofCode(code);
        const qint64 limit = chance.from(0, 40) * wall.grid.panelPixels();

        std::vector<Ends> expected = drawn(wall.grid, flow, limit);
        if (code == 0 || code == 1 || code == 5 || code == 7)
            std::reverse(expected.begin(), expected.end());
        ASSERT_EQ(wired(wall, flow, limit), expected) << "seed " << seed << ", pattern " << code;
    }
}
