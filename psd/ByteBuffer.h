#pragma once

#include "base/Colour.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

/// The bytes of a layered document as they are written, one append after the other. Values are big-endian. Memory that
/// cannot be had is a std::bad_alloc, which the document writer turns into an error.
class ByteBuffer
{
public:
    /// Takes room for `count` bytes at once, so that they are not moved as they grow. Without that much memory they
    /// grow as they can.
    void reserve(qsizetype count);

    /// Appends the low `length` (0 to 8) bytes of `value`. Of a negative one only the last byte is two's complement:
    /// each byte is the low byte of value / 256^k, truncated toward zero, so that -1 over two bytes is 00 FF.
    void kxAppendValue(qint64 value, int length);
    /// Appends the UTF-8 bytes of a text, whatever their number.
    void kxAppendUTF8String(QStringView text);
    /// Appends ten bytes: 0, red, green, blue, 0, each as 16 bits. A component is c x 65536 - 0.5, truncated toward
    /// zero; of one outside 0 to 1 the low 16 bits are left. Alpha is not written.
    void kxAppendCGColorRef(const Colour &colour);

    /// Appends bytes of others than this buffer.
    void append(QByteArrayView bytes);
    void append(const ByteBuffer &other) { append(other.m_bytes); }
    void appendZeros(qsizetype count);
    /// Appends `count` bytes of any value, for whoever fills them; returns where they begin.
    qsizetype appendRoom(qsizetype count);
    /// The byte at `position`, and all behind it; good until something is appended.
    char *at(qsizetype position) { return m_bytes.data() + position; }

    /// Writes a value over `length` bytes that are there already: of a length that is known only when its record ends.
    void replaceValue(qsizetype position, qint64 value, int length);

    qsizetype length() const { return m_bytes.size(); }
    const QByteArray &bytes() const { return m_bytes; }
    /// Hands the bytes over, without the room left behind them, and leaves the buffer empty.
    QByteArray takeBytes();

private:
    char *grown(qsizetype count);

    QByteArray m_bytes;
};
