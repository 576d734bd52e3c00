#include "charts/Chart.h"

#include "charts/ChartPainter.h"

namespace {
/// In the lower right corner, white on black, over what is drawn there.
void drawCaption(ChartPainter &painter, const ChartShape &shape)
{
    const int height = std::clamp(shape.size.height() / 36, 8, 64);
    const int width = 8 * height;
    if (shape.size.width() < width || shape.size.height() < 4 * height)
        return;
    const QRect box(shape.size.width() - width, shape.size.height() - height, width, height);
    painter.fill(box, painter.levels().black());
    painter.text(box, Chart::rangeName(shape.range), painter.levels().white());
}
} // namespace

const Chart *Chart::find(const QString &name)
{
    const std::span<const Chart> charts = all();
    const auto chart = std::find_if(charts.begin(), charts.end(),
                                    [&](const Chart &known) { return name == QLatin1StringView(known.name); });
    return chart == charts.end() ? nullptr : &*chart;
}

QString Chart::groupName(ChartGroup group)
{
    switch (group) {
    case ChartGroup::Rigging:
        return "Rigging";
    case ChartGroup::Processor:
        return "Processor";
    case ChartGroup::Video:
        return "Video";
    case ChartGroup::Camera:
        return "Camera";
    case ChartGroup::Show:
        break;
    }
    return "Show";
}

QString Chart::rangeName(LevelRange range)
{
    return range == LevelRange::Full ? "full 0-255" : "narrow 16-235";
}

bool Chart::isFullWhite(const ChartOptions &options) const
{
    const bool isWhite = (choices & Colour) == 0 || options.colour == FieldColour::White;
    const int level = (choices & Level) == 0 ? field.value_or(0) : options.level.value_or(field.value_or(0));
    return field && isWhite && level == 100;
}

void Chart::draw(const ChartShape &shape, qint64 frame, QImage &raster, const QRegion &parts) const
{
    Q_ASSERT(raster.size() == shape.size && raster.format() == QImage::Format_RGB32);
    ChartPainter painter(raster, parts, rangeMatters ? shape.range : LevelRange::Full);
    paint(painter, shape, frame);
    if (rangeMatters && shape.caption)
        drawCaption(painter, shape);
}

QImage Chart::picture(const ChartShape &shape, qint64 frame) const
{
    QImage raster(shape.size, QImage::Format_RGB32);
    if (!raster.isNull())
        draw(shape, frame, raster, raster.rect());
    return raster;
}

QRegion Chart::moved(const ChartShape &shape, qint64 from, qint64 to) const
{
    if (!change || from == to)
        return {};
    return change(shape, from, to) & QRect(QPoint(0, 0), shape.size);
}
