#include "grid/PanelKeys.h"
#include "layer/WallGrid.h"
#include "screen/LWScreen.h"
#include "screen/PanelLabels.h"

#include <QtNumeric>

namespace {
/// A narrow panel far to the right has a label of thousands of letters.
constexpr qsizetype mostLetters = 8;

/// The line of a wall that begins at `start` which holds `point`; nothing, too, where they are more than 64 bits apart.
std::optional<qint64> lineUnder(const PanelAxis &axis, qint64 point, int start)
{
    qint64 distance = 0;
    return qSubOverflow(point, qint64{start}, &distance) ? std::nullopt : axis.lineAt(distance);
}

QString columnLetters(int column)
{
    constexpr int columnsWithFewLetters = 26 * mostLetters;
    if (column < columnsWithFewLetters)
        return PanelLabels::columnLetters(column);
    return PanelLabels::columnLetters(columnsWithFewLetters - 26 + column % 26) + u'…';
}
} // namespace

void LWScreen::onImageClick(qint64 x, qint64 y)
{
    const PanelGrid grid = panelGridOf(*this);
    const auto column = lineUnder(grid.columns, x, xpoint());
    const auto rowFromTop = lineUnder(grid.rows, y, ypoint());
    if (!column || !rowFromTop || *column >= col() || *rowFromTop >= row())
        return;

    PanelKeys keys = panelsOff().value_or(PanelKeys());
    keys.toggle(*rowFromTop, *column);
    setPanelsOff(keys);
}

std::optional<Cell> LWScreen::panelAt(qint64 x, qint64 y) const
{
    if (panelWidth() <= 0 || panelHeight() <= 0)
        return std::nullopt;
    const PanelGrid grid = panelGridOf(*this);
    const qint64 column = lineUnder(grid.columns, x, xpoint()).value_or(-1);
    const qint64 rowFromTop = lineUnder(grid.rows, y, ypoint()).value_or(-1);
    if (column < 0 || column >= col() || rowFromTop < 0 || rowFromTop >= row())
        return std::nullopt;
    return Cell{static_cast<int>(column), static_cast<int>(rowFromTop)};
}

QRectF LWScreen::panelRect(const Cell &panel) const
{
    const auto [columns, rows] = panelGridOf(*this);
    return {xpoint() + double(columns.edge(panel.column)), ypoint() + double(rows.edge(panel.row)),
            double(columns.sizeOf(panel.column)), double(rows.sizeOf(panel.row))};
}

QString LWScreen::panelLabel(const Cell &panel) const
{
    return XYLabelDirection() ? PanelLabels::rowLetter(panel.row) + QString::number(panel.column + 1)
                              : columnLetters(panel.column) + QString::number(panel.row + 1);
}
