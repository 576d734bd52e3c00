#include "tests/psd/DocumentCursor.h"

#include <algorithm>

void DocumentCursor::refuse(qsizetype place, const QString &what)
{
    if (isGood())
        m_fault = QString("byte %1: %2").arg(place).arg(what);
}

QByteArray DocumentCursor::take(qsizetype count, const char *what)
{
    if (count > bytesLeft())
        refuse(m_position, QString("the file ends in %1").arg(what));
    if (!isGood())
        return {};
    QByteArray taken = m_bytes.sliced(m_position, count).toByteArray();
    m_position += count;
    return taken;
}

quint32 DocumentCursor::number(int length, const char *what)
{
    quint32 value = 0;
    for (const char byte : take(length, what))
        value = value << 8 | quint8(byte);
    return value;
}

quint32 DocumentCursor::number(int length, quint32 least, quint32 most, const char *what)
{
    const qsizetype place = m_position;
    const quint32 value = number(length, what);
    if (value < least || value > most)
        refuse(place, QString("%1 is %2, not %3 to %4").arg(what).arg(value).arg(least).arg(most));
    return isGood() ? value : 0;
}

QByteArray DocumentCursor::key(std::initializer_list<QByteArray> known, const char *what)
{
    const qsizetype place = m_position;
    QByteArray key = take(4, what);
    if (std::find(known.begin(), known.end(), key) == known.end())
        refuse(place, QString("%1 is \"%2\"").arg(what, QString::fromLatin1(key)));
    return key;
}

void DocumentCursor::expect(quint32 value, int length, const char *what)
{
    const qsizetype place = m_position;
    const quint32 found = number(length, what);
    if (found != value)
        refuse(place, QString("%1 is %2, not %3").arg(what).arg(found).arg(value));
}

void DocumentCursor::expectZeros(qsizetype count, const char *what)
{
    const qsizetype place = m_position;
    const QByteArray bytes = take(count, what);
    if (bytes.count('\0') != bytes.size())
        refuse(place, QString("%1 is not 0").arg(what));
}

qsizetype DocumentCursor::blockEnd(const char *what)
{
    const qsizetype place = m_position;
    const qsizetype length = number(4, what);
    if (length > bytesLeft())
        refuse(place, QString("%1 has %2 bytes, more than are left in the file").arg(what).arg(length));
    return isGood() ? m_position + length : m_position;
}

void DocumentCursor::expectEnd(qsizetype end, const char *what)
{
    if (m_position != end)
        refuse(m_position, QString("the end of %1, which the length puts at byte %2").arg(what).arg(end));
}
