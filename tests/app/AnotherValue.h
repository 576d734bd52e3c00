#pragma once

#include "archive/Address.h"
#include "base/Colour.h"

#include <QSizeF>
#include <QStringList>
#include <QVariant>

#include <optional>

/// Another value of the same type than `value`.
inline QVariant anotherValue(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<OptionalColour>()) {
        const bool isBlue = value.value<OptionalColour>() == OptionalColour(Colour{0.25, 0.5, 0.75, 1});
        return QVariant::fromValue(OptionalColour(isBlue ? Colour{0.5, 0.75, 0.25, 1} : Colour{0.25, 0.5, 0.75, 1}));
    }
    if (value.metaType() == QMetaType::fromType<std::optional<QStringList>>())
        return QVariant::fromValue(std::optional(QStringList{"0,1", "1,1"}));
    if (value.metaType() == QMetaType::fromType<Address>())
        return QVariant::fromValue(
            Address::fromLocalFile("/show/" + QString::number(value.value<Address>().relative.size()) + ".png"));
    if (value.typeId() == QMetaType::QString)
        return value.toString() + "!";
    if (value.typeId() == QMetaType::QSizeF)
        return QSizeF(4, value.toSizeF().height() + 3);
    return value.typeId() == QMetaType::Bool ? QVariant(!value.toBool()) : QVariant(value.toLongLong() + 3);
}
