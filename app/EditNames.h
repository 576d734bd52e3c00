#pragma once

#include <QString>

/// What edits are called after "Undo".
namespace EditNames {

/// The name of the value that a key path leads to: "arrangedObjects.panelWidth" is "Panel Width". A key path that has
/// none is told as it is.
QString ofKeyPath(const QString &keyPath);

} // namespace EditNames
