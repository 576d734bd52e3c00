#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QString>

/// Looks through JSON that people write by hand before it is parsed: says where it is wrong and what stands there, and
/// finds names that stand twice, of which the parser would take the last in silence.
namespace JsonCheck {

/// "line 3, column 12": of a byte; both begin at 1, a column is a letter.
QString place(const QByteArray &json, qsizetype offset);

/// Error: brackets, commas, names and quotes that make no JSON, or a name that an object has twice. Numbers, escapes
/// and letters are left to the parser.
[[nodiscard]] Result<void> check(const QByteArray &json);

} // namespace JsonCheck
