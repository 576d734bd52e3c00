#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

#include <vector>

/// The name of a panel in `hiddenBoxes`: its row counted from the top and its column from the left, as unsigned 64-bit
/// decimals, so that an index before the first one names no panel.
QString hiddenPanelKey(qint64 rowFromTop, qint64 column);

/// How many different panels of a wall of `columns` x `rows` (any numbers) the keys name.
qsizetype countHiddenPanels(const QStringList &keys, int columns, int rows);

/// The switched-off panels of a wall that has a raster, looked up without making texts.
class HiddenPanels
{
public:
    /// The panels of a wall of `columns` x `rows` (both 0 or more) that `keys` names; keys of no panel there are
    /// passed over. A wall has at most as many panels as its raster has pixels, which bounds the table.
    HiddenPanels(const QStringList &keys, int columns, int rows);

    /// The panel at a place inside the wall is switched off.
    bool contains(int rowFromTop, int column) const;
    bool containsAnyInRow(int rowFromTop) const { return m_rowHasHidden[static_cast<std::size_t>(rowFromTop)]; }

private:
    std::size_t indexOf(int rowFromTop, int column) const;

    int m_columns;
    std::vector<bool> m_hidden; ///< row by row from the top; empty while no panel is hidden
    std::vector<bool> m_rowHasHidden;
};
