#pragma once

#include "base/Result.h"
#include "layer/CableRun.h"

#include <QByteArray>
#include <QJsonValue>

/// Cables of a wall as JSON: a list of objects with `processor`, `port`, `piece` and `cells`, one on a line.
namespace CableRunText {

/// `indent` stands before each line but the first one.
QByteArray encode(const CableRuns &runs, const QByteArray &indent);
/// Null is none. `newer` is the value as it stands in a text of a greater format, which keeps unknown names.
/// Error: a value of another kind, a name that is missing or, without `newer`, unknown, a port or a piece below 1, a
/// text that is no panel; the message names the run.
[[nodiscard]] Result<CableRuns> decode(const QJsonValue &value, QByteArrayView newer = {});

} // namespace CableRunText
