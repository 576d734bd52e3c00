#include "windows/ports/PortsModel.h"

#include "base/NumberText.h"
#include "drawing/TextLine.h"
#include "windows/tables/ColumnHead.h"

#include <array>
#include <cmath>

namespace {
constexpr QChar noText = u'—';

constexpr std::array<ColumnHead, PortsModel::ColumnCount> portHeads{{
    {"Processor", "What feeds the port"},
    {"Port", "Its name, which panels and cables are called by"},
    {"Backup", "The port that feeds the cable from its other end"},
    {"Walls", "What hangs on the port, in the order of the cable"},
    {"Panels", "Panels that are on"},
    {"Pixels", "Of these panels"},
    {"Loaded", "Pixels that count: of the box around the panels"},
    {"Free", "Pixels that the port still takes"},
    {"Used", "Of the port's limit"},
    {"Rate", "The highest frame rate at which the port still carries this"},
    {"Costs most", "The rule that takes most of the port"},
}};

const char *nameOf(RuleCost::Rule rule)
{
    switch (rule) {
    case RuleCost::Rule::Streams:
        return "streams";
    case RuleCost::Rule::Rectangle:
        return "rectangle";
    case RuleCost::Rule::LowLatency:
        return "low latency";
    case RuleCost::Rule::NarrowPort:
        return "narrow port";
    case RuleCost::Rule::Headroom:
        return "headroom";
    case RuleCost::Rule::PanelCount:
        break;
    }
    return "panels per port";
}

QString costOf(const PortRow &row)
{
    return row.costliest
               ? QString("%1, %2 px").arg(nameOf(row.costliest->rule), NumberText::grouped(row.costliest->pixels))
               : QString();
}

/// Never "100 %" of what is nearly full, or a little over.
QString percentOf(const PortRow &row)
{
    const std::optional<double> percent = row.percent();
    if (!percent)
        return {};
    return NumberText::grouped(static_cast<qint64>(*percent > 100 ? std::ceil(*percent) : std::floor(*percent))) + " %";
}

/// Down to a hundredth: at more it would not be carried.
QString rateOf(const PortRow &row)
{
    return row.highestRate ? QString::number(std::floor(*row.highestRate * 100) / 100) + " Hz" : QString();
}

QString numberOf(const std::optional<qint64> &number)
{
    return number ? NumberText::grouped(*number) : QString();
}

Qt::Alignment alignmentOf(int column)
{
    return column <= PortsModel::Walls || column == PortsModel::Cost ? Qt::AlignLeft : Qt::AlignRight;
}
} // namespace

void PortsModel::show(std::vector<PortRow> rows, const std::vector<LayerPointer> &layers)
{
    const bool isAsLong = rows.size() == m_rows.size();
    if (!isAsLong)
        beginResetModel();
    m_rows = std::move(rows);
    m_names.clear();
    for (const LayerPointer &layer : layers)
        m_names.push_back(TextLine::shown(layer->label()) + (layer->visible() ? "" : " (hidden)"));
    if (!isAsLong)
        endResetModel();
    else if (!m_rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

bool PortsModel::isUsed(int column) const
{
    return std::any_of(m_rows.begin(), m_rows.end(),
                       [this, column](const PortRow &row) { return !text(row, column).isEmpty(); });
}

int PortsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int PortsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PortsModel::data(const QModelIndex &index, int role) const
{
    const PortRow &of = row(index.row());
    switch (role) {
    case Qt::DisplayRole: {
        const QString words = text(of, index.column());
        return words.isEmpty() ? QString(noText) : words;
    }
    case Qt::ToolTipRole:
        return tip(of, index.column());
    case Qt::AccessibleDescriptionRole:
        return of.whyNoLimit;
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | alignmentOf(index.column()));
    case percentRole:
        return of.percent() ? QVariant(*of.percent()) : QVariant();
    case levelRole:
        return static_cast<int>(of.level());
    default:
        return {};
    }
}

QVariant PortsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return headOf(portHeads, section, orientation, role, alignmentOf(section));
}

QString PortsModel::text(const PortRow &row, int column) const
{
    switch (column) {
    case Processor:
        return row.processor;
    case Port:
        return row.port;
    case Backup:
        return row.backup;
    case Walls:
        return wallsOf(row);
    case Panels:
        return NumberText::grouped(row.panels);
    case Pixels:
        return numberOf(row.pixels);
    case Loaded:
        return numberOf(row.loaded);
    case Free:
        return numberOf(row.free());
    case Used:
        return percentOf(row);
    case HighestRate:
        return rateOf(row);
    default:
        return costOf(row);
    }
}

QString PortsModel::wallsOf(const PortRow &row) const
{
    QStringList names;
    for (const qsizetype layer : row.layers)
        names.append(m_names[static_cast<std::size_t>(layer)]);
    return names.join(", ");
}

/// What a dash means, or what may be cut off.
QString PortsModel::tip(const PortRow &row, int column) const
{
    if (!row.limit && (column == Free || column == Used))
        return row.whyNoLimit;
    if (row.limit && (column == Free || column == Used))
        return QString("%1 of %2 px").arg(NumberText::grouped(row.counted), NumberText::grouped(*row.limit));
    return text(row, column);
}
