#pragma once

#include "show/Project.h"

#include <QString>

/// Values that a newer or another program has put into a show.
namespace UnknownValues {

/// Whether the project, or one of its layers, holds some.
bool areIn(const Project &project);

/// "show.Orv holds values that this version does not know; they are kept."
QString kept(const QString &holder);

} // namespace UnknownValues
