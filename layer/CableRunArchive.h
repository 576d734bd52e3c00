#pragma once

#include "archive/ArchiveObject.h"
#include "layer/CableRun.h"

/// Cables as values of an archive: a list of objects, each with the keys `processor`, `port`, `piece` and `cells`,
/// which are the keys of panels in the order of the cable.
namespace CableRunArchive {

/// The class of such an object.
inline constexpr char className[] = "LWCableRun";
QStringList keys();

/// nil where there are none.
ArchiveValue encode(const CableRuns &runs);
/// `subject` is how the caller calls the value. Error: a value of another kind, a port or a piece below 1, a text that
/// is no key of a panel; the message names the run.
[[nodiscard]] Result<CableRuns> decode(const ArchiveValue &value, const QString &subject);

} // namespace CableRunArchive
