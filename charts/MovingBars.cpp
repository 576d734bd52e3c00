#include "charts/ChartPainter.h"
#include "charts/FrameCount.h"
#include "charts/Painters.h"

namespace {
/// The different values of panels, ascending.
template <typename ValueOf>
std::vector<int> valuesOf(const std::vector<ChartPanel> &panels, ValueOf valueOf)
{
    std::vector<int> values;
    values.reserve(panels.size());
    for (const ChartPanel &panel : panels)
        values.push_back(valueOf(panel.box));
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
    return values;
}

/// The panels that are lit: a column after the other from the left, then a row after the other from the top. A column
/// is what has one left edge.
std::vector<QRect> litBar(const ChartShape &shape, qint64 frame)
{
    const std::vector<int> lefts = valuesOf(shape.panels, [](const QRect &box) { return box.left(); });
    const std::vector<int> tops = valuesOf(shape.panels, [](const QRect &box) { return box.top(); });
    std::vector<QRect> lit;
    if (lefts.empty())
        return lit;
    const auto step = static_cast<std::size_t>(
        FrameCount::within(FrameCount::step(frame, FrameCount::hold(shape)), std::ssize(lefts) + std::ssize(tops)));
    for (const ChartPanel &panel : shape.panels) {
        const bool isLit =
            step < lefts.size() ? panel.box.left() == lefts[step] : panel.box.top() == tops[step - lefts.size()];
        if (isLit)
            lit.push_back(panel.box);
    }
    return lit;
}
} // namespace

void Painters::movingBars(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    painter.fill(painter.whole(), painter.levels().black());
    for (const QRect &box : litBar(shape, frame))
        painter.fill(box, painter.levels().white());
}

QRegion Painters::movingBarsMoved(const Shape &shape, qint64 from, qint64 to)
{
    const qint64 hold = FrameCount::hold(shape);
    if (FrameCount::step(from, hold) == FrameCount::step(to, hold))
        return {};
    return regionOf(litBar(shape, from)) + regionOf(litBar(shape, to));
}
