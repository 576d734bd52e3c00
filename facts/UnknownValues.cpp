#include "facts/UnknownValues.h"

#include <algorithm>

namespace {
template <typename Condition>
bool isAnyOf(const std::vector<LayerPointer> &layers, Condition isMeant)
{
    return std::any_of(layers.begin(), layers.end(), [&](const LayerPointer &layer) { return isMeant(*layer); });
}
/// Of a cable or a processor.
template <typename Condition>
bool isAnyPart(const Project &project, Condition isMeant)
{
    const auto isPart = [&](const UnknownPartPointer &unknown) { return unknown && isMeant(*unknown); };
    return std::ranges::any_of(project.processors, isPart, &ProcessorSettings::unknown) ||
           isAnyOf(project.layers, [&](const Layer &layer) {
               return std::ranges::any_of(layer.record()->runs.list(), isPart, &CableRun::unknown);
           });
}
} // namespace

namespace UnknownValues {

bool areIn(const Project &project)
{
    return areOfArchive(project) || areOfText(project);
}

bool areOfArchive(const Project &project)
{
    const UnknownContent *const ofShow = project.unknown.get();
    return (ofShow && !(ofShow->ofRoot.empty() && ofShow->ofTop.empty() && ofShow->ofShow.empty())) ||
           isAnyOf(project.layers,
                   [](const Layer &layer) {
                       return layer.unknownContent() && !layer.unknownContent()->entries().empty();
                   }) ||
           isAnyPart(project, [](const UnknownPart &part) { return part.ofArchive != nullptr; });
}

bool areOfText(const Project &project)
{
    return (project.unknown && !project.unknown->ofText.isEmpty()) ||
           isAnyOf(project.layers, [](const Layer &layer) { return !layer.unknownNames().isEmpty(); }) ||
           isAnyPart(project, [](const UnknownPart &part) { return !part.ofText.isEmpty(); });
}

QString told(const Project &project, const QString &holder)
{
    return holder + " holds values that this version does not know; " +
           (areOfText(project) ? "a project file does not keep them." : "they are kept.");
}

QString leftOut(const QString &holder)
{
    return "values of " + holder + " that this version does not know are left out";
}

} // namespace UnknownValues
