#include "screen/PanelLabels.h"

#include "layer/Logging.h"
#include "layer/WallGrid.h"
#include "screen/ChartConstants.h"
#include "screen/ScreenChart.h"

#include <algorithm>

namespace {
/// Pixels that all labels of a chart may cover together, each counted as often as it is covered: seconds of work.
constexpr double mostMaskPixels = 3e10;
constexpr double mostOutlinePixels = 1e9;
/// How thick labels may lie on the raster, on average, before joining them first is worth it.
constexpr double mostLayersSingly = 4;

constexpr int alphabet = 26;
/// However small a letter is, its mask has this many columns.
constexpr int leastMaskWidth = 16;
} // namespace

PanelLabels::PanelLabels(const ScreenChart &chart)
    : m_rasterWidth(static_cast<int>(chart.wallWidth())), m_rasterHeight(static_cast<int>(chart.wallHeight())),
      m_columns(std::max(chart.col, 0)), m_rows(std::max(chart.row, 0)), m_fromLeft(panelGridOf(chart).columns),
      m_fromBottom(panelGridOf(chart).rowsFromBottom()), m_fontSize(chart.labelFontSize),
      m_colour(chart.labelColor.value()), m_lettersByColumn(!chart.XYLabelDirection)
{
    const TextLine widest("W", m_fontSize);
    if (widest.size().isEmpty() || m_columns == 0 || m_rows == 0)
        return;
    m_labelPixels = estimatedPixels(widest.size());
    m_isAffordable = m_labelPixels <= (widest.hasMasks() ? mostMaskPixels : mostOutlinePixels);
    if (!m_isAffordable)
        return;
    makeLetters();
    makeNumbers();
}

QString PanelLabels::columnLetters(int column)
{
    return QString(column / alphabet + 1, QChar(u'A' + column % alphabet));
}

QString PanelLabels::rowLetter(int rowFromTop)
{
    return QString(QChar(static_cast<char16_t>(u'A' + rowFromTop)));
}

void PanelLabels::draw(DrawingSurface &surface) const
{
    if (!m_isAffordable)
        qCWarning(lcScreen, "The labels of %d x %d panels are left out: together they have too many pixels.", m_columns,
                  m_rows);
    if (m_letters.empty())
        return;
    if (!m_letters.front().text.hasMasks())
        drawOutlines(surface);
    else if (m_labelPixels > mostLayersSingly * m_rasterWidth * m_rasterHeight)
        drawJoinedMasks(surface);
    else
        drawMasks(surface);
}

void PanelLabels::makeLetters()
{
    if (!m_lettersByColumn) {
        for (int row = 0; row < m_rows; ++row)
            m_letters.push_back({TextLine(rowLetter(m_rows - 1 - row), m_fontSize)});
        return;
    }
    for (int column = 0; column < m_columns; ++column) {
        const QString letters = columnLetters(column);
        m_letters.push_back({TextLine(letters.left(1), m_fontSize), static_cast<int>(letters.size())});
    }
}

void PanelLabels::makeNumbers()
{
    const int count = m_lettersByColumn ? m_rows : m_columns;
    for (int index = 0; index < count; ++index) {
        const int number = m_lettersByColumn ? m_rows - index : index + 1;
        m_numbers.push_back({TextLine(QString("%1 ").arg(number), m_fontSize)});
    }
}

const PanelLabels::Part &PanelLabels::letters(int row, int column) const
{
    return m_letters[static_cast<std::size_t>(m_lettersByColumn ? column : row)];
}

const PanelLabels::Part &PanelLabels::number(int row, int column) const
{
    return m_numbers[static_cast<std::size_t>(m_lettersByColumn ? row : column)];
}

QPoint PanelLabels::labelPoint(int row, int column) const
{
    const double margin = ChartConstants::init2().labelMargin;
    const double x = static_cast<double>(m_fromLeft.edge(column)) + margin;
    const double y = static_cast<double>(m_fromBottom.edge(row + 1)) - m_fontSize - margin;
    return {static_cast<int>(x), static_cast<int>(y)};
}

double PanelLabels::estimatedPixels(const QSize &letter) const
{
    const int letters = m_lettersByColumn ? (m_columns - 1) / alphabet + 1 : 1;
    const int digits = static_cast<int>(QString::number(m_lettersByColumn ? m_rows : m_columns).size());
    const double width = double(letters + digits) * std::max(letter.width(), leastMaskWidth);
    return double(m_columns) * m_rows * std::min<double>(width, m_rasterWidth + leastMaskWidth) *
           std::min(letter.height(), m_rasterHeight);
}

void PanelLabels::drawOutlines(DrawingSurface &surface) const
{
    const TextColours colours{m_colour, std::nullopt};
    for (int row = 0; row < m_rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            QPoint pen = labelPoint(row, column);
            const Part &letter = letters(row, column);
            for (int i = 0; i < letter.repeats; ++i, pen.rx() += letter.text.size().width())
                surface.drawText(pen, letter.text, colours);
            surface.drawText(pen, number(row, column).text, colours);
        }
    }
}

void PanelLabels::drawMasks(DrawingSurface &surface) const
{
    for (int row = 0; row < m_rows; ++row)
        surface.drawMasks(QPoint(0, labelPoint(row, 0).y()), boxHeight(), rowMasks(row), m_colour);
}

std::vector<CoverageMask> PanelLabels::rowMasks(int row) const
{
    std::vector<CoverageMask> masks;
    const auto append = [&](const TextLine &text, int left) {
        for (const auto &[mask, offset] : text.masks())
            masks.push_back({mask, offset + QPoint(left, 0)});
    };
    for (int column = 0; column < m_columns; ++column) {
        const Part &letter = letters(row, column);
        int left = labelPoint(row, column).x();
        for (int i = 0; i < letter.repeats && left < m_rasterWidth; ++i, left += letter.text.size().width())
            append(letter.text, left);
        append(number(row, column).text, numberLeft(row, column));
    }
    return masks;
}

int PanelLabels::numberLeft(int row, int column) const
{
    return labelPoint(row, column).x() + letters(row, column).width();
}
