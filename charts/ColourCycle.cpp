#include "charts/ChartPainter.h"
#include "charts/FrameCount.h"
#include "charts/Painters.h"

#include <array>

namespace {
struct CycleColour
{
    const char *name;
    QRgb colour;
    QRgb text;
};

constexpr std::array cycleColours{
    CycleColour{"WHITE", qRgb(255, 255, 255), qRgb(0, 0, 0)}, CycleColour{"RED", qRgb(255, 0, 0), qRgb(255, 255, 255)},
    CycleColour{"GREEN", qRgb(0, 255, 0), qRgb(0, 0, 0)},     CycleColour{"BLUE", qRgb(0, 0, 255), qRgb(255, 255, 255)},
    CycleColour{"BLACK", qRgb(0, 0, 0), qRgb(128, 128, 128)},
};

/// Each colour lasts 60 frames, and never less than a third of a second.
std::size_t colourOf(const ChartShape &shape, qint64 frame)
{
    const qint64 hold = std::max<qint64>(60, FrameCount::shortestRound(shape));
    return static_cast<std::size_t>(FrameCount::within(FrameCount::step(frame, hold), cycleColours.size()));
}
} // namespace

void Painters::colourCycle(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    const CycleColour &colour = cycleColours[colourOf(shape, frame)];
    const QSize size = painter.whole().size();
    painter.fill(painter.whole(), colour.colour);
    painter.text({size.width() / 10, size.height() / 2 - size.height() / 20, size.width() * 4 / 5, size.height() / 10},
                 colour.name, colour.text);
}

QRegion Painters::colourCycleMoved(const Shape &shape, qint64 from, qint64 to)
{
    return colourOf(shape, from) == colourOf(shape, to) ? QRegion() : QRegion(QRect(QPoint(0, 0), shape.size));
}
