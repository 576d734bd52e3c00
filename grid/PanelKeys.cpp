#include "grid/PanelKeys.h"

#include <limits>
#include <optional>
#include <utility>

namespace {
constexpr Cell nowhere{-1, -1};

/// Only as it is written: no sign, no blank, no zero in front.
std::optional<int> numberOf(QStringView digits)
{
    constexpr qsizetype mostDigits = std::numeric_limits<int>::digits10 + 1;
    const bool hasZeroInFront = digits.size() > 1 && digits.front() == u'0';
    if (digits.isEmpty() || digits.size() > mostDigits || hasZeroInFront)
        return std::nullopt;
    qint64 number = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9')
            return std::nullopt;
        number = 10 * number + (digit.unicode() - u'0');
    }
    return number <= std::numeric_limits<int>::max() ? std::optional(static_cast<int>(number)) : std::nullopt;
}

} // namespace

std::optional<Cell> panelOfKey(QStringView key)
{
    const qsizetype comma = key.indexOf(u',');
    if (comma < 0)
        return std::nullopt;
    const auto row = numberOf(key.first(comma));
    const auto column = numberOf(key.sliced(comma + 1));
    return row && column ? std::optional(Cell{*column, *row}) : std::nullopt;
}

QString panelKey(qint64 row, qint64 column)
{
    return QString::number(static_cast<quint64>(row)) + u',' + QString::number(static_cast<quint64>(column));
}

PanelKeys::PanelKeys(const QStringList &texts) : m_list(new List)
{
    m_list->texts = texts;
    m_list->cells.reserve(static_cast<std::size_t>(texts.size()));
    for (const QString &text : texts)
        m_list->cells.push_back(panelOfKey(text).value_or(nowhere));
}

CellSet PanelKeys::cellsInside(int columns, int rows) const
{
    std::vector<Cell> inside;
    for (const Cell &cell : m_list->cells) {
        if (cell != nowhere && cell.column < columns && cell.row < rows)
            inside.push_back(cell);
    }
    return CellSet(std::move(inside));
}

void PanelKeys::append(const Cell &cell)
{
    m_list->texts.append(panelKey(cell.row, cell.column));
    m_list->cells.push_back(cell);
}

void PanelKeys::toggle(qint64 row, qint64 column)
{
    const QString key = panelKey(row, column);
    const Cell cell = panelOfKey(key).value_or(nowhere);
    const qsizetype before = texts().size();
    removePlaces(0, [&](qsizetype place) { return cellAt(place) == cell && texts().at(place) == key; });
    if (texts().size() < before)
        return;
    m_list->texts.append(key);
    m_list->cells.push_back(cell);
}

void PanelKeys::removeIf(const std::function<bool(const Cell &)> &isGone, qsizetype kept)
{
    removePlaces(kept, [&](qsizetype place) {
        const Cell &cell = cellAt(place);
        return cell != nowhere && isGone(cell);
    });
}

/// What stays moves up once, however much goes.
template <typename IsGone>
void PanelKeys::removePlaces(qsizetype kept, IsGone isGone)
{
    const qsizetype count = texts().size();
    for (; kept < count && !isGone(kept); ++kept) {
    }
    if (kept >= count)
        return;
    List &list = *m_list;
    for (qsizetype place = kept + 1; place < count; ++place) {
        if (isGone(place))
            continue;
        list.texts[kept] = std::move(list.texts[place]);
        list.cells[static_cast<std::size_t>(kept)] = list.cells[static_cast<std::size_t>(place)];
        ++kept;
    }
    list.texts.resize(kept);
    list.cells.resize(static_cast<std::size_t>(kept));
}
