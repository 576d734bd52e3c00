#include "screen/PanelLabels.h"

#include "drawing/PixelRows.h"
#include "layer/Logging.h"
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
} // namespace

PanelLabels::PanelLabels(const ScreenChart &chart)
    : m_rasterWidth(static_cast<int>(chart.wallWidth())), m_rasterHeight(static_cast<int>(chart.wallHeight())),
      m_columns(std::max(chart.col, 0)), m_rows(std::max(chart.row, 0)), m_panelWidth(chart.panelWidth),
      m_panelHeight(chart.panelHeight), m_fontSize(chart.labelFontSize), m_colour(chart.labelColor.value()),
      m_lettersByColumn(!chart.XYLabelDirection)
{
    const bool isDrawable = m_fontSize > 0 && m_fontSize <= TextLine::largestPointSize;
    if (!isDrawable || m_columns == 0 || m_rows == 0)
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
    if (m_letters.empty())
        return;
    if (!isAffordable()) {
        qCWarning(lcScreen, "The labels of %d x %d panels are left out: they would only cover each other.", m_columns,
                  m_rows);
        return;
    }
    if (!m_letters.front().text.hasMasks())
        drawOutlines(surface);
    else if (labelPixels() > mostLayersSingly * m_rasterWidth * m_rasterHeight)
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
    const double y = (row + 1.0) * m_panelHeight - m_fontSize - margin;
    return {static_cast<int>(column * m_panelWidth + margin), static_cast<int>(y)};
}

double PanelLabels::labelPixels() const
{
    const auto widest = [](const std::vector<Part> &parts) {
        return std::ranges::max_element(parts, {}, &Part::width)->width();
    };
    const double visibleWidth = std::min(widest(m_letters) + widest(m_numbers), m_rasterWidth);
    const double visibleHeight = std::min(boxHeight(), m_rasterHeight);
    return double(m_columns) * m_rows * visibleWidth * visibleHeight;
}

bool PanelLabels::isAffordable() const
{
    return labelPixels() <= (m_letters.front().text.hasMasks() ? mostMaskPixels : mostOutlinePixels);
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
