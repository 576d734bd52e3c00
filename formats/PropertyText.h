#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QJsonValue>
#include <QMetaType>
#include <QString>
#include <QVariant>

/// A layer's property as JSON, by the type that the layer declares for it.
namespace PropertyText {

/// The value as it stands in a text, `indent` before each line but the first one.
QByteArray text(const QVariant &value, const QByteArray &indent);

/// Null for nil. An address with a scheme that stands alone is a text; one with bases, or without a scheme, is the list
/// of its parts, nearest first, so that nothing of it is lost.
QJsonValue encode(const QVariant &value);

/// The value as a property of `type`. A text without a scheme is a path, a relative one in `folder`, and comes back
/// as a "file:" address.
/// `newer` is the value as it stands in a text of a greater format, which keeps unknown names of cables.
/// Error: a value of another kind, or outside the range of the type.
[[nodiscard]] Result<QVariant> decode(const QJsonValue &value, QMetaType type, const QString &folder,
                                      QByteArrayView newer = {});

/// A whole number from `lowest` to `highest`, exact in all 64 bits.
[[nodiscard]] Result<qint64> decodeInteger(const QJsonValue &value, qint64 lowest, qint64 highest);

} // namespace PropertyText
