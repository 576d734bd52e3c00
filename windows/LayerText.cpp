#include "windows/LayerText.h"

#include "base/DecimalText.h"
#include "base/NumberText.h"
#include "drawing/TextLine.h"
#include "facts/LayerChecks.h"
#include "facts/LayerFigures.h"
#include "facts/Load.h"
#include "facts/ShowChecks.h"
#include "facts/WallPorts.h"
#include "facts/WallSize.h"
#include "layer/PixelBox.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

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

QString pixels(std::optional<qint64> count)
{
    return NumberText::grouped(Counted::limited(count)) + " px";
}

QString portsOf(const Layer &wall)
{
    const WallPorts ports = WallPorts::of(wall);
    if (ports.groups.empty())
        return "No data path";
    const QString text = counted(ports.count(), "port") + ", " + pixels(ports.groups.front().pixels);
    if (ports.count() == 1)
        return ports.isOverLimit ? text + ", more than one port carries" : text;
    const bool isLastFull = ports.groups.size() == 1;
    return isLastFull ? text + " each" : text + " each, last " + pixels(ports.groups.back().pixels);
}

QString portsOfAll(const LayerFigures &figures)
{
    const QString text = figures.ports == 0 ? QString("No data path") : counted(figures.ports, "port");
    return figures.portsOverLimit == 0 ? text
                                       : text + ", " + NumberText::grouped(figures.portsOverLimit) + " over the limit";
}

QString chartOf(const Result<ChartText> &chosen)
{
    if (!chosen)
        return QString("Nothing is drawn: %1.").arg(chosen.error().text);
    return chosen->chart->moves() ? "The first frame of a chart, pixel for pixel" : "A chart, pixel for pixel";
}

QString pictureOf(const LWStill &still)
{
    if (const auto chart = still.chart())
        return chartOf(*chart);
    const QSize size = still.thumbnail().size();
    if (size.isEmpty()) {
        const std::optional<QString> obstacle = still.pictureObstacle();
        return obstacle ? "The picture " + *obstacle + '.' : "The picture is missing. Choose it again.";
    }
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
    const WallSize size = WallSize::of(first);
    const QString text = walls.size() > 1 ? counted(figures.walls, "wall") + ", " + counted(figures.panels, "panel")
                                          : QString("%1 × %2 panels, %3 px")
                                                .arg(NumberText::grouped(first.col()), NumberText::grouped(first.row()),
                                                     NumberText::size(size.width, size.height));
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
        const std::optional<Cell> panel = screen ? screen->panelAt(pixel.x(), pixel.y()) : std::nullopt;
        return panel ? QString(TextLine::shown(screen->label()) + ' ' + screen->panelLabel(*panel)).trimmed()
                     : QString();
    }
    return {};
}

QString amperes(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases)
{
    return DecimalText::of(Load::of(layers).amperes(volts, phases)) + " A";
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
    const Load load = Load::of(layers);
    return load.isCounted ? text + ", " + DecimalText::of(load.watts / 1000.0) + " kW" : text;
}

bool isPowerCounted(const std::vector<LayerPointer> &layers)
{
    return Load::of(layers).isCounted;
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
    QStringList all;
    for (const Finding &finding : LayerChecks::whileEditing(layer, output)) {
        if (!ShowChecks::isMeant(layer, finding.check))
            all.append(finding.sentence);
    }
    return all;
}

} // namespace LayerText
