#include "charts/ChartPainter.h"
#include "charts/Painters.h"

namespace {
double levelOf(const ChartShape &shape, int otherwise)
{
    return std::clamp(shape.options.level.value_or(otherwise), 0, 100) / 100.0;
}

QRgb fieldColour(const ChartLevels &levels, FieldColour colour, double level)
{
    switch (colour) {
    case FieldColour::White:
        return levels.grey(level);
    case FieldColour::Red:
        return levels.colour(level, 0, 0);
    case FieldColour::Green:
        return levels.colour(0, level, 0);
    case FieldColour::Blue:
        return levels.colour(0, 0, level);
    case FieldColour::Cyan:
        return levels.colour(0, level, level);
    case FieldColour::Magenta:
        return levels.colour(level, 0, level);
    case FieldColour::Yellow:
        return levels.colour(level, level, 0);
    case FieldColour::Black:
        break;
    }
    return levels.black();
}
} // namespace

void Painters::field(ChartPainter &painter, const Shape &shape, qint64 /*frame*/)
{
    painter.fill(painter.whole(), fieldColour(painter.levels(), shape.options.colour, levelOf(shape, 100)));
}

void Painters::uniformity(ChartPainter &painter, const Shape &shape, qint64 /*frame*/)
{
    painter.fill(painter.whole(), painter.levels().grey(levelOf(shape, 50)));
}
