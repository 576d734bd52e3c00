#pragma once

#include "show/Project.h"

#include <QString>

/// Values that a newer or another program has put into a show.
namespace UnknownValues {

/// Whether the project, or one of its layers, cables or processors, holds some.
bool areIn(const Project &project);
/// Whether some come from an archive, and are in no readable text that is written.
bool areOfArchive(const Project &project);
/// Whether some come from a readable text, and are in no archive that is written.
bool areOfText(const Project &project);

/// "show.Orv holds values that this version does not know; they are kept.", or that a project file does not keep them.
QString told(const Project &project, const QString &holder);
/// "values of show.json that this version does not know are left out"
QString leftOut(const QString &holder);

} // namespace UnknownValues
