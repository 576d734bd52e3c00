#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QString>

#include <functional>

class QFile;

/// Whole files, in and out.
namespace FileBytes {

/// Opens a file to be read, as `file` names it: regular files alone, and without waiting, whatever others put in their
/// place meanwhile. Error: there is none, it is something else, or it cannot be read; the message begins with the path.
[[nodiscard]] Result<void> openToRead(QFile &file);

/// Error: no regular file, unreadable, or more than `mostBytes` (told before a byte is read). The message begins with
/// the path.
[[nodiscard]] Result<QByteArray> read(const QString &path, qint64 mostBytes);

/// What tells the contents of one file from those of another; empty where there is no file to read, or where it has
/// more than `mostBytes`.
QByteArray digest(const QString &path, qint64 mostBytes);
/// That of a file which holds these bytes.
QByteArray digestOf(const QByteArray &bytes);

/// Puts `bytes` into the file at `path`. Whatever stood there stays whole until its successor is complete on disk; the
/// name, too, is on the disk when this returns, where the file system does that.
/// Error: the file cannot be made, filled or put into its place; nothing half-written is left. The message begins with
/// the path.
[[nodiscard]] Result<void> write(const QString &path, const QByteArray &bytes);

/// Told how much is done, 0 to 1; may run events. False cancels the rest.
using Progress = std::function<bool(double done)>;

enum class Outcome
{
    Written,
    Cancelled ///< the old file stays, if there was one
};

/// The same in pieces, each on the disk before the next begins, for files that take long: a stick is a hundred times
/// slower than memory.
[[nodiscard]] Result<Outcome> write(const QString &path, const QByteArray &bytes, const Progress &progress);

/// The path with exactly one `extension` at its end: "show" and "show.Orv" become "show.Orv", "wall.png" becomes
/// "wall.png.Orv". Upper and lower case differ.
QString withExtension(const QString &path, const QString &extension);

} // namespace FileBytes
