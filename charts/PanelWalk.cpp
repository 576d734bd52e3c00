#include "charts/ChartPainter.h"
#include "charts/FrameCount.h"
#include "charts/Painters.h"

namespace {
/// What runs through every panel at once.
enum class Walker
{
    Pixel,
    Row,
    Column
};

/// Where it is in a panel of this size. Small panels are walked more slowly, so that none flashes.
QRect placeInPanel(const ChartShape &shape, Walker walker, const QSize &panel, qint64 frame)
{
    const qint64 width = panel.width();
    const qint64 height = panel.height();
    const qint64 count = walker == Walker::Pixel ? width * height : walker == Walker::Row ? height : width;
    const qint64 leastHold = walker == Walker::Pixel ? 2 : 1;
    const qint64 hold = std::max(leastHold, (FrameCount::shortestRound(shape) + count - 1) / count);
    const auto place = static_cast<int>(FrameCount::within(FrameCount::step(frame, hold), count));
    switch (walker) {
    case Walker::Pixel:
        return {place % panel.width(), place / panel.width(), 1, 1};
    case Walker::Row:
        return {0, place, panel.width(), 1};
    case Walker::Column:
        break;
    }
    return {place, 0, 1, panel.height()};
}

/// Remembers the place in the panels before, since most are of one size.
class WalkingPlace
{
public:
    WalkingPlace(const ChartShape &shape, Walker walker, qint64 frame)
        : m_shape(shape), m_walker(walker), m_frame(frame)
    {}

    /// The lit pixels of a panel, which is not empty.
    QRect in(const QRect &panel)
    {
        if (panel.size() != m_size) {
            m_size = panel.size();
            m_place = placeInPanel(m_shape, m_walker, m_size, m_frame);
        }
        return m_place.translated(panel.topLeft());
    }

private:
    const ChartShape &m_shape;
    Walker m_walker;
    qint64 m_frame;
    QSize m_size;
    QRect m_place;
};

void drawWalk(ChartPainter &painter, const ChartShape &shape, Walker walker, qint64 frame)
{
    WalkingPlace place(shape, walker, frame);
    painter.fill(painter.whole(), painter.levels().black());
    for (const ChartPanel &panel : shape.panels) {
        if (!panel.box.isEmpty())
            painter.fill(place.in(panel.box), painter.levels().white());
    }
}

QRegion movedOfWalk(const ChartShape &shape, Walker walker, qint64 from, qint64 to)
{
    WalkingPlace before(shape, walker, from);
    WalkingPlace after(shape, walker, to);
    std::vector<QRect> boxes;
    boxes.reserve(2 * shape.panels.size());
    for (const ChartPanel &panel : shape.panels) {
        if (panel.box.isEmpty())
            continue;
        const QRect left = before.in(panel.box);
        const QRect entered = after.in(panel.box);
        if (left == entered)
            continue;
        boxes.push_back(left);
        boxes.push_back(entered);
    }
    return regionOf(std::move(boxes));
}
} // namespace

void Painters::walkPixels(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    drawWalk(painter, shape, Walker::Pixel, frame);
}

QRegion Painters::walkPixelsMoved(const Shape &shape, qint64 from, qint64 to)
{
    return movedOfWalk(shape, Walker::Pixel, from, to);
}

void Painters::walkRows(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    drawWalk(painter, shape, Walker::Row, frame);
}

QRegion Painters::walkRowsMoved(const Shape &shape, qint64 from, qint64 to)
{
    return movedOfWalk(shape, Walker::Row, from, to);
}

void Painters::walkColumns(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    drawWalk(painter, shape, Walker::Column, frame);
}

QRegion Painters::walkColumnsMoved(const Shape &shape, qint64 from, qint64 to)
{
    return movedOfWalk(shape, Walker::Column, from, to);
}
