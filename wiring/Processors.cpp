#include "wiring/Processors.h"

#include <algorithm>

namespace {
bool isBackup(const Processors::List &processors, const QString &name)
{
    return std::ranges::any_of(processors, [&](const ProcessorSettings &settings) {
        return Processors::hasOtherAsBackup(settings) && settings.backupProcessor == name;
    });
}
} // namespace

namespace Processors {

std::optional<std::size_t> placeOf(const List &processors, const QString &name)
{
    const auto found = std::ranges::find(processors, name, &ProcessorSettings::name);
    return found == processors.end() ? std::nullopt
                                     : std::optional(static_cast<std::size_t>(found - processors.begin()));
}

bool hasOtherAsBackup(const ProcessorSettings &settings)
{
    return settings.backup == ProcessorSettings::Backup::SecondProcessor && !settings.backupProcessor.isEmpty() &&
           settings.backupProcessor != settings.name;
}

std::optional<std::size_t> nextLike(const List &processors, std::size_t place)
{
    for (std::size_t next = place + 1; next < processors.size(); ++next) {
        if (processors[next].isLike(processors[place]) && !isBackup(processors, processors[next].name))
            return next;
    }
    return std::nullopt;
}

void renameBackups(List &processors, const QString &name, const QString &newName)
{
    for (ProcessorSettings &settings : processors) {
        if (settings.backupProcessor == name)
            settings.backupProcessor = newName;
    }
}

} // namespace Processors
