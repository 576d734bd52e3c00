#include "layer/PowerCalculator.h"

#include "base/DecimalText.h"
#include "layer/LayerHost.h"
#include "layer/Power.h"
#include "layer/Supply.h"

namespace PowerCalculator {

void chooseSupply(LayerHost &host)
{
    if (host.voltageCalc() == 0)
        host.setVoltageCalc(Supply().volts);
    if (host.phaseCalc() == 0)
        host.setPhaseCalc(Supply().phases);
}

qint32 watts(const Layer &layer)
{
    return Power::watts(layer.col(), layer.row(), layer.powerOnCell());
}

qint32 watts(const std::vector<LayerPointer> &layers)
{
    quint32 total = 0;
    for (const LayerPointer &layer : layers)
        total += quint32(watts(*layer));
    return static_cast<qint32>(total);
}

void renderCurrents(const std::vector<LayerPointer> &layers)
{
    for (const LayerPointer &layer : layers) {
        if (layer->showCurrent())
            layer->drawInRect();
    }
}

qint64 divisor(qint64 volts, qint64 phases)
{
    return Power::divisor(volts, phases);
}

float amperes(qint32 watts, qint64 divisor)
{
    return Power::amperes(watts, divisor);
}

QString resultText(float amperes)
{
    return "Total Power: " + DecimalText::of(amperes) + "Amp";
}

} // namespace PowerCalculator
