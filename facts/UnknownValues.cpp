#include "facts/UnknownValues.h"

#include <algorithm>

namespace UnknownValues {

bool areIn(const Project &project)
{
    return project.unknown || std::any_of(project.layers.begin(), project.layers.end(), [](const LayerPointer &layer) {
               return layer->unknownContent() && !layer->unknownContent()->entries().empty();
           });
}

QString kept(const QString &holder)
{
    return holder + " holds values that this version does not know; they are kept.";
}

} // namespace UnknownValues
