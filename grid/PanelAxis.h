#pragma once

#include <QtGlobal>

#include <map>
#include <optional>
#include <vector>

/// A wall's lines of panels in one direction, columns or rows, counted from one end. In pixels; counts and sizes may be
/// any 32-bit numbers, as files claim them. Before the first line and behind the last one, lines of the regular size go
/// on.
class PanelAxis
{
public:
    PanelAxis() = default;
    /// `count` lines of `lineSize` each.
    PanelAxis(int count, int lineSize) : m_count(count), m_lineSize(lineSize) {}
    /// The same where some lines have another size, 0 or more, by the line's number; `lineSize` is 0 or more, too.
    /// Numbers of no line are passed over.
    PanelAxis(int count, int lineSize, const std::map<int, int> &otherSizes);

    int count() const { return m_count; }
    /// Of a line that does not differ.
    int lineSize() const { return m_lineSize; }
    int sizeOf(qint64 line) const;

    /// Of all lines together.
    qint64 size() const { return edge(m_count); }
    /// Where a line, whose number has 32 bits, begins: 0 for the first one; that of `count` is the end of the last.
    qint64 edge(qint64 line) const
    {
        const qint64 regular = line * m_lineSize;
        return m_others.empty() ? regular : regular + shiftBefore(line);
    }
    double centre(qint64 line) const { return static_cast<double>(edge(line) + edge(line + 1)) * 0.5; }
    /// The line that holds a pixel. Less than a regular line before the first one it is the first one, further out a
    /// negative number. Nothing where the lines have no size, or the number has more than 64 bits.
    std::optional<qint64> lineAt(qint64 pixel) const;

    /// The same lines counted from the other end.
    PanelAxis mirrored() const;

private:
    struct Other
    {
        int line;
        int size;
        qint64 shift; ///< by which the lines behind begin later than if all were regular
    };

    qint64 shiftBefore(qint64 line) const;
    std::optional<qint64> regularLineAt(qint64 pixel) const;
    qint64 endOf(const Other &other) const { return (qint64{other.line} + 1) * m_lineSize + other.shift; }

    int m_count = 0;
    int m_lineSize = 0;
    std::vector<Other> m_others; ///< by line; empty: all are regular
};
