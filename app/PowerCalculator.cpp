#include "app/PowerCalculator.h"

namespace PowerCalculator {

qint32 watts(const Layer &layer)
{
    // Unsigned, since only unsigned numbers may wrap.
    return static_cast<qint32>(quint32(layer.col()) * quint32(layer.row()) * quint32(layer.powerOnCell()));
}

qint32 watts(const std::vector<LayerPointer> &layers)
{
    quint32 total = 0;
    for (const LayerPointer &layer : layers)
        total += quint32(watts(*layer));
    return static_cast<qint32>(total);
}

qint64 divisor(qint64 volts, qint64 phases)
{
    return static_cast<qint64>(quint64(volts) * quint64(phases));
}

float amperes(qint32 watts, qint64 divisor)
{
    return divisor == 0 ? 0.0F : static_cast<float>(watts) / static_cast<float>(divisor);
}

QString resultText(float amperes)
{
    return QString::asprintf("Total Power: %.2fAmp", static_cast<double>(amperes));
}

} // namespace PowerCalculator
