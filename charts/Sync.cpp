#include "charts/ChartPainter.h"
#include "charts/FrameCount.h"
#include "charts/Painters.h"

#include <QStringList>

namespace {
constexpr int counterBits = 16;
constexpr int lineSpeed = 8;
constexpr QRgb lit = qRgb(255, 255, 255);
constexpr QRgb unlit = qRgb(48, 48, 48);

/// A letter in its place; those of one text have boxes of one height, so that none is larger than the other.
struct Letter
{
    QChar letter;
    QRect box;

    bool operator==(const Letter &) const = default;
};

/// "01:02:03:04": hours, minutes, seconds and frames of a clock that drops none.
QString clockText(const ChartShape &shape, qint64 frame)
{
    const auto frames = static_cast<qint64>(std::floor(FrameCount::rate(shape) + 0.5));
    const qint64 day = 24 * 60 * 60;
    const qint64 now = FrameCount::within(frame, day * frames) + std::clamp(shape.options.start, 0, 86'399) * frames;
    const qint64 seconds = now / frames % day;
    const auto twoDigits = [](qint64 value) { return QString::number(value).rightJustified(2, u'0'); };
    return QStringList{twoDigits(seconds / 3600), twoDigits(seconds / 60 % 60), twoDigits(seconds % 60),
                       twoDigits(now % frames)}
        .join(u':');
}

QString counterText(qint64 frame)
{
    return QString::number(FrameCount::within(frame, 100'000)).rightJustified(5, u'0');
}

class SyncFrame
{
public:
    SyncFrame(const ChartShape &shape, qint64 frame)
        : m_size(shape.size), m_count(FrameCount::within(frame, 1 << counterBits))
    {
        const int unit = m_size.height() / 20;
        addText(clockText(shape, frame), 3 * unit, 4 * unit);
        addText(counterText(frame), 8 * unit, 3 * unit);
        const qint64 round = std::max<qint64>(m_size.width(), lineSpeed * FrameCount::shortestRound(shape));
        m_line = static_cast<int>(FrameCount::within(FrameCount::within(frame, round) * lineSpeed, round));
    }

    void draw(ChartPainter &painter) const
    {
        painter.fill(painter.whole(), painter.levels().black());
        for (int i = 0; i <= counterBits; ++i)
            painter.fill(cell(i), isLit(i) ? lit : unlit);
        for (const Letter &letter : m_letters)
            painter.text(letter.box, letter.letter, lit);
    }
    void drawStrobe(ChartPainter &painter, QRgb even, QRgb odd) const { painter.fill(strobe(), isOdd() ? odd : even); }
    void drawLine(ChartPainter &painter) const { painter.fill(line(), lit); }

    /// Where two frames of one shape differ, but for their strobes.
    QRegion movedTo(const SyncFrame &other) const
    {
        QRegion moved = QRegion(line()) + other.line();
        for (int i = 0; i <= counterBits; ++i) {
            if (isLit(i) != other.isLit(i))
                moved += cell(i);
        }
        for (std::size_t i = 0; i < m_letters.size(); ++i) {
            if (m_letters[i] != other.m_letters[i])
                moved += m_letters[i].box;
        }
        return moved;
    }

    bool isOdd() const { return m_count & 1; }
    /// A tenth of the chart.
    QRect strobe() const
    {
        return {m_size.width() * 3 / 10, m_size.height() * 3 / 5, m_size.width() * 2 / 5, m_size.height() / 4};
    }

private:
    /// In the middle, within a height and nine tenths of the width.
    void addText(const QString &text, int top, int height)
    {
        const auto halves = [](QChar letter) { return letter == u':' ? 1 : 2; };
        int allHalves = 0;
        for (const QChar letter : text)
            allHalves += halves(letter);
        const int half = std::min(height * 11 / 40, m_size.width() * 9 / 10 / allHalves);
        int left = (m_size.width() - half * allHalves) / 2;
        for (const QChar letter : text) {
            m_letters.push_back({letter, {left, top, half * halves(letter), half * 40 / 11}});
            left += half * halves(letter);
        }
    }

    /// The bits of the frame in Gray's code, of which one changes from frame to frame; at the right their parity.
    bool isLit(int i) const
    {
        const qint64 gray = m_count ^ (m_count >> 1);
        return i == counterBits ? isOdd() : (gray >> (counterBits - 1 - i)) & 1;
    }
    QRect cell(int i) const
    {
        const int side = std::min(m_size.height() / 20, m_size.width() / (counterBits + 2));
        const int left = (m_size.width() - (counterBits + 1) * side) / 2;
        return {left + i * side, m_size.height() / 20, side, side};
    }
    QRect line() const { return {m_line, 0, 1, m_size.height()}; }

    QSize m_size;
    qint64 m_count;
    int m_line = 0;
    std::vector<Letter> m_letters;
};

void drawWithStrobe(ChartPainter &painter, const ChartShape &shape, qint64 frame, QRgb even, QRgb odd)
{
    const SyncFrame sync(shape, frame);
    sync.draw(painter);
    sync.drawStrobe(painter, even, odd);
    sync.drawLine(painter);
}
} // namespace

void Painters::sync(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    const SyncFrame sync(shape, frame);
    sync.draw(painter);
    sync.drawLine(painter);
}

QRegion Painters::syncMoved(const Shape &shape, qint64 from, qint64 to)
{
    return SyncFrame(shape, from).movedTo(SyncFrame(shape, to));
}

void Painters::strobeWhite(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    drawWithStrobe(painter, shape, frame, qRgb(255, 255, 255), qRgb(0, 0, 0));
}

void Painters::strobeColour(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    drawWithStrobe(painter, shape, frame, qRgb(0, 255, 255), qRgb(255, 0, 255));
}

QRegion Painters::strobeMoved(const Shape &shape, qint64 from, qint64 to)
{
    const SyncFrame before(shape, from);
    const SyncFrame after(shape, to);
    const QRegion moved = before.movedTo(after);
    return before.isOdd() == after.isOdd() ? moved : moved + after.strobe();
}
