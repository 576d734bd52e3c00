#pragma once

#include "wiring/PortCapacity.h"

#include <QMetaType>
#include <QVariant>

#include <span>

/// One value of a show's processor, by its name in files.
struct ProcessorField
{
    const char *name;
    QMetaType type; ///< QString, int, qint64, double or bool
    QVariant (*get)(const ProcessorSettings &settings);
    /// Of a value of `type`. Returns false, and changes nothing, where it is none of the `expected`.
    bool (*set)(ProcessorSettings &settings, const QVariant &value);
    const char *expected;        ///< "1 to 16 bit"
    bool isAlwaysWritten = true; ///< else only where it differs from that of new settings

    bool isWritten(const ProcessorSettings &settings) const;
};

/// All of them, in the order in which files hold them.
std::span<const ProcessorField> processorFields();
