#include "output/CanvasFrame.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
/// Their reciprocals are exact in single precision or a little too large: the first device pixel of a block, scaled
/// back to the output, never falls into the block before.
constexpr std::array wholeFactors{1.0, 2.0, 3.0, 4.0, 6.0, 8.0, 12.0, 16.0, 24.0, CanvasFrame::greatestZoom};
constexpr double stepBelowFullSize = 1.25;
constexpr double leastUsefulZoom = 1.0 / 16;

double nearestWholeFactor(double zoom)
{
    return *std::min_element(wholeFactors.begin(), wholeFactors.end(),
                             [zoom](double a, double b) { return std::abs(a - zoom) < std::abs(b - zoom); });
}

/// Where a side of `length` begins that is to stay in sight and begins at `start` now.
int keptInSight(int start, int length, int room)
{
    const int seen = std::min({length, room, CanvasFrame::leastInSight});
    return std::clamp(start, seen - length, room - seen);
}
} // namespace

void CanvasFrame::setRoom(const QSize &room, int margin)
{
    // Of the middles: halves of single steps would be lost.
    const QPoint way(room.width() / 2 - m_room.width() / 2, room.height() / 2 - m_room.height() / 2);
    m_room = room;
    m_margin = margin;
    if (m_isFitted)
        return fit();
    m_place.translate(way);
    keepInSight();
}

void CanvasFrame::setOutput(const QSize &output)
{
    m_output = output;
    if (m_isFitted)
        return fit();
    m_place.setSize(sizeAt(m_zoom));
    keepInSight();
}

void CanvasFrame::fit()
{
    m_isFitted = true;
    m_place.setSize(fittedSize());
    m_place.moveTo((m_room.width() - m_place.width()) / 2, (m_room.height() - m_place.height()) / 2);
}

void CanvasFrame::setZoom(double zoom, const QPointF &anchor)
{
    if (m_output.isEmpty() || !std::isfinite(zoom))
        return;
    const QRect before = m_place;
    takeZoom(zoom);
    if (!before.isEmpty()) {
        const QPointF part((anchor.x() - before.x()) / before.width(), (anchor.y() - before.y()) / before.height());
        m_place.moveTo(qRound(anchor.x() - part.x() * m_place.width()),
                       qRound(anchor.y() - part.y() * m_place.height()));
    }
    keepInSight();
}

void CanvasFrame::stepZoom(int steps, const QPointF &anchor)
{
    if (m_output.isEmpty())
        return;
    double wanted = zoom();
    for (int i = 0; i < std::abs(steps); ++i) {
        const double next = std::clamp(step(wanted, steps > 0), leastZoom(), greatestZoom);
        if (next == wanted)
            break;
        wanted = next;
    }
    setZoom(wanted, anchor);
}

void CanvasFrame::pan(const QPoint &way)
{
    if (m_isFitted)
        return;
    static constexpr qint64 furthest = 1 << 30; // whatever is beyond ends at the same place
    const auto moved = [](int start, int by) {
        return static_cast<int>(std::clamp(qint64{start} + by, -furthest, furthest));
    };
    m_place.moveTo(moved(m_place.x(), way.x()), moved(m_place.y(), way.y()));
    keepInSight();
}

double CanvasFrame::zoom() const
{
    if (m_place.isEmpty())
        return 0;
    // The longer side is rounded less.
    return m_output.width() >= m_output.height() ? double(m_place.width()) / m_output.width()
                                                 : double(m_place.height()) / m_output.height();
}

QSize CanvasFrame::fittedSize() const
{
    const QSize space = m_room - QSize(2 * m_margin, 2 * m_margin);
    if (m_output.isEmpty() || space.isEmpty())
        return {0, 0};
    const double scale = std::min(double(space.width()) / m_output.width(), double(space.height()) / m_output.height());
    return sizeAt(scale < 1 ? scale : std::min(std::floor(scale), greatestZoom));
}

QSize CanvasFrame::sizeAt(double zoom) const
{
    if (m_output.isEmpty())
        return {0, 0};
    // A banner that is a thousand times as wide as high still shows a line.
    return {std::max(1, qRound(m_output.width() * zoom)), std::max(1, qRound(m_output.height() * zoom))};
}

double CanvasFrame::leastZoom() const
{
    const QSize fitted = fittedSize();
    const bool isWide = m_output.width() >= m_output.height();
    const double fittedZoom =
        isWide ? double(fitted.width()) / m_output.width() : double(fitted.height()) / m_output.height();
    return fittedZoom > 0 ? std::min(fittedZoom, leastUsefulZoom) : leastUsefulZoom;
}

double CanvasFrame::step(double zoom, bool isLarger) const
{
    if (isLarger && zoom < 1)
        return std::min(zoom * stepBelowFullSize, 1.0);
    if (isLarger) {
        const auto *const next = std::upper_bound(wholeFactors.begin(), wholeFactors.end(), zoom);
        return next == wholeFactors.end() ? zoom : *next;
    }
    if (zoom <= 1)
        return zoom / stepBelowFullSize;
    return *(std::lower_bound(wholeFactors.begin(), wholeFactors.end(), zoom) - 1);
}

void CanvasFrame::takeZoom(double zoom)
{
    m_isFitted = false;
    m_zoom = zoom < 1 ? std::max(zoom, leastZoom()) : nearestWholeFactor(zoom);
    m_place.setSize(sizeAt(m_zoom));
}

void CanvasFrame::keepInSight()
{
    m_place.moveTo(keptInSight(m_place.x(), m_place.width(), m_room.width()),
                   keptInSight(m_place.y(), m_place.height(), m_room.height()));
}
