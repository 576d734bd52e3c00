#include "drawing/CoverageStrip.h"
#include "screen/PanelLabels.h"

#include <map>

/// The labels of one row of panels as a single mask. What is the same in every row is joined once: with lettered
/// columns the letters, and each digit at every place that a number has; with lettered rows the numbers.
class PanelLabels::JoinedRows
{
public:
    explicit JoinedRows(const PanelLabels &labels)
        : m_labels(labels), m_shared(labels.m_lettersByColumn ? letters(0) : numbers())
    {}

    CoverageStrip row(int row) { return m_labels.m_lettersByColumn ? letteredColumns(row) : letteredRows(row); }

private:
    CoverageStrip letteredColumns(int row)
    {
        CoverageStrip strip = m_shared;
        int shift = 0;
        for (const QChar digit : QString::number(m_labels.m_rows - row)) {
            const TextLine text(digit, m_labels.m_fontSize);
            strip.unite(atAllNumbers(digit, text), shift);
            shift += text.size().width();
        }
        return strip;
    }

    CoverageStrip letteredRows(int row) const
    {
        CoverageStrip strip = letters(row);
        strip.unite(m_shared, m_labels.letters(row, 0).width());
        return strip;
    }

    CoverageStrip empty() const
    {
        return CoverageStrip(m_labels.m_rasterWidth, m_labels.boxHeight(), qAlpha(m_labels.m_colour.toRgba8()));
    }

    CoverageStrip letters(int row) const
    {
        CoverageStrip strip = empty();
        for (int column = 0; column < m_labels.m_columns; ++column) {
            const auto &[text, repeats] = m_labels.letters(row, column);
            int left = m_labels.labelPoint(row, column).x();
            for (int i = 0; i < repeats && left < m_labels.m_rasterWidth; ++i, left += text.size().width())
                strip.unite(text, left);
        }
        return strip;
    }

    /// The columns' numbers as if there were no letters before them.
    CoverageStrip numbers() const
    {
        CoverageStrip strip = empty();
        for (int column = 0; column < m_labels.m_columns; ++column)
            strip.unite(m_labels.number(0, column).text, m_labels.labelPoint(0, column).x());
        return strip;
    }

    const CoverageStrip &atAllNumbers(QChar digit, const TextLine &text)
    {
        const auto known = m_digits.find(digit);
        if (known != m_digits.end())
            return known->second;
        CoverageStrip strip = empty();
        for (int column = 0; column < m_labels.m_columns; ++column)
            strip.unite(text, m_labels.numberLeft(0, column));
        return m_digits.emplace(digit, std::move(strip)).first->second;
    }

    const PanelLabels &m_labels;
    CoverageStrip m_shared;
    std::map<QChar, CoverageStrip> m_digits;
};

void PanelLabels::drawJoinedMasks(DrawingSurface &surface) const
{
    JoinedRows joined(*this);
    const Colour opaque{m_colour.red, m_colour.green, m_colour.blue, 1};
    for (int row = 0; row < m_rows; ++row) {
        const QPoint bottomLeft(0, labelPoint(row, 0).y());
        const bool isVisible = bottomLeft.y() < m_rasterHeight && bottomLeft.y() + boxHeight() > 0;
        if (!isVisible)
            continue;
        const CoverageMask mask = joined.row(row).mask();
        surface.drawMasks(bottomLeft, boxHeight(), {&mask, 1}, opaque);
    }
}
