#include "windows/LayerText.h"

#include "base/DecimalText.h"
#include "base/NumberText.h"
#include "layer/PixelBox.h"
#include "layer/PowerCalculator.h"
#include "layer/WallGrid.h"
#include "screen/LWScreen.h"
#include "screen/LostWall.h"
#include "screen/PortSplit.h"
#include "still/LWStill.h"
#include "windows/inspector/LayerFigures.h"

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

/// Pixels of so many rows, or columns, of the wall.
qint64 pixelsOf(const Layer &layer, const FlowPattern &pattern, qint64 lines)
{
    const bool alongRows = pattern.along == FlowPattern::Along::Rows;
    const PanelGrid grid = panelGridOf(layer);
    return limitedProduct({lines, alongRows ? grid.columns.count() : grid.rows.count(), grid.panelPixels()});
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
    if (!isOverPortLimit(layer))
        return {};
    const std::optional<FlowPattern> pattern = FlowPattern::ofCode(layer.pattern());
    const QString line = pattern->along == FlowPattern::Along::Rows ? "row" : "column";
    const QString pixels = NumberText::grouped(pixelsOf(layer, *pattern, 1));
    return QString("One %1 of panels has %2 px, a port carries %3; raise the pixels per port or make the %1s shorter.")
        .arg(line, pixels, NumberText::grouped(layer.pixelLimit()));
}

QString portsOf(const Layer &wall)
{
    const std::optional<PortSplit> split = portSplitOf(wall);
    if (!split)
        return "No data path";
    if (hangsOnOnePort(*split)) {
        const qint64 all = panelGridOf(wall).pixels();
        return counted(1, "port") + ", " + NumberText::grouped(all) + " px" +
               (isOverPortLimit(wall) ? ", more than one port carries" : "");
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

QString portsOfAll(const LayerFigures &figures)
{
    const QString text = figures.ports == 0 ? QString("No data path") : counted(figures.ports, "port");
    return figures.portsOverLimit == 0 ? text
                                       : text + ", " + NumberText::grouped(figures.portsOverLimit) + " over the limit";
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
    const LayerFigures figures = LayerFigures::of(layers);
    const LWScreen &first = *walls.front();
    const QString text = walls.size() > 1
                             ? counted(figures.walls, "wall") + ", " + counted(figures.panels, "panel")
                             : QString("%1 × %2 panels, %3 px")
                                   .arg(NumberText::grouped(first.col()), NumberText::grouped(first.row()),
                                        NumberText::size({first.screenSizeWidth(), first.screenSizeHeight()}));
    return figures.panelsOff == 0 ? text : text + ", " + NumberText::grouped(figures.panelsOff) + " off";
}

QString ports(const std::vector<LayerPointer> &layers)
{
    const std::vector<const LWScreen *> walls = among<LWScreen>(layers);
    if (walls.empty())
        return {};
    return walls.size() == 1 ? portsOf(*walls.front()) : portsOfAll(LayerFigures::of(layers));
}

bool hasPortOverLimit(const std::vector<LayerPointer> &layers)
{
    return LayerFigures::of(layers).portsOverLimit > 0;
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

QString amperes(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases)
{
    const qint64 divisor = PowerCalculator::divisor(volts, phases);
    return DecimalText::of(PowerCalculator::amperes(PowerCalculator::watts(layers), divisor)) + " A";
}

QString at(qint64 volts, qint64 phases)
{
    return QString("at %1 V, %2").arg(QString::number(volts), counted(phases, "phase"));
}

QString power(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases)
{
    const QString text = amperes(layers, volts, phases) + ' ' + at(volts, phases);
    return isPowerCounted(layers) ? text : text + ", " + beyondCounting;
}

QString load(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases)
{
    const QString text = power(layers, volts, phases);
    return isPowerCounted(layers) ? text + ", " + DecimalText::of(PowerCalculator::watts(layers) / 1000.0) + " kW"
                                  : text;
}

bool isPowerCounted(const std::vector<LayerPointer> &layers)
{
    return LayerFigures::of(layers).isPowerCounted;
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
