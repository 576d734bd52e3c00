#pragma once

#include "archive/ArchiveObject.h"
#include "layer/LayerValues.h"

#include <QSet>
#include <QVariant>

#include <span>
#include <vector>

/// One key of a layer's archive and the property that it holds.
struct ArchiveField
{
    const char *key;
    const char *property;
    StoredAs form;
    /// An Addition: written only where it is given.
    bool isAddition = false;

    /// Whether the value of a record is written.
    bool isWritten(const LayerRecord &record) const;
    /// The value itself, as the record has it.
    const LayerValue &value() const;
};

/// The fields of the first version, and behind them those that were added for layers of a kind.
std::vector<ArchiveField> withAdditions(std::span<const ArchiveField> fields, LayerKind kind);

/// Whether an archive's value is one of a value that was added, and no list. Others may use its key for something else.
bool isTaken(const ArchiveValue &found, const LayerValue &value);

/// The keys of `fields`.
QSet<QString> keysOf(std::span<const ArchiveField> fields);

/// Writes values of a record under their keys, in the order of `fields`.
void encodeFields(const LayerRecord &record, std::span<const ArchiveField> fields, ArchiveObject &coder);

/// Sets values of a record from `coder`; an absent key gives 0, false or nil.
/// Error: the first value of a wrong kind; what was set before it stays set.
[[nodiscard]] Result<void> decodeFields(LayerRecord &record, std::span<const ArchiveField> fields,
                                        const ArchiveObject &coder);
