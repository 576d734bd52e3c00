#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// PackBits, the run-length code of channel rows: a packet is a header byte h and either h + 1 literal bytes (h from 0
/// to 127) or one byte to be repeated 1 - h times (h negative). A run here is 3 to 127 equal bytes, so that two equal
/// ones stay literal; a literal holds at most 128.
namespace PackBits {

/// How a document names the code, where 0 is plain rows.
inline constexpr qint64 compression = 1;

/// Byte positions `location`, `location` + skip, ... below `location` + `length`; the first one counts even when
/// `length` is 0.
struct Range
{
    quint64 location;
    quint64 length;
};

/// The packed stream of every `skip`-th byte (1 or more) of the range, as far as it lies in the block. Every call makes
/// a whole stream; streams one after the other are a stream again.
QByteArray kxPackedBitsForRange(QByteArrayView block, const Range &range, qint32 skip);

/// The packets of a stream in words, for debugging: "Printing 3 literal bytes. Printing 7 46 times. Total: 49 bytes
/// decoded.". A packet that the block cuts off ends the list.
QString kxPackedBitsDescription(QByteArrayView block);

} // namespace PackBits
