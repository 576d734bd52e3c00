#include "show/ShowProcessors.h"

#include "wiring/PortBounds.h"
#include "wiring/PortEdits.h"

namespace {
CableRuns runsOf(const Layer &layer)
{
    return layer.record()->runs;
}

PortEdits::ShowRuns allRuns(const ShowProcessors::Layers &layers)
{
    PortEdits::ShowRuns runs;
    for (const LayerPointer &layer : layers)
        runs.push_back(runsOf(*layer).list());
    return runs;
}

/// "A" for 0, "Z" for 25, "AA" for 26.
QString nameOf(int number)
{
    const QString last(QChar(u'A' + number % 26));
    return number < 26 ? last : nameOf(number / 26 - 1) + last;
}

bool followLimit(Layer &wall, const ProcessorSettings &processor, const QSize &output)
{
    const auto bounds = PortBounds::of(processor, output.height());
    if (!bounds)
        return false;
    const qint64 limit = bounds->pixelLimit(qint64{wall.panelWidth()} * wall.panelHeight());
    const bool isOther = wall.pixelLimit() != limit;
    if (isOther) {
        wall.setPixelLimit(limit);
        wall.drawInRect();
    }
    return isOther;
}
} // namespace

namespace ShowProcessors {

const ProcessorSettings *find(const Processors &processors, const QString &name)
{
    const auto place = ::Processors::placeOf(processors, name);
    return place ? &processors[*place] : nullptr;
}

QString freeName(const Processors &processors)
{
    int number = 0;
    while (find(processors, nameOf(number)))
        ++number;
    return nameOf(number);
}

QString of(const Layer &wall)
{
    return wall.record()->processor.value_or(QString());
}

bool spansOutput(const Layer &layer, const QSize &output)
{
    return layer.xpoint() <= 0 && layer.ypoint() <= 0 &&
           qint64{layer.xpoint()} + layer.screenSizeWidth() >= output.width() &&
           qint64{layer.ypoint()} + layer.screenSizeHeight() >= output.height();
}

void feed(Layer &layer, const QString &processor, const QSize &output)
{
    if (layer.kind() == LayerKind::Wall && of(layer).isEmpty() && !spansOutput(layer, output))
        layer.setValue("processor", processor);
}

void rename(const Layers &layers, const QString &processor, const QString &name)
{
    const PortEdits::ShowRuns runs = PortEdits::rename(allRuns(layers), processor, name);
    for (std::size_t i = 0; i < layers.size(); ++i) {
        if (of(*layers[i]) == processor)
            layers[i]->setValue("processor", name);
        if (runs[i] != runsOf(*layers[i]).list())
            layers[i]->setValue("runs", QVariant::fromValue(CableRuns(runs[i])));
    }
}

bool followLimits(const Layers &layers, const Processors &processors, const QSize &output)
{
    bool isAnyOther = false;
    for (const LayerPointer &layer : layers) {
        const LayerRecordPointer record = layer->record();
        const ProcessorSettings *const processor = record->limitFromProcessor ? find(processors, of(*layer)) : nullptr;
        isAnyOther |= processor && followLimit(*layer, *processor, output);
    }
    return isAnyOther;
}

void takeFreePorts(const Layers &copies, const FreePorts &free)
{
    const PortEdits::ShowRuns runs = PortEdits::onFreePorts(allRuns(copies), free);
    for (std::size_t i = 0; i < copies.size(); ++i)
        copies[i]->setValue("runs", QVariant::fromValue(CableRuns(runs[i])));
}

void leaveShow(Layer &wall)
{
    for (const char *name : {"processor", "goesOn", "limitFromProcessor", "runs"})
        wall.setValue(name, {});
}

} // namespace ShowProcessors
