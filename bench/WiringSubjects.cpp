#include "bench/WiringSubjects.h"

#include "bench/Charts.h"
#include "facts/ShowCables.h"
#include "facts/ShowChecks.h"
#include "show/WallShapes.h"
#include "tests/screen/TestHost.h"
#include "tests/screen/WiredWalls.h"
#include "wiring/PortEdits.h"

#include <benchmark/benchmark.h>
#include <memory>

namespace {
/// A wall of a show, in the row and the column of walls.
LayerPointer wallAt(LayerHost &host, int columns, int rows, int side, int column, int row)
{
    const auto wall = wallOf(host, columns, rows, side);
    wall->setLabel(QString("Wall %1.%2").arg(row).arg(column));
    wall->setXpoint(column * columns * side);
    wall->setYpoint(row * rows * side);
    wall->setPowerOnCell(100);
    wall->setValue("processor", "A");
    wall->setValue("split", "panels");
    return wall;
}

Project show(int walls, int inARow, const std::function<LayerPointer(int column, int row)> &make, const QSize &output)
{
    Project project{output.height(), output.width(), {}};
    for (int i = 0; i < walls; ++i)
        project.layers.push_back(make(i % inARow, i / inARow));
    for (const QString name : {"A", "B", "C", "D"})
        project.processors.push_back(controller(name));
    return project;
}

void passOver(const std::vector<WallShape> &walls)
{
    std::vector<WiredPanel> panels;
    for (const WallShape &wall : walls) {
        const auto columns = static_cast<int>(wall.grid.columns.count());
        const auto rows = static_cast<int>(wall.grid.rows.count());
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column)
                panels.push_back({{column, row}, wall.boxOf({column, row}), !wall.off.contains({column, row})});
        }
    }
    benchmark::DoNotOptimize(panels.data());
}

double timeInPasses(const Project &project, const std::function<void()> &work)
{
    std::vector<WallShape> walls;
    for (const LayerPointer &layer : project.layers)
        walls.push_back(wallShapeOf(*layer));
    return timeOf(work, [walls] { passOver(walls); });
}
} // namespace

namespace WiringSubjects {

double timeOfSplit()
{
    TestHost host;
    const Project project =
        show(1, 1, [&](int column, int row) { return wallAt(host, 200, 200, 16, column, row); }, {3200, 3200});
    const ShowToWire toWire = ShowPorts::of(project).show;
    return timeInPasses(project, [&] {
        const ShowWiring wiring = ShowWiring::of(toWire);
        benchmark::DoNotOptimize(wiring.ports.data());
    });
}

double timeOfChecks()
{
    TestHost host;
    const Project project =
        show(500, 25, [&](int column, int row) { return wallAt(host, 9, 9, 16, column, row); }, {3600, 2880});
    return timeInPasses(project, [&] {
        const std::vector<Finding> findings = ShowChecks::of(project);
        benchmark::DoNotOptimize(findings.data());
    });
}

Subject handWiredWall()
{
    TestHost host;
    LayerPointer wall = wallAt(host, 60, 34, 128, 0, 0);
    const Project project = show(1, 1, [&](int, int) { return wall; }, {7680, 4352});
    const ShowPorts automatic = ShowPorts::of(project);
    wall->setValue("runs",
                   QVariant::fromValue(CableRuns(PortEdits::asLaidByHand(automatic.show, automatic.wiring, 0))));
    wall->setValue("split", "hand");

    const auto chart = std::make_shared<ScreenChart>(Charts::everythingOn(60, 34, 128));
    chart->split = CableSplit::Hand;
    chart->portColours = true;
    chart->portNames = true;
    chart->panelPlaces = true;
    chart->cables = ShowCables::of(ShowPorts::of(project)).front();
    const auto raster = std::make_shared<QImage>(chart->draw({}));
    const auto run = [chart, raster] {
        *raster = chart->draw(std::move(*raster));
        benchmark::DoNotOptimize(raster->constBits());
    };
    return {raster->sizeInBytes(), run};
}

} // namespace WiringSubjects
