#pragma once

#include <QString>

/// What edits are called after "Undo", in lower case as it stands there.
namespace EditNames {

/// The name of the value that a key path leads to: "arrangedObjects.panelWidth" is "panel width". A key path that has
/// none is told as it is.
QString ofKeyPath(const QString &keyPath);

} // namespace EditNames
