#include "facts/Load.h"

#include "base/Counted.h"
#include "layer/PowerCalculator.h"

namespace {
/// The watts of a layer, or the largest number there is where they are more.
qint64 limitedWatts(const Layer &layer)
{
    qint64 watts = 0;
    const bool isBeyond = qMulOverflow(qint64{layer.col()} * layer.row(), qint64{layer.powerOnCell()}, &watts);
    return Counted::limited(isBeyond ? std::nullopt : std::optional(watts));
}
} // namespace

Load Load::of(const Layer &layer)
{
    const qint32 watts = PowerCalculator::watts(layer);
    return {watts, limitedWatts(layer) == watts};
}

Load Load::of(const std::vector<LayerPointer> &layers)
{
    qint64 counted = 0;
    for (const LayerPointer &layer : layers)
        Counted::add(counted, limitedWatts(*layer));
    const qint32 watts = PowerCalculator::watts(layers);
    return {watts, counted == watts};
}

float Load::amperes(qint64 volts, qint64 phases) const
{
    return PowerCalculator::amperes(watts, PowerCalculator::divisor(volts, phases));
}
