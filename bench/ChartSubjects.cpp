#include "bench/ChartSubjects.h"

#include "bench/Charts.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <utility>

Subject ChartSubjects::wall(int columns, int rows, int panelSide, Labels labels)
{
    const auto chart = std::make_shared<ScreenChart>(Charts::everythingOn(columns, rows, panelSide));
    chart->drawLabels = labels == Labels::Drawn;
    const auto raster = std::make_shared<QImage>(chart->draw({}));
    const auto run = [chart, raster] {
        *raster = chart->draw(std::move(*raster));
        benchmark::DoNotOptimize(raster->constBits());
    };
    return {raster->sizeInBytes(), run};
}
