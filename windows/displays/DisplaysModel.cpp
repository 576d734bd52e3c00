#include "windows/displays/DisplaysModel.h"

#include "base/NumberText.h"
#include "windows/Theme.h"
#include "windows/tables/ColumnHead.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>

namespace {
constexpr std::array<ColumnHead, DisplaysModel::ColumnCount> displayHeads{{
    {"Display", "A tick puts the output on it; Escape on the display takes it away"},
    {"Place", "Where it lies on the desktop, and its scale"},
    {"Pixels", "Of the display"},
    {"Shows from", "The output's pixel in its upper left corner, x and y: double-click to type them, or press arrow "
                   "keys on the display"},
    {"Turned", "How the display hangs: double-click for the next quarter"},
    {"State", "What it shows, and whose the region is"},
}};

QString placeText(const QPoint &place)
{
    return QString("%1, %2").arg(place.x()).arg(place.y());
}

QString stateOf(const LiveOutput::Row &row)
{
    if (!row.isOn)
        return "off";
    if (!row.isConnected)
        return "gone: waiting";
    return QString("on: %1, %2 region").arg(row.shows, row.isRegionKept ? "this show's" : "the usual");
}
} // namespace

DisplaysModel::DisplaysModel(LiveOutput &live, QObject *parent)
    : QAbstractTableModel(parent), m_live(live), m_rows(live.rows())
{
    connect(&live, &LiveOutput::changed, this, &DisplaysModel::follow);
}

void DisplaysModel::follow()
{
    std::vector<LiveOutput::Row> rows = m_live.rows();
    if (rows == m_rows)
        return;
    for (std::size_t i = 0; i < rows.size(); ++i)
        bringTo(i, rows[i]);
    if (m_rows.size() > rows.size()) {
        beginRemoveRows({}, static_cast<int>(rows.size()), rowCount() - 1);
        m_rows.resize(rows.size());
        endRemoveRows();
    }
    for (int i = 0; i < rowCount(); ++i) {
        if (std::exchange(m_rows[static_cast<std::size_t>(i)], rows[static_cast<std::size_t>(i)]) != row(i))
            emit dataChanged(index(i, 0), index(i, ColumnCount - 1));
    }
}

/// The row of that display stands at `place` then: moved, so that a cell that is being typed in stays as it is.
void DisplaysModel::bringTo(std::size_t place, const LiveOutput::Row &row)
{
    const auto target = m_rows.begin() + static_cast<std::ptrdiff_t>(place);
    const auto found = std::find_if(
        target, m_rows.end(), [&](const LiveOutput::Row &known) { return known.display.key() == row.display.key(); });
    const int to = static_cast<int>(place);
    if (found == m_rows.end()) {
        beginInsertRows({}, to, to);
        m_rows.insert(target, row);
        endInsertRows();
    } else if (found != target) {
        const int from = static_cast<int>(found - m_rows.begin());
        beginMoveRows({}, from, from, {}, to);
        std::rotate(target, found, found + 1);
        endMoveRows();
    }
}

int DisplaysModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int DisplaysModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

Qt::ItemFlags DisplaysModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.column() == Display)
        flags |= Qt::ItemIsUserCheckable;
    if (index.column() == Offset && row(index.row()).isOn)
        flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant DisplaysModel::data(const QModelIndex &index, int role) const
{
    const LiveOutput::Row &of = row(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
    case Qt::EditRole:
        return text(of, index.row() + 1, index.column());
    case Qt::CheckStateRole:
        return index.column() == Display ? QVariant(of.isOn ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::ForegroundRole:
        return of.isConnected ? QVariant() : QVariant(Theme::warning);
    default:
        return {};
    }
}

QString DisplaysModel::text(const LiveOutput::Row &row, int number, int column) const
{
    switch (column) {
    case Display:
        return QString("%1: %2").arg(number).arg(row.display.title());
    case Place:
        return placeText(row.display.place.topLeft()) +
               (row.display.ratio == 1 ? QString() : QString(" at %1 %").arg(qRound(row.display.ratio * 100)));
    case Pixels:
        return NumberText::size(row.display.pixels);
    case Offset:
        return row.isOn ? placeText(row.region.offset) : QString();
    case Turned:
        return row.isOn ? QString("%1°").arg(row.region.turn) : QString();
    default:
        return stateOf(row);
    }
}

std::optional<QPoint> DisplaysModel::offsetOf(const QString &text)
{
    static const QRegularExpression numbers("^\\s*([-+]?\\d{1,5})\\s*[,;x\\s]\\s*([-+]?\\d{1,5})\\s*$");
    const QRegularExpressionMatch match = numbers.match(text);
    const QPoint offset(match.captured(1).toInt(), match.captured(2).toInt());
    return match.hasMatch() && WallRegion::within(offset) == offset ? std::optional(offset) : std::nullopt;
}

bool DisplaysModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const LiveOutput::Row of = row(index.row());
    const QString key = of.display.key();
    if (role == Qt::CheckStateRole && index.column() == Display) {
        emit toggled(key);
        return true;
    }
    if (role != Qt::EditRole || index.column() != Offset)
        return false;
    const std::optional<QPoint> offset = offsetOf(value.toString());
    if (!offset) {
        emit failureTold(QString("\"%1\" is no place: type x and y of the output, \"1920, 0\".").arg(value.toString()));
        return false;
    }
    m_live.setRegion(key, {*offset, of.region.turn});
    return true;
}

QVariant DisplaysModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return headOf(displayHeads, section, orientation, role, Qt::AlignLeft);
}
