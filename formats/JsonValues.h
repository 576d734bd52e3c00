#pragma once

#include "base/Result.h"

#include <QJsonValue>
#include <QString>

/// Words and texts for JSON values.
namespace JsonValues {

/// What a value is, for messages: "nothing", "null", "true or false", "a number", "a text", "a list", "an object".
QString kind(const QJsonValue &value);

/// The text, cut after 40 letters, for messages about what was found.
QString excerpt(const QString &text);

/// "expected a colour such as "#ff0000", found a number"
[[nodiscard]] tl::unexpected<Error> failExpecting(const QString &expected, const QJsonValue &found);

/// The value as JSON on one line: escaped, numbers in the fewest digits that give the same number again.
QByteArray text(const QJsonValue &value);

} // namespace JsonValues
