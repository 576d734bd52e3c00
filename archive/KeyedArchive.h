#pragma once

#include "archive/ArchiveObject.h"

#include <QByteArray>
#include <QStringList>

/// Keyed archives: the object graph of project files, preset libraries, pasteboard data and in-memory copies.
/// `docs/keyed-archive.md` describes the records.
namespace KeyedArchive {

/// The archive of `root` as a binary property list. Lists are written as mutable lists, equal texts, colours and
/// numbers once; a list or object that is referred to from several places is written once. Error: what could not be
/// read again: a fault, a text with a NUL in it, a colour that is not finite, more than 64 objects inside each other,
/// more than 8 million values.
[[nodiscard]] Result<QByteArray> write(const ArchiveValue &root);

/// The root of an archive, binary or XML. `classNames` are the classes that may stand in it beside the platform's
/// own; an object counts as the first class of its chain that is known, any other becomes a fault with its name.
/// A value that cannot be understood is an ArchiveFault where it stands; whoever asks for it is told.
/// Error: not a keyed archive, damaged as a whole, its root not understood or part of a cycle, too deep or too large;
/// nothing is allocated for a count that the file cannot hold. Walking the value meets 8 million values at most.
[[nodiscard]] Result<ArchiveValue> read(const QByteArray &bytes, const QStringList &classNames);

} // namespace KeyedArchive
