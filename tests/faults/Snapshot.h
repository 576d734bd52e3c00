#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// What lies below a folder: folders end in "/", chance in their names is left out. Beside it, what a program holds.
using Snapshot = QMap<QString, QByteArray>;

namespace Snapshots {

Snapshot of(const QString &folder);
/// Empties the folder and puts the files there.
void restore(const Snapshot &snapshot, const QString &folder);
/// Names that are in none of the others.
QStringList namesBeyond(const Snapshot &snapshot, const Snapshot &one, const Snapshot &other);
Snapshot without(Snapshot snapshot, const QStringList &names);
/// What differs, for a person; few words.
QString difference(const Snapshot &is, const Snapshot &expected);

void save(const Snapshot &snapshot, const QString &path);
Snapshot load(const QString &path);

} // namespace Snapshots
