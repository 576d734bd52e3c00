#include "live/LiveChart.h"

#include "drawing/Raster.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr double leastRate = 1;
constexpr double mostRate = 1000;

/// In pixels of a place.
ChartShape shapeOf(const LiveChart::Place &place, const LiveChart::Style &style)
{
    ChartShape shape;
    shape.size = place.box.size();
    shape.range = style.range;
    shape.rate = style.rate;
    shape.options = style.options;
    const QPoint origin = place.box.topLeft();
    for (ChartPanel panel : place.panels) {
        panel.box.translate(-origin);
        shape.panels.push_back(panel);
    }
    for (const QRect &wall : place.walls)
        shape.walls.push_back(wall.translated(-origin));
    return shape;
}
} // namespace

LiveChart::LiveChart(Clock clock, QObject *parent) : QObject(parent), m_clock(std::move(clock))
{
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &LiveChart::tick);
}

void LiveChart::show(const Chart &chart, const Style &style, const std::vector<Place> &places)
{
    m_chart = &chart;
    m_style = style;
    m_style.rate = std::clamp(style.rate, leastRate, mostRate);
    m_begin = m_beginOfRate = m_clock();
    m_frame = m_late = 0;
    startTimer();
    m_places = places;
    drawPlaces();
}

void LiveChart::startTimer()
{
    if (m_chart->moves())
        m_timer.start(static_cast<int>(std::floor(1000 / m_style.rate)));
    else
        m_timer.stop();
}

void LiveChart::setRate(double rate)
{
    const double taken = std::clamp(rate, leastRate, mostRate);
    if (!m_chart || taken == m_style.rate)
        return;
    constexpr int secondsOfDay = 24 * 60 * 60;
    const auto gone = static_cast<qint64>(std::floor(static_cast<double>(m_frame) / m_style.rate));
    m_style.options.start = static_cast<int>((m_style.options.start + gone) % secondsOfDay);
    m_style.rate = taken;
    m_beginOfRate = m_clock();
    m_frame = 0;
    startTimer();
    drawPlaces();
}

void LiveChart::setPlaces(const std::vector<Place> &places)
{
    if (!m_chart || m_places == places)
        return;
    m_places = places;
    drawPlaces();
}

void LiveChart::drawPlaces()
{
    m_shapes.clear();
    m_pictures.clear();
    for (const Place &place : m_places) {
        if (!Raster::canHold(place.box.width(), place.box.height()))
            continue;
        ChartShape shape = shapeOf(place, m_style);
        QImage image = m_chart->picture(shape, m_frame);
        if (image.isNull())
            continue;
        m_shapes.push_back(std::move(shape));
        m_pictures.push_back({place.box, std::move(image), m_style.isOver});
    }
    emit changed();
}

void LiveChart::end()
{
    if (!std::exchange(m_chart, nullptr))
        return;
    m_timer.stop();
    m_shapes.clear();
    m_pictures.clear();
    emit changed();
}

void LiveChart::tick()
{
    if (!m_chart || !m_chart->moves())
        return;
    const qint64 gone = m_clock() - m_begin;
    if (m_chart->flashes && gone >= longestFlash)
        return end();
    const double seconds = static_cast<double>(m_clock() - m_beginOfRate) / 1e9;
    const auto due = static_cast<qint64>(std::floor(seconds * m_style.rate));
    if (due <= m_frame)
        return;
    QRegion region;
    for (std::size_t i = 0; i < m_pictures.size(); ++i) {
        const QRegion parts = m_chart->moved(m_shapes[i], m_frame, due);
        m_chart->draw(m_shapes[i], due, m_pictures[i].image, parts);
        region += parts.translated(m_pictures[i].box.topLeft());
    }
    m_late += due - m_frame - 1;
    m_frame = due;
    emit moved(region);
}
