#include "windows/displays/DisplaysModel.h"

#include "base/NumberText.h"
#include "windows/Theme.h"
#include "windows/tables/ColumnHead.h"

#include <QRegularExpression>

#include <array>

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
    return row.isRegionKept ? "on, this show's region" : "on, the usual region";
}
} // namespace

DisplaysModel::DisplaysModel(LiveOutput &live, QObject *parent)
    : QAbstractTableModel(parent), m_live(live), m_rows(live.rows())
{
    connect(&live, &LiveOutput::changed, this, &DisplaysModel::follow);
}

/// A cell that is being typed in stays as long as the displays are the same.
void DisplaysModel::follow()
{
    std::vector<LiveOutput::Row> rows = m_live.rows();
    if (rows == m_rows)
        return;
    const bool isAsLong = rows.size() == m_rows.size();
    if (!isAsLong)
        beginResetModel();
    m_rows = std::move(rows);
    if (!isAsLong)
        endResetModel();
    else
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
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
