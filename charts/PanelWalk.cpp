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
    const QRgb white = painter.levels().white();
    const QRgb black = painter.levels().black();
    std::vector<QRect> rows; // of panels beside each other they are one, and long
    if (walker != Walker::Row)
        painter.fill(painter.whole(), black);
    for (const ChartPanel &panel : shape.panels) {
        if (panel.box.isEmpty())
            continue;
        if (walker == Walker::Row)
            rows.push_back(place.in(panel.box));
        else
            painter.fill(place.in(panel.box), white);
    }
    if (walker == Walker::Row)
        painter.fillApart(regionOf(std::move(rows)), white, black);
}

/// Whether two places touch side to side, so that nothing else lies in the box around both.
bool areBeside(const QRect &one, const QRect &other)
{
    const QRect both = one | other;
    return qint64{both.width()} * both.height() ==
           qint64{one.width()} * one.height() + qint64{other.width()} * other.height();
}

/// Adds a box to those before it. Pixels of the same rows become one strip: that is drawn, and shown, faster than
/// thousands of them.
void addTo(std::vector<QRect> &boxes, const QRect &box, Walker walker)
{
    const bool isInStrip = walker == Walker::Pixel && !boxes.empty() && boxes.back().top() == box.top() &&
                           boxes.back().bottom() == box.bottom();
    if (!isInStrip)
        return boxes.push_back(box);
    QRect &strip = boxes.back();
    strip.setLeft(std::min(strip.left(), box.left()));
    strip.setRight(std::max(strip.right(), box.right()));
}

/// From one place in each panel to another: where that is left and entered, in one box where it is a single step.
QRegion movedOfWalk(const ChartShape &shape, Walker walker, qint64 from, qint64 to)
{
    QSize size;
    QRect left;
    QRect entered;
    std::vector<QRect> boxes;
    std::vector<QRect> others;
    for (const ChartPanel &panel : shape.panels) {
        if (panel.box.isEmpty())
            continue;
        if (panel.box.size() != size) { // most are of one
            size = panel.box.size();
            left = placeInPanel(shape, walker, size, from);
            entered = placeInPanel(shape, walker, size, to);
            if (left == entered) {
                left = entered = {};
            } else if (areBeside(left, entered)) {
                left |= entered;
                entered = {};
            }
        }
        if (left.width() > 0)
            addTo(boxes, left.translated(panel.box.topLeft()), walker);
        if (entered.width() > 0)
            addTo(others, entered.translated(panel.box.topLeft()), walker);
    }
    return others.empty() ? regionOf(std::move(boxes)) : regionOf(std::move(boxes)) + regionOf(std::move(others));
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
