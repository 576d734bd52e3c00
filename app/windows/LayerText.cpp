#include "app/windows/LayerText.h"

#include "app/PowerCalculator.h"
#include "app/windows/NumberText.h"
#include "layer/AmpereText.h"
#include "layer/PixelBox.h"
#include "screen/HiddenPanels.h"
#include "screen/LWScreen.h"
#include "screen/LostWall.h"
#include "screen/PortSplit.h"
#include "still/LWStill.h"

#include <initializer_list>
#include <limits>

namespace {
/// The layers of one kind.
template <typename Kind>
std::vector<const Kind *> among(const std::vector<LayerPointer> &layers)
{
    std::vector<const Kind *> found;
    for (const LayerPointer &layer : layers) {
        if (const auto *one = qobject_cast<const Kind *>(layer.get()))
            found.push_back(one);
    }
    return found;
}

QString counted(qint64 count, const QString &noun)
{
    return NumberText::grouped(count) + ' ' + noun + (count == 1 ? "" : "s");
}

qint64 panelsOff(const LWScreen &screen)
{
    return countHiddenPanels(screen.hiddenBoxes().value_or(QStringList()), screen.col(), screen.row());
}

PanelGrid gridOf(const Layer &layer)
{
    return {layer.col(), layer.row(), layer.panelWidth(), layer.panelHeight()};
}

/// The largest number where that is smaller than the product: a file may claim any wall.
qint64 product(std::initializer_list<qint64> factors)
{
    qint64 result = 1;
    for (const qint64 factor : factors) {
        if (qMulOverflow(result, factor, &result))
            return std::numeric_limits<qint64>::max();
    }
    return result;
}

/// The largest number where that is smaller than the sum.
qint64 sum(qint64 first, qint64 second)
{
    qint64 result = 0;
    return qAddOverflow(first, second, &result) ? std::numeric_limits<qint64>::max() : result;
}

/// Nothing where the wall has no panels, or its pattern is not one of the eight.
std::optional<PortSplit> splitOf(const Layer &wall)
{
    const std::optional<FlowPattern> pattern = FlowPattern::ofCode(wall.pattern());
    return pattern ? PortSplit::of(gridOf(wall), *pattern, wall.pixelLimit()) : std::nullopt;
}

bool hangsOnOnePort(const PortSplit &split)
{
    return split.isOneRun || split.portCount() < 1;
}

/// Whether not even one row, or column, of the wall fits a port.
bool isOverLimit(const Layer &layer)
{
    const bool isWall = qobject_cast<const LWScreen *>(&layer) != nullptr;
    const std::optional<PortSplit> split = isWall ? splitOf(layer) : std::nullopt;
    return split && hangsOnOnePort(*split) && layer.pixelLimit() > 0;
}

/// Pixels of so many rows, or columns, of the wall.
qint64 pixelsOf(const Layer &layer, const FlowPattern &pattern, qint64 lines)
{
    const bool alongRows = pattern.along == FlowPattern::Along::Rows;
    return product({lines, alongRows ? layer.col() : layer.row(), layer.panelWidth(), layer.panelHeight()});
}

QString missingPicture(const Layer &layer)
{
    const auto *still = qobject_cast<const LWStill *>(&layer);
    if (!still || !still->isPictureMissing())
        return {};
    const QString path = still->ImageURL().toLocalFile();
    return QString("The picture %1 is missing or cannot be read; choose it again.")
        .arg(path.isEmpty() ? still->ImageURL().relative : path);
}

QString tooLargeToDraw(const Layer &layer)
{
    const QSize size(layer.screenSizeWidth(), layer.screenSizeHeight());
    const bool isWall = qobject_cast<const LWScreen *>(&layer) != nullptr;
    if (!isWall || !LostWall::isTooLarge(size.width(), size.height()))
        return {};
    return LostWall::reason(size.width(), size.height()) + '.';
}

QString outsideOutput(const Layer &layer, const QSize &output)
{
    const PixelBox place = PixelBox::of(layer);
    if (place.isEmpty() || output.isEmpty() || place.meets({{0, output.width()}, {0, output.height()}}))
        return {};
    return QString("It lies wholly outside the output of %1 px; change its left and top.")
        .arg(NumberText::size(output));
}

QString portOverLimit(const Layer &layer)
{
    if (!isOverLimit(layer))
        return {};
    const std::optional<FlowPattern> pattern = FlowPattern::ofCode(layer.pattern());
    const QString line = pattern->along == FlowPattern::Along::Rows ? "row" : "column";
    const QString pixels = NumberText::grouped(pixelsOf(layer, *pattern, 1));
    return QString("One %1 of panels has %2 px, a port carries %3; raise the pixels per port or make the %1s shorter.")
        .arg(line, pixels, NumberText::grouped(layer.pixelLimit()));
}

QString portsOf(const Layer &wall)
{
    const std::optional<PortSplit> split = splitOf(wall);
    if (!split)
        return "No data path";
    if (hangsOnOnePort(*split)) {
        const qint64 all = product({wall.col(), wall.row(), wall.panelWidth(), wall.panelHeight()});
        return counted(1, "port") + ", " + NumberText::grouped(all) + " px" +
               (isOverLimit(wall) ? ", more than one port carries" : "");
    }
    const auto pixels = [&wall, pattern = *FlowPattern::ofCode(wall.pattern())](qint64 lines) {
        return NumberText::grouped(pixelsOf(wall, pattern, lines)) + " px";
    };
    const QString ports = counted(split->portCount(), "port") + ", ";
    if (split->portCount() == 1)
        return ports + pixels(split->port(0).lines);
    const QString each = ports + pixels(split->linesPerPort) + " each";
    return split->remainderLines == 0 ? each : each + ", last " + pixels(split->remainderLines);
}

QString portsOfAll(const std::vector<const LWScreen *> &walls)
{
    qint64 ports = 0;
    qint64 overloaded = 0;
    for (const LWScreen *wall : walls) {
        const std::optional<PortSplit> split = splitOf(*wall);
        if (!split)
            continue;
        ports = sum(ports, hangsOnOnePort(*split) ? 1 : split->portCount());
        overloaded += isOverLimit(*wall) ? 1 : 0;
    }
    const QString text = ports == 0 ? QString("No data path") : counted(ports, "port");
    return overloaded == 0 ? text : text + ", " + NumberText::grouped(overloaded) + " over the limit";
}

QString pictureOf(const LWStill &still)
{
    const QSize size = still.thumbnail().size();
    if (size.isEmpty())
        return "The picture is missing. Choose it again.";
    const double scale = 100.0 * still.panelWidth() / size.width();
    return QString("%1 px, shown at %2 %").arg(NumberText::size(size)).arg(qRound(scale));
}
} // namespace

