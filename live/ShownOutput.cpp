#include "live/ShownOutput.h"

#include "drawing/Raster.h"

#include <QPainter>

#include <optional>

namespace {
QRegion areaOf(const std::vector<LiveChart::Picture> &charts)
{
    QRegion area;
    for (const LiveChart::Picture &chart : charts)
        area += chart.box;
    return area;
}

/// What of a picture at a place lies within `part`.
void drawPart(QPainter &painter, const QImage &picture, const QPoint &place, const QRect &part)
{
    const QRect seen = part & picture.rect().translated(place);
    if (!seen.isEmpty())
        painter.drawImage(seen.topLeft(), picture, seen.translated(-place));
}
} // namespace

ShownOutput::ShownOutput(const ComposedOutput &composed, const LiveChart &chart) : m_composed(composed), m_chart(chart)
{
    connect(&chart, &LiveChart::changed, this, &ShownOutput::layChart);
    connect(&chart, &LiveChart::moved, this, &ShownOutput::drawFrame);
}

void ShownOutput::takeComposed()
{
    if (m_withChart.picture.isNull()) {
        emit changed();
        return;
    }
    const std::optional<QRegion> change = m_composed.changes.since(m_drawnFrom);
    if (!change || m_withChart.picture.size() != m_composed.picture.size())
        return layChart();
    m_drawnFrom = m_composed.picture.cacheKey();
    drawFrame(*change - areaOf(m_chart.pictures()));
}

/// Begins anew; also where there is no chart any more.
void ShownOutput::layChart()
{
    const bool hadChart = !m_withChart.picture.isNull();
    m_withChart = {};
    if (!m_chart.pictures().empty() && !m_composed.picture.isNull()) {
        m_withChart.picture = QImage(m_composed.picture.size(), Raster::format);
        m_drawnFrom = m_composed.picture.cacheKey();
        m_withChart.isOpaque = m_composed.isOpaque;
        if (!m_withChart.picture.isNull())
            draw(m_withChart.picture.rect());
    }
    if (hadChart || !m_withChart.picture.isNull())
        emit changed();
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

/// Walls may overlap: the last one is seen.
void ShownOutput::draw(const QRegion &where)
{
    QPainter painter(&m_withChart.picture);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect &part : where - areaOf(m_chart.pictures()))
        drawPart(painter, m_composed.picture, {}, part);
    for (const QRect &part : where) {
        for (const LiveChart::Picture &chart : m_chart.pictures())
            drawPart(painter, chart.image, chart.box.topLeft(), part);
    }
}
