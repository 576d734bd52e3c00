#include "screen/HiddenPanels.h"

#include <optional>
#include <utility>

namespace {
struct Panel
{
    quint64 rowFromTop;
    quint64 column;
};

/// The panel that a key names, if it is written exactly as keys are.
std::optional<Panel> parsed(const QString &key)
{
    const qsizetype comma = key.indexOf(u',');
    if (comma < 0)
        return std::nullopt;
    bool isRow = false;
    bool isColumn = false;
    const Panel panel{QStringView(key).left(comma).toULongLong(&isRow),
                      QStringView(key).mid(comma + 1).toULongLong(&isColumn)};
    const bool isCanonical =
        isRow && isColumn && QString::number(panel.rowFromTop) + u',' + QString::number(panel.column) == key;
    return isCanonical ? std::optional(panel) : std::nullopt;
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
        const auto panel = parsed(key);
        if (panel && columns > 0 && rows > 0 && panel->rowFromTop < static_cast<quint64>(rows) &&
            panel->column < static_cast<quint64>(columns))
            found.insert(key);
    }
    return found.size();
}

HiddenPanels::HiddenPanels(const QStringList &keys, int columns, int rows)
    : m_columns(columns), m_rowHasHidden(static_cast<std::size_t>(rows))
{
    for (const QString &key : keys) {
        const auto panel = parsed(key);
        if (!panel || panel->rowFromTop >= static_cast<quint64>(rows) || panel->column >= static_cast<quint64>(columns))
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
