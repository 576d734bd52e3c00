#include "screen/HiddenPanels.h"

#include <optional>

namespace {
struct Panel
{
    quint64 rowFromTop;
    quint64 column;
};

/// The panel of a wall of `columns` x `rows` that a key names, if it is written exactly as keys are.
std::optional<Panel> panelNamed(const QString &key, int columns, int rows)
{
    const qsizetype comma = key.indexOf(u',');
    if (comma < 0 || columns < 1 || rows < 1)
        return std::nullopt;
    const Panel panel{QStringView(key).left(comma).toULongLong(), QStringView(key).mid(comma + 1).toULongLong()};
    const bool isOfWall = panel.rowFromTop < static_cast<quint64>(rows) && panel.column < static_cast<quint64>(columns);
    const bool isCanonical = QString::number(panel.rowFromTop) + u',' + QString::number(panel.column) == key;
    return isOfWall && isCanonical ? std::optional(panel) : std::nullopt;
}
} // namespace

QString hiddenPanelKey(qint64 rowFromTop, qint64 column)
{
    return QString::number(static_cast<quint64>(rowFromTop)) + u',' + QString::number(static_cast<quint64>(column));
}

qsizetype countHiddenPanels(const QStringList &keys, int columns, int rows)
{
    QSet<QString> found;
    for (const QString &key : keys) {
        if (panelNamed(key, columns, rows))
            found.insert(key);
    }
    return found.size();
}

HiddenPanels::HiddenPanels(const QStringList &keys, int columns, int rows)
    : m_columns(columns), m_rowHasHidden(static_cast<std::size_t>(rows))
{
    for (const QString &key : keys) {
        const auto panel = panelNamed(key, columns, rows);
        if (!panel)
            continue;
        if (m_hidden.empty())
            m_hidden.resize(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
        m_hidden[indexOf(static_cast<int>(panel->rowFromTop), static_cast<int>(panel->column))] = true;
        m_rowHasHidden[panel->rowFromTop] = true;
    }
}

bool HiddenPanels::contains(int rowFromTop, int column) const
{
    return containsAnyInRow(rowFromTop) && m_hidden[indexOf(rowFromTop, column)];
}

std::size_t HiddenPanels::indexOf(int rowFromTop, int column) const
{
    return static_cast<std::size_t>(rowFromTop) * static_cast<std::size_t>(m_columns) +
           static_cast<std::size_t>(column);
}
