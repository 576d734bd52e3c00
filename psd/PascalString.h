#pragma once

#include <QByteArray>
#include <QStringView>

/// Texts that are filled up to a multiple of a length, as the names of layers are. Lengths count UTF-16 code units.
namespace PascalString {

/// The length of the text rounded up to a multiple; an empty text gives 0. Computed in single precision, which is exact
/// up to 16 million. `multiple` is 1 or more.
int kxPascalStringLengthPaddedTo(QStringView text, int multiple);

/// The UTF-8 bytes of the text, extended to its padded length by repeating `padding` (not empty) from its first
/// character.
QByteArray kxPascalStringPaddedTo(QStringView text, int multiple, QStringView padding);
/// The same, padded with zero bytes.
QByteArray kxPascalStringPaddedTo(QStringView text, int multiple);

} // namespace PascalString
