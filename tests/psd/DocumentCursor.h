#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <initializer_list>

/// Reads a file's big-endian values one after the other. Keeps the first fault and its place; what is read after a
/// fault is 0 or empty, so that whoever reads need not ask after every value, only before a loop or an allocation.
class DocumentCursor
{
public:
    explicit DocumentCursor(QByteArrayView bytes) : m_bytes(bytes) {}

    bool isGood() const { return m_fault.isEmpty(); }
    /// "byte 26: what is wrong"; empty while all is good.
    const QString &fault() const { return m_fault; }
    /// Keeps a fault that was found at a place.
    void refuse(qsizetype place, const QString &what);

    qsizetype position() const { return m_position; }
    qsizetype bytesLeft() const { return m_bytes.size() - m_position; }

    /// A number of 1 to 4 bytes, not negative.
    quint32 number(int length, const char *what);
    /// A number that lies in a range.
    quint32 number(int length, quint32 least, quint32 most, const char *what);
    QByteArray take(qsizetype count, const char *what);
    /// Four bytes that are one of these keys.
    QByteArray key(std::initializer_list<QByteArray> known, const char *what);
    void expect(quint32 value, int length, const char *what);
    void expectZeros(qsizetype count, const char *what);

    /// Reads a length of four bytes; returns where the block that it counts ends.
    qsizetype blockEnd(const char *what);
    /// Whether there is more of a block; false after a fault.
    bool isBefore(qsizetype end) const { return isGood() && m_position < end; }
    void expectEnd(qsizetype end, const char *what);

private:
    QByteArrayView m_bytes;
    qsizetype m_position = 0;
    QString m_fault;
};
