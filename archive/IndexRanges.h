#pragma once

#include "archive/ArchiveObject.h"

#include <QByteArray>

#include <optional>

/// The ranges of an index set as bytes: location and length of each, seven bits a byte, low bits first, the top bit set
/// while more follow (LEB128).
namespace IndexRanges {

/// The set whose ranges are `ranges`; touching ones become one.
/// None where a range is empty, ends past 2^63 - 1, overlaps or precedes the one before it.
[[nodiscard]] std::optional<IndexSet> fromRanges(const std::vector<IndexSet::Range> &ranges);
/// None where the bytes end within a range or a number has more than 64 bits.
[[nodiscard]] std::optional<std::vector<IndexSet::Range>> fromBytes(const QByteArray &bytes);
[[nodiscard]] QByteArray toBytes(const IndexSet &indexes);

} // namespace IndexRanges
