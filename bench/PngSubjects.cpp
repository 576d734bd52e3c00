#include "bench/PngSubjects.h"

#include "bench/Charts.h"
#include "formats/PngFile.h"

#include <QBuffer>

#include <benchmark/benchmark.h>

Subject PngSubjects::encode(const QSize &output)
{
    const QImage chart = Charts::picture(output);
    return {chart.sizeInBytes(), [chart] { benchmark::DoNotOptimize(PngFile::encode(chart)); }};
}

double PngSubjects::sizeRatio(const QSize &output)
{
    const QImage chart = Charts::picture(output);
    QBuffer reference;
    reference.open(QIODevice::WriteOnly);
    chart.save(&reference, "PNG");
    return static_cast<double>(PngFile::encode(chart)->size()) / static_cast<double>(reference.size());
}
