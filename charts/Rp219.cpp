#include "charts/ChartEdges.h"
#include "charts/ChartPainter.h"
#include "charts/FullBars.h"
#include "charts/Painters.h"

#include <array>

namespace {
constexpr QSize fullHd(1920, 1080);
constexpr QSize ultraHd(3840, 2160);

/// The edges of the nine columns of the upper rows. The standard gives whole pixels for two sizes, shares for others.
std::vector<int> upperEdges(const QSize &size)
{
    if (size == fullHd)
        return ChartEdges::ofWidths({240, 206, 206, 206, 204, 206, 206, 206, 240});
    if (size == ultraHd)
        return ChartEdges::ofWidths({480, 412, 412, 412, 408, 412, 412, 412, 480});
    return ChartEdges::ofShares(size.width(), {7, 6, 6, 6, 6, 6, 6, 6, 7});
}

/// The edges of the eleven columns of the lowest row.
std::vector<int> lowestEdges(const QSize &size)
{
    if (size == fullHd)
        return ChartEdges::ofWidths({240, 308, 412, 170, 68, 70, 68, 70, 68, 206, 240});
    if (size == ultraHd)
        return ChartEdges::ofWidths({480, 616, 824, 340, 136, 140, 136, 140, 136, 412, 480});
    return ChartEdges::ofShares(size.width(), {7, 9, 12, 5, 2, 2, 2, 2, 2, 6, 7});
}

struct Squares
{
    QRgb a;
    QRgb b;
};

class Rp219
{
public:
    explicit Rp219(ChartPainter &painter)
        : m_painter(painter), m_levels(painter.levels()), m_upper(upperEdges(painter.whole().size())),
          m_lowest(lowestEdges(painter.whole().size())),
          m_rows(ChartEdges::ofShares(painter.whole().height(), {7, 1, 1, 3}))
    {}

    void draw(const Squares &squares)
    {
        drawBars();
        drawSecondRow(squares.a);
        drawThirdRow(squares.b);
        drawLowestRow();
    }

    /// The middle third of the first black patch falls below black and comes back, that of the white one rises.
    void drawPeaks()
    {
        drawPeak(1, 16, 1);
        drawPeak(2, 235, 254);
    }

private:
    QRect box(const std::vector<int> &edges, std::size_t first, std::size_t last, std::size_t line) const
    {
        return QRect(QPoint(edges[first], m_rows[line]), QPoint(edges[last] - 1, m_rows[line + 1] - 1));
    }
    void fillUpper(std::size_t first, std::size_t last, std::size_t line, QRgb colour)
    {
        m_painter.fill(box(m_upper, first, last, line), colour);
    }

    void drawBars()
    {
        const QRgb wing = m_levels.grey(0.4);
        fillUpper(0, 1, 0, wing);
        for (std::size_t i = 0; i < 7; ++i)
            fillUpper(i + 1, i + 2, 0, barColour(m_levels, static_cast<int>(i), 0.75));
        fillUpper(8, 9, 0, wing);
    }

    void drawSecondRow(QRgb squareA)
    {
        fillUpper(0, 1, 1, m_levels.colour(0, 1, 1));
        fillUpper(1, 2, 1, squareA);
        fillUpper(2, 8, 1, m_levels.grey(0.75));
        fillUpper(8, 9, 1, m_levels.colour(0, 0, 1));
    }

    void drawThirdRow(QRgb squareB)
    {
        fillUpper(0, 1, 2, m_levels.colour(1, 1, 0));
        fillUpper(1, 2, 2, squareB);
        const QRect ramp = box(m_upper, 2, 7, 2);
        m_painter.columns(
            ramp, [&](int x) { return ChartLevels::greyOfCode(m_levels.code(x - ramp.left(), ramp.width() - 1)); });
        fillUpper(7, 8, 2, m_levels.white());
        fillUpper(8, 9, 2, m_levels.colour(1, 0, 0));
    }

    void drawLowestRow()
    {
        static constexpr std::array levels{0.15, 0.0, 1.0, 0.0, -0.02, 0.0, 0.02, 0.0, 0.04, 0.0, 0.15};
        for (std::size_t i = 0; i < levels.size(); ++i)
            m_painter.fill(box(m_lowest, i, i + 1, 3), m_levels.grey(levels[i]));
    }

    void drawPeak(std::size_t patch, int edgeCode, int middleCode)
    {
        const QRect all = box(m_lowest, patch, patch + 1, 3);
        const int top = all.top() + ChartEdges::at(all.height(), 1, 3);
        const int bottom = all.top() + ChartEdges::at(all.height(), 2, 3) - 1;
        const int length = std::max(1, all.width() - 1);
        m_painter.columns(QRect(QPoint(all.left(), top), QPoint(all.right(), bottom)), [&](int x) {
            const int fromMiddle = std::abs(2 * (x - all.left()) - (all.width() - 1));
            const double depth = 1 - 1.0 * fromMiddle / length;
            return ChartLevels::greyOfCode(
                static_cast<int>(std::floor(edgeCode + (middleCode - edgeCode) * depth + 0.5)));
        });
    }

    ChartPainter &m_painter;
    ChartLevels m_levels;
    std::vector<int> m_upper;
    std::vector<int> m_lowest;
    std::vector<int> m_rows;
};
} // namespace

void Painters::rp219(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    Rp219(painter).draw({painter.levels().white(), painter.levels().black()});
}

void Painters::rp219WithIQ(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    Rp219(painter).draw({minusI(painter.levels()), plusQ(painter.levels())});
}

void Painters::rp219WithPeaks(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    Rp219 chart(painter);
    chart.draw({painter.levels().white(), painter.levels().black()});
    if (painter.levels().range == LevelRange::Narrow) // full range has nothing beyond black and white
        chart.drawPeaks();
}
