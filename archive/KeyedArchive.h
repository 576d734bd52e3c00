#pragma once

#include "archive/ArchiveObject.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QStringList>

#include <functional>
#include <limits>
#include <optional>

/// Keyed archives: the object graph of project files, preset libraries, pasteboard data and in-memory copies. Memory
/// that cannot be had is a std::bad_alloc.
/// `docs/keyed-archive.md` describes the records.
namespace KeyedArchive {

/// What stands in an archive.
struct Contents
{
    ArchiveValue root;
    ArchiveEntries top = {}; ///< beside the root, under `$top`
};

/// What a reader of archives knows; all else is an UnknownValue where it stands.
struct Vocabulary
{
    /// The classes that may stand in it beside the platform's own, each with its keys; nullopt: every key is known.
    QHash<QString, std::optional<QSet<QString>>> classes;
    /// A root that is a list has so many known entries.
    std::size_t rootEntries = std::numeric_limits<std::size_t>::max();
    /// The plain dictionary under `$top` with its keys; empty: none is known.
    QString topDictionary = {};
    QSet<QString> topKeys = {};
    /// Known keys that others may use for something else: whether a value under one is taken, which is a number, data,
    /// a text or nil. It is an UnknownValue otherwise.
    QHash<QString, std::function<bool(const ArchiveValue &)>> sharedKeys = {};
    /// Likewise keys of lists: each value under one is a list of objects of that class, at least one. Anything else is
    /// an UnknownValue.
    QHash<QString, QString> sharedLists = {};
};

/// The archive of `contents` as a binary property list. Lists are written as mutable lists, equal texts, colours and
/// numbers once; a list or object that is referred to from several places is written once. Error: what could not be
/// read again: a fault, a text with a NUL in it, a colour that is not finite, more than 64 objects inside each other,
/// more than 8 million values.
[[nodiscard]] Result<QByteArray> writeContents(const Contents &contents);
[[nodiscard]] inline Result<QByteArray> write(const ArchiveValue &root)
{
    return writeContents({root});
}

/// The contents of an archive, binary or XML. An object counts as the first class of its chain that is known, any other
/// becomes a fault with its name.
/// A value that cannot be understood is an ArchiveFault where it stands; whoever asks for it is told.
/// Error: not a keyed archive, damaged as a whole, its root not understood or part of a cycle, too deep or too large;
/// nothing is allocated for a count that the file cannot hold. Walking the value meets 8 million values at most.
[[nodiscard]] Result<Contents> readContents(const QByteArray &bytes, const Vocabulary &vocabulary);
/// The root alone, of an archive whose classes hold no unknown keys.
[[nodiscard]] Result<ArchiveValue> read(const QByteArray &bytes, const QStringList &classNames);

} // namespace KeyedArchive
