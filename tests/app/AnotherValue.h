#pragma once

#include "archive/Address.h"
#include "base/Colour.h"
#include "layer/CableRun.h"

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
    if (value.metaType() == QMetaType::fromType<std::optional<QStringList>>()) {
        const bool isTwo = value.value<std::optional<QStringList>>().value_or(QStringList()).size() == 2;
        return QVariant::fromValue(std::optional(isTwo ? QStringList{"1,1"} : QStringList{"0,1", "1,1"}));
    }
    if (value.metaType() == QMetaType::fromType<Address>())
        return QVariant::fromValue(
            Address::fromLocalFile("/show/" + QString::number(value.value<Address>().relative.size()) + ".png"));
    if (value.metaType() == QMetaType::fromType<CableRuns>()) {
        const WallRuns runs = value.value<CableRuns>().list();
        return QVariant::fromValue(CableRuns({{{"A", std::ssize(runs) + 1}, 2, {{1, 0}, {0, 2}}}, {{"B", 4}, 1, {}}}));
    }
    if (value.typeId() == QMetaType::QString)
        return value.toString() + "!";
    if (value.typeId() == QMetaType::QSizeF)
        return QSizeF(4, value.toSizeF().height() + 3);
    return value.typeId() == QMetaType::Bool ? QVariant(!value.toBool()) : QVariant(value.toLongLong() + 3);
}
