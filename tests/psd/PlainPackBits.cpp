#include "tests/psd/PlainPackBits.h"

namespace {
constexpr qsizetype mostPending = 130;
constexpr qsizetype longestLiteral = 128;
constexpr int longestRun = 127;

void putLiteral(QByteArray &stream, const QByteArray &bytes)
{
    stream.append(static_cast<char>(bytes.size() - 1));
    stream.append(bytes);
}

void flush(QByteArray &stream, const QByteArray &pending)
{
    for (qsizetype at = 0; at < pending.size(); at += longestLiteral)
        putLiteral(stream, pending.mid(at, longestLiteral));
}

bool endsInRun(const QByteArray &pending)
{
    const qsizetype n = pending.size();
    return n >= 3 && pending[n - 1] == pending[n - 2] && pending[n - 1] == pending[n - 3];
}
} // namespace

QByteArray PlainPackBits::pack(const QByteArray &bytes)
{
    QByteArray stream;
    QByteArray pending;
    qsizetype next = 0;
    while (next < bytes.size()) {
        const char b = bytes[next++];
        pending.append(b);
        if (endsInRun(pending)) {
            flush(stream, pending.chopped(3));
            pending.clear();
            int length = 3;
            while (length < longestRun && next < bytes.size() && bytes[next] == b) {
                ++length;
                ++next;
            }
            stream.append(static_cast<char>(1 - length));
            stream.append(b);
        } else if (pending.size() == mostPending) {
            putLiteral(stream, pending.left(longestLiteral));
            pending = pending.mid(longestLiteral);
        }
    }
    flush(stream, pending);
    return stream;
}

QByteArray PlainPackBits::unpack(const QByteArray &stream)
{
    QByteArray bytes;
    for (qsizetype at = 0; at + 1 < stream.size();) {
        const auto header = static_cast<signed char>(stream[at]);
        if (header >= 0) {
            if (at + header + 2 > stream.size())
                return {};
            bytes.append(stream.mid(at + 1, header + 1));
            at += header + 2;
        } else {
            bytes.append(1 - header, stream[at + 1]);
            at += 2;
        }
    }
    return bytes;
}
