#include "app/windows/LayerText.h"

#include "app/PowerCalculator.h"
#include "app/windows/NumberText.h"
#include "screen/HiddenPanels.h"
#include "screen/LWScreen.h"
#include "screen/PanelLabels.h"
#include "screen/PortSplit.h"
#include "still/LWStill.h"

#include <algorithm>

namespace {
QString counted(qint64 count, const QString &noun)
{
    return NumberText::grouped(count) + ' ' + noun + (count == 1 ? "" : "s");
}

/// Switched-off panels that the wall has; keys of others do not count.
qint64 panelsOff(const LWScreen &screen)
{
    const QStringList keys = screen.hiddenBoxes().value_or(QStringList());
    return std::count_if(keys.begin(), keys.end(), [&](const QString &key) {
        const QStringList place = key.split(',');
        bool isRow = false;
        bool isColumn = false;
        const int row = place.value(0).toInt(&isRow);
        const int column = place.value(1).toInt(&isColumn);
        return isRow && isColumn && row >= 0 && row < screen.row() && column >= 0 && column < screen.col();
    });
}

/// Pixels of so many rows, or columns, of the wall.
qint64 pixelsOf(const Layer &layer, const FlowPattern &pattern, qint64 lines)
{
    const bool alongRows = pattern.along == FlowPattern::Along::Rows;
    return lines * (alongRows ? layer.col() : layer.row()) * layer.panelWidth() * layer.panelHeight();
}
} // namespace

namespace LayerText {

QString wall(const Layer &layer)
{
    const auto *screen = qobject_cast<const LWScreen *>(&layer);
    if (!screen)
        return {};
    const qint64 off = panelsOff(*screen);
    QString text = QString("%1 × %2 panels, %3 px")
                       .arg(NumberText::grouped(layer.col()), NumberText::grouped(layer.row()),
                            NumberText::size({layer.screenSizeWidth(), layer.screenSizeHeight()}));
    return off == 0 ? text : text + ", " + NumberText::grouped(off) + " off";
}

QString ports(const Layer &layer)
{
    const std::optional<FlowPattern> pattern = FlowPattern::ofCode(layer.pattern());
    const PanelGrid grid{layer.col(), layer.row(), layer.panelWidth(), layer.panelHeight()};
    const std::optional<PortSplit> split = pattern ? PortSplit::of(grid, *pattern, layer.pixelLimit()) : std::nullopt;
    if (!split)
        return "No data path";
    if (split->isOneRun || split->portCount() < 1) {
        const qint64 all = qint64{layer.col()} * layer.row() * layer.panelWidth() * layer.panelHeight();
        const bool isTooMuch = layer.pixelLimit() > 0;
        return counted(1, "port") + ", " + NumberText::grouped(all) + " px" +
               (isTooMuch ? ", more than one port carries" : "");
    }
    const QString ports = counted(split->portCount(), "port") + ", ";
    if (split->portCount() == 1)
        return ports + NumberText::grouped(pixelsOf(layer, *pattern, split->port(0).lines)) + " px";
    const QString each = NumberText::grouped(pixelsOf(layer, *pattern, split->linesPerPort)) + " px each";
    if (split->remainderLines == 0)
        return ports + each;
    return ports + each + ", last " + NumberText::grouped(pixelsOf(layer, *pattern, split->remainderLines)) + " px";
}

QString panelAt(const std::vector<LayerPointer> &layers, const QPoint &pixel)
{
    for (const LayerPointer &layer : layers) {
        const qint64 x = qint64{pixel.x()} - layer->xpoint();
        const qint64 y = qint64{pixel.y()} - layer->ypoint();
        const bool isInside = x >= 0 && y >= 0 && x < layer->screenSizeWidth() && y < layer->screenSizeHeight();
        if (!layer->visible() || !isInside)
            continue;
        if (!qobject_cast<const LWScreen *>(layer.get()) || layer->panelWidth() <= 0 || layer->panelHeight() <= 0)
            return {};
        const int column = static_cast<int>(x / layer->panelWidth());
        const int row = static_cast<int>(y / layer->panelHeight());
        return layer->XYLabelDirection() ? PanelLabels::rowLetter(row) + QString::number(column + 1)
                                         : PanelLabels::columnLetters(column) + QString::number(row + 1);
    }
    return {};
}

QString power(const Layer &layer, qint64 volts, qint64 phases)
{
    const float amperes =
        PowerCalculator::amperes(PowerCalculator::watts(layer), PowerCalculator::divisor(volts, phases));
    return QString("%1 A at %2 V, %3").arg(amperes, 0, 'f', 2).arg(volts).arg(counted(phases, "phase"));
}

QString picture(const Layer &layer)
{
    const auto *still = qobject_cast<const LWStill *>(&layer);
    if (!still)
        return {};
    const QSize size = still->thumbnail().size();
    if (size.isEmpty())
        return "The picture is missing. Choose it again.";
    const double scale = 100.0 * layer.panelWidth() / size.width();
    return QString("%1 px, shown at %2 %").arg(NumberText::size(size)).arg(qRound(scale));
}

} // namespace LayerText
