#pragma once

#include <QByteArray>

#include <random>

/// Damages good bytes by chance, alike in every run.
class Damage
{
public:
    quint64 random() { return m_random(); }
    /// A number from 0 to `count` - 1.
    std::size_t pick(std::size_t count) { return random() % count; }

    QByteArray truncated(const QByteArray &good) { return good.first(pickByte(good.size())); }
    /// One to four bits anywhere.
    QByteArray withFlippedBits(const QByteArray &good)
    {
        QByteArray bytes = good;
        for (std::size_t flips = 1 + pick(4); flips > 0; --flips)
            flipBit(bytes, pickByte(good.size()));
        return bytes;
    }
    /// One bit of the offset table or the trailer: what leads a parser astray most.
    QByteArray withFlippedTail(const QByteArray &good)
    {
        QByteArray bytes = good;
        flipBit(bytes, good.size() - 1 - pickByte(qMin<qsizetype>(good.size(), 400)));
        return bytes;
    }

private:
    qsizetype pickByte(qsizetype count) { return static_cast<qsizetype>(pick(static_cast<std::size_t>(count))); }
    void flipBit(QByteArray &bytes, qsizetype byte) { bytes[byte] = static_cast<char>(bytes[byte] ^ (1 << pick(8))); }

    std::mt19937_64 m_random{20240229};
};
