#include "live/ShownOutput.h"

#include "drawing/Raster.h"

#include <QPainter>

#include <algorithm>
#include <optional>

namespace {
/// What charts hide.
QRegion areaOf(const std::vector<LiveChart::Picture> &charts)
{
    QRegion area;
    for (const LiveChart::Picture &chart : charts) {
        if (!chart.isOver)
            area += chart.box;
    }
    return area;
}

/// With nothing where it is black.
QImage withoutBlack(const QImage &picture)
{
    QImage lit = picture.convertToFormat(Raster::format);
    for (int y = 0; y < lit.height(); ++y) {
        auto *const row = reinterpret_cast<QRgb *>(lit.scanLine(y));
        std::replace(row, row + lit.width(), qRgb(0, 0, 0), QRgb{0});
    }
    return lit;
}

void drawChart(QPainter &painter, const LiveChart::Picture &chart, const QRect &part)
{
    const QRect seen = part & chart.box;
    if (seen.isEmpty())
        return;
    const QRect within = seen.translated(-chart.box.topLeft());
    painter.setCompositionMode(chart.isOver ? QPainter::CompositionMode_SourceOver : QPainter::CompositionMode_Source);
    if (chart.isOver)
        painter.drawImage(seen.topLeft(), withoutBlack(chart.image.copy(within)));
    else
        painter.drawImage(seen.topLeft(), chart.image, within);
}
} // namespace

ShownOutput::ShownOutput(const ComposedOutput &composed, const LiveChart &chart) : m_composed(composed), m_chart(chart)
{
    connect(&chart, &LiveChart::changed, this, [this] {
        const bool hadChart = !m_withChart.picture.isNull();
        layChart();
        if (hadChart || !m_withChart.picture.isNull())
            emit changed();
    });
    connect(&chart, &LiveChart::moved, this, &ShownOutput::drawFrame);
}

void ShownOutput::takeComposed()
{
    const std::optional<QRegion> change = m_composed.changes.since(m_drawnFrom);
    const bool isMended =
        change && !m_withChart.picture.isNull() && m_withChart.picture.size() == m_composed.picture.size();
    m_drawnFrom = m_composed.picture.cacheKey();
    if (isMended)
        return drawFrame(*change - areaOf(m_chart.pictures()));
    layChart();
    emit changed();
}

/// Begins anew; also where there is no chart any more, or no output.
void ShownOutput::layChart()
{
    m_withChart = {};
    if (m_chart.pictures().empty() || m_composed.picture.isNull())
        return;
    m_withChart.picture = QImage(m_composed.picture.size(), Raster::format);
    m_withChart.isOpaque = m_composed.isOpaque;
    m_drawnFrom = m_composed.picture.cacheKey();
    if (!m_withChart.picture.isNull())
        draw(m_withChart.picture.rect());
}

void ShownOutput::drawFrame(const QRegion &where)
{
    if (m_withChart.picture.isNull() || where.isEmpty())
        return;
    const qint64 before = m_withChart.picture.cacheKey();
    draw(where & m_withChart.picture.rect());
    m_withChart.changes.add(before, where & m_withChart.picture.rect());
    emit changed();
}

/// Pictures may overlap: the last one is seen.
void ShownOutput::draw(const QRegion &where)
{
    QPainter painter(&m_withChart.picture);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect &part : where - areaOf(m_chart.pictures()))
        painter.drawImage(part.topLeft(), m_composed.picture, part);
    for (const QRect &part : where) {
        for (const LiveChart::Picture &chart : m_chart.pictures())
            drawChart(painter, chart, part);
    }
}
