#pragma once

#include "archive/ArchiveObject.h"

#include <QObject>

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
};

/// Writes the properties of `layer` under their keys, in the order of `fields`.
void encodeFields(const QObject &layer, std::span<const ArchiveField> fields, ArchiveObject &coder);

/// Sets the properties of `layer` from `coder`; an absent key gives 0, false or nil.
/// Error: the first value of a wrong kind; what was set before it stays set.
[[nodiscard]] Result<void> decodeFields(QObject &layer, std::span<const ArchiveField> fields,
                                        const ArchiveObject &coder);
