#include "bench/PsdSubjects.h"

#include "bench/Charts.h"
#include "cli/CommandLineHost.h"
#include "formats/PSDExport.h"
#include "formats/ProjectText.h"
#include "psd/KXPSDWriter.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

namespace {
struct PlacedChart
{
    QImage picture;
    QPoint topLeft;
};

Subject documentOf(const QSize &output, std::vector<PlacedChart> charts)
{
    qint64 bytes = 0;
    for (const PlacedChart &chart : charts)
        bytes += chart.picture.sizeInBytes();
    const auto run = [output, charts = std::move(charts)] {
        KXPSDWriter writer(output.toSizeF());
        for (const PlacedChart &chart : charts)
            writer.addLayerWithCGImage(chart.picture, "Wall", 1, chart.topLeft);
        benchmark::DoNotOptimize(writer.createPSDData());
    };
    return {bytes, run};
}
} // namespace

Subject PsdSubjects::channels(const QSize &output, Rows rows)
{
    ScreenChart chart = Charts::everythingOn(output.width() / 120, output.height() / 120, 120);
    chart.CircleEnable = rows == Rows::Differ;
    chart.drawFlowPath = rows == Rows::Differ;
    const QImage picture = chart.draw({});
    const auto packer = std::make_shared<ChannelPacker>(); // a document packs its layers with one
    const auto run = [picture, packer] {
        const PixelView pixels = PixelView::ofRaster(picture);
        benchmark::DoNotOptimize(packer->pack(pixels, Placement::filledBy(pixels), 4));
    };
    return {picture.sizeInBytes(), run};
}

Subject PsdSubjects::overlappingLayers(const QSize &output, int count)
{
    const QSize quarter = output / 2;
    std::vector<PlacedChart> charts;
    for (int i = 0; i < count; ++i) {
        // Steps that have no factor in common with the count spread the pictures over the output.
        const QPoint topLeft(i * 7 % count * quarter.width() / count, i * 11 % count * quarter.height() / count);
        charts.push_back({Charts::picture(quarter), topLeft});
    }
    return documentOf(output, std::move(charts));
}

Subject PsdSubjects::tiledLayers(const QSize &output)
{
    const QSize tile(output.width() / 4, output.height() / 3);
    std::vector<PlacedChart> charts;
    charts.reserve(12);
    for (int i = 0; i < 12; ++i)
        charts.push_back({Charts::picture(tile, i), QPoint(i % 4 * tile.width(), i / 4 * tile.height())});
    return documentOf(output, std::move(charts));
}

Subject PsdSubjects::example(const QString &name)
{
    const auto host = std::make_shared<CommandLineHost>(110, 1, 0);
    const auto project = std::make_shared<Project>(ProjectText::read(EXAMPLES + name + ".json", *host).value());
    qint64 bytes = 0;
    for (const LayerPointer &layer : project->layers)
        bytes += layer->thumbnail().sizeInBytes();
    const auto run = [host, project] {
        int screenNumber = 0;
        benchmark::DoNotOptimize(PSDExport::encode(*project, screenNumber));
    };
    return {bytes, run};
}
