#include "psd/ByteBuffer.h"

#include "base/System.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <utility>

namespace {
constexpr int longestValue = 8;
/// Up to here doubles are exact.
constexpr qint64 mostExact = qint64{1} << 53;
using ValueBytes = std::array<char, longestValue>;

/// The low 8 bits of a whole number of any size.
char lowByte(double whole)
{
    return static_cast<char>(static_cast<int>(std::fmod(whole, 256)) & 0xff);
}

ValueBytes bigEndian(qint64 value, int length)
{
    ValueBytes bytes{};
    if (value >= 0 && value <= mostExact) { // the same without the divisions
        for (int k = length - 1; k >= 0; --k, value >>= 8)
            bytes[static_cast<std::size_t>(k)] = static_cast<char>(value & 0xff);
        return bytes;
    }
    auto quotient = static_cast<double>(value);
    for (int k = length - 1; k >= 0; --k) {
        bytes[static_cast<std::size_t>(k)] = lowByte(std::trunc(quotient));
        quotient /= 256;
    }
    return bytes;
}

/// A component in 16 bits; what lies outside 0 to 1 keeps its low bits.
qint64 colourWord(double component)
{
    constexpr double furthest = 1e15;
    const double word = std::trunc(component * 65536 - 0.5);
    return static_cast<qint64>(std::isfinite(word) ? std::clamp(word, -furthest, furthest) : 0) & 0xffff;
}
} // namespace

void ByteBuffer::reserve(qsizetype count)
{
    try {
        m_bytes.reserve(count);
    } catch (const std::bad_alloc &) {
        return;
    }
    System::adviseLargePages(m_bytes.data(), static_cast<std::size_t>(m_bytes.capacity()));
}

QByteArray ByteBuffer::takeBytes()
{
    m_bytes.squeeze();
    return std::exchange(m_bytes, {});
}

void ByteBuffer::kxAppendValue(qint64 value, int length)
{
    const int count = std::clamp(length, 0, longestValue);
    std::copy_n(bigEndian(value, count).data(), count, grown(count));
}

void ByteBuffer::kxAppendUTF8String(QStringView text)
{
    append(text.toUtf8());
}

void ByteBuffer::kxAppendCGColorRef(const Colour &colour)
{
    kxAppendValue(0, 2);
    kxAppendValue(colourWord(colour.red), 2);
    kxAppendValue(colourWord(colour.green), 2);
    kxAppendValue(colourWord(colour.blue), 2);
    kxAppendValue(0, 2);
}

void ByteBuffer::append(QByteArrayView bytes)
{
    std::copy_n(bytes.data(), bytes.size(), grown(bytes.size()));
}

void ByteBuffer::appendZeros(qsizetype count)
{
    std::fill_n(grown(count), count, '\0');
}

qsizetype ByteBuffer::appendRoom(qsizetype count)
{
    const qsizetype position = m_bytes.size();
    grown(count);
    return position;
}

/// Room for more bytes at the end. QByteArray::append() would copy all that is there where the memory ends, and for the
/// time hold it twice; resize() has the system move the pages.
char *ByteBuffer::grown(qsizetype count)
{
    const qsizetype end = m_bytes.size();
    m_bytes.resize(end + count);
    return m_bytes.data() + end;
}

void ByteBuffer::replaceValue(qsizetype position, qint64 value, int length)
{
    const int count = std::clamp(length, 0, longestValue);
    m_bytes.replace(position, count, bigEndian(value, count).data(), count);
}
