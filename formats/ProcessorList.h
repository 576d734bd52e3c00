#pragma once

#include "archive/ArchiveObject.h"
#include "base/Result.h"
#include "wiring/PortCapacity.h"

#include <QByteArray>
#include <QJsonValue>
#include <QStringList>

#include <vector>

/// The processors of a show in its files: in archives a list of objects of a class of their own, in texts a list of
/// objects, with the same names.
namespace ProcessorList {

using Processors = std::vector<ProcessorSettings>;

inline constexpr char className[] = "LWProcessor";
QStringList keys();

/// Error: there are more than a file holds.
[[nodiscard]] Result<void> checkCount(qint64 count);

/// nil where there are none.
ArchiveValue toArchive(const Processors &processors);
/// Error: a value of another kind or out of range; the message names the processor.
[[nodiscard]] Result<Processors> ofArchive(const ArchiveValue &value);

/// One on a line, two blanks before each.
QByteArray toText(const Processors &processors);
/// `newer` is the value as it stands in a text of a greater format, which keeps unknown names.
/// Error: as of an archive, and without `newer` a name that is unknown.
[[nodiscard]] Result<Processors> ofText(const QJsonValue &value, QByteArrayView newer = {});

} // namespace ProcessorList
