#pragma once

#include "archive/ArchiveObject.h"

#include <QObject>
#include <QSet>
#include <QVariant>

#include <span>

/// The form in which an archive holds a property.
enum class StoredAs
{
    Integer32, ///< flags as 0 or 1, 64-bit integers by their low 32 bits, reals truncated toward zero
    Boolean,
    Colour,
    Text,
    TextList,
    Address,
};

/// One key of a layer's archive and the property that it holds.
struct ArchiveField
{
    const char *key;
    const char *property;
    StoredAs form;
    /// Came after the first version: written only where it is not 0, false or nil, so that an archive which uses no
    /// addition is the archive of that version.
    bool isAddition = false;

    /// Whether a value of the property is written.
    bool isWritten(const QVariant &value) const { return !isAddition || value != QVariant(value.metaType()); }
};

/// The keys of `fields`.
QSet<QString> keysOf(std::span<const ArchiveField> fields);

/// Writes the properties of `layer` under their keys, in the order of `fields`.
void encodeFields(const QObject &layer, std::span<const ArchiveField> fields, ArchiveObject &coder);

/// Sets the properties of `layer` from `coder`; an absent key gives 0, false or nil.
/// Error: the first value of a wrong kind; what was set before it stays set.
[[nodiscard]] Result<void> decodeFields(QObject &layer, std::span<const ArchiveField> fields,
                                        const ArchiveObject &coder);
