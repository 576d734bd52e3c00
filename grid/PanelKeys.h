#pragma once

#include "grid/CellSet.h"

#include <QSharedData>
#include <QSharedDataPointer>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// The key of a panel in `hiddenBoxes`: its row counted from the top and its column from the left, as unsigned 64-bit
/// decimals, so that an index before the first one names no panel.
QString panelKey(qint64 row, qint64 column);
/// The panel of a key; nullopt for a text that panelKey() does not write for a panel.
std::optional<Cell> panelOfKey(QStringView key);

/// The keys of a wall's panels that are off: a list of texts that comes from anywhere and goes back as it came. A panel
/// may stand in it twice; keys of no panel, and texts that are none, stay where they are. Copies share what they hold
/// until one of them is changed; a text is read once, when it comes.
class PanelKeys
{
public:
    PanelKeys() : PanelKeys(QStringList()) {}
    explicit PanelKeys(const QStringList &texts);
    // What was moved from would hold no list: a move is a copy, which costs as little.
    PanelKeys(const PanelKeys &) = default;
    PanelKeys &operator=(const PanelKeys &) = default;
    ~PanelKeys() = default;

    bool operator==(const PanelKeys &other) const { return m_list == other.m_list || texts() == other.texts(); }

    const QStringList &texts() const { return m_list->texts; }
    /// The panels of a wall of `columns` x `rows` (any numbers) that are named exactly as panelKey() writes.
    CellSet cellsInside(int columns, int rows) const;

    void append(const Cell &cell);
    /// Takes that key away, as often as it is there; if it is not, appends it.
    void toggle(qint64 row, qint64 column);
    /// Takes away the cells' keys that `isGone` says, among those behind the first `kept` texts.
    void removeIf(const std::function<bool(const Cell &)> &isGone, qsizetype kept = 0);

private:
    struct List : QSharedData
    {
        QStringList texts;
        std::vector<Cell> cells; ///< of each text
    };

    const Cell &cellAt(qsizetype place) const { return m_list->cells[static_cast<std::size_t>(place)]; }
    template <typename IsGone>
    void removePlaces(qsizetype kept, IsGone isGone);

    QSharedDataPointer<List> m_list;
};
