#include "bench/CompositionSubjects.h"

#include "bench/Charts.h"
#include "output/Composition.h"

#include <benchmark/benchmark.h>
#include <memory>

namespace {
Subject compositionOf(std::vector<PlacedPicture> pictures, const OutputStyle &style)
{
    const auto composition = std::make_shared<Composition>();
    const auto turns = std::make_shared<int>(0);
    const auto run = [composition, turns, pictures = std::move(pictures), style] {
        OutputStyle another = style; // or only what differs would be composed
        another.edge = (*turns)++ % 2 == 0 ? style.background : NamedColour::white;
        benchmark::DoNotOptimize(composition->compose(pictures, another).constBits());
    };
    return {qint64{4} * style.size.width() * style.size.height(), run};
}
} // namespace

Subject CompositionSubjects::oneFullLayer(const QSize &output)
{
    return compositionOf({{Charts::picture(output, 0), QPoint(0, 0), output}}, {output});
}

Subject CompositionSubjects::tiledLayers(const QSize &output)
{
    const QSize tile(output.width() / 4, output.height() / 3);
    std::vector<PlacedPicture> pictures;
    for (int i = 0; i < 12; ++i) {
        const QPoint topLeft(i % 4 * tile.width(), i / 4 * tile.height());
        pictures.push_back({Charts::picture(tile, i), topLeft, tile});
    }
    return compositionOf(std::move(pictures), {output});
}

Subject CompositionSubjects::overlappingLayers(const QSize &output, int count, const Colour &background)
{
    const QSize quarter = output / 2;
    std::vector<PlacedPicture> pictures;
    for (int i = 0; i < count; ++i) {
        // Steps that have no factor in common with the count spread the pictures over the output.
        const QPoint topLeft(i * 7 % count * quarter.width() / count, i * 11 % count * quarter.height() / count);
        pictures.push_back({Charts::picture(quarter, i), topLeft, quarter});
    }
    return compositionOf(std::move(pictures), {output, background, background});
}
