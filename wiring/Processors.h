#pragma once

#include "wiring/PortCapacity.h"

#include <optional>
#include <vector>

/// The processors of a show, in the order in which their ports are given away.
namespace Processors {

using List = std::vector<ProcessorSettings>;

/// The place of the first one of that name. Nullopt: there is none.
std::optional<std::size_t> placeOf(const List &processors, const QString &name);

/// Whether a second processor, another than itself, enters at the last panel.
bool hasOtherAsBackup(const ProcessorSettings &settings);

/// Where that goes on which one cannot take: the next one behind it that is like it and no other one's backup.
std::optional<std::size_t> nextLike(const List &processors, std::size_t place);

/// One has another name: those that it is the backup of follow.
void renameBackups(List &processors, const QString &name, const QString &newName);

} // namespace Processors