namespace LayerText {

QString wall(const std::vector<LayerPointer> &layers)
{
    const std::vector<const LWScreen *> walls = among<LWScreen>(layers);
    if (walls.empty())
        return {};
    qint64 panels = 0;
    qint64 off = 0;
    for (const LWScreen *each : walls) {
        panels = sum(panels, product({each->col(), each->row()}));
        off += panelsOff(*each);
    }
    const LWScreen &first = *walls.front();
    const QString text = walls.size() > 1
                             ? counted(std::ssize(walls), "wall") + ", " + counted(panels, "panel")
                             : QString("%1 × %2 panels, %3 px")
                                   .arg(NumberText::grouped(first.col()), NumberText::grouped(first.row()),
                                        NumberText::size({first.screenSizeWidth(), first.screenSizeHeight()}));
    return off == 0 ? text : text + ", " + NumberText::grouped(off) + " off";
}

QString ports(const std::vector<LayerPointer> &layers)
{
    const std::vector<const LWScreen *> walls = among<LWScreen>(layers);
    if (walls.empty())
        return {};
    return walls.size() == 1 ? portsOf(*walls.front()) : portsOfAll(walls);
}

bool hasPortOverLimit(const std::vector<LayerPointer> &layers)
{
    return std::any_of(layers.begin(), layers.end(), [](const LayerPointer &layer) { return isOverLimit(*layer); });
}

QString panelAt(const std::vector<LayerPointer> &layers, const QPoint &pixel)
{
    for (const LayerPointer &layer : layers) {
        if (!layer->visible() || !PixelBox::of(*layer).contains(pixel))
            continue;
        const auto *screen = qobject_cast<const LWScreen *>(layer.get());
        const std::optional<LWScreen::Panel> panel = screen ? screen->panelAt(pixel.x(), pixel.y()) : std::nullopt;
        return panel ? QString(screen->label() + ' ' + screen->panelLabel(*panel)).trimmed() : QString();
    }
    return {};
}

QString power(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases)
{
    const float amperes =
        PowerCalculator::amperes(PowerCalculator::watts(layers), PowerCalculator::divisor(volts, phases));
    return QString("%1 A at %2 V, %3").arg(AmpereText::of(amperes), QString::number(volts), counted(phases, "phase"));
}

QString picture(const std::vector<LayerPointer> &layers)
{
    const std::vector<const LWStill *> stills = among<LWStill>(layers);
    if (stills.empty())
        return {};
    return stills.size() == 1 ? pictureOf(*stills.front()) : counted(std::ssize(stills), "picture");
}

QStringList warnings(const Layer &layer, const QSize &output)
{
    QStringList all{missingPicture(layer), tooLargeToDraw(layer), outsideOutput(layer, output), portOverLimit(layer)};
    all.removeAll(QString());
    return all;
}

} // namespace LayerText
