#pragma once

#include <QtGlobal>

/// The arithmetic of a wall's power, the same for its own text, the document's total and `info`.
namespace Power {

/// Watts of `columns` x `rows` panels, wrapping in 32 bits. Unsigned inside, since only unsigned numbers may wrap.
inline qint32 watts(qint32 columns, qint32 rows, qint32 perPanel)
{
    return static_cast<qint32>(quint32(columns) * quint32(rows) * quint32(perPanel));
}

/// What the watts are divided by: volts x phases, without a square root of three, wrapping in 64 bits.
inline qint64 divisor(qint64 volts, qint64 phases)
{
    return static_cast<qint64>(quint64(volts) * quint64(phases));
}

/// The current in amperes, in single precision; 0 for a divisor of 0.
inline float amperes(qint32 watts, qint64 divisor)
{
    return divisor == 0 ? 0.0F : static_cast<float>(watts) / static_cast<float>(divisor);
}

} // namespace Power
