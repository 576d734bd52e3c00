#include "windows/checks/ChecksModel.h"

#include "drawing/TextLine.h"
#include "layer/CableRun.h"
#include "screen/LWScreen.h"
#include "windows/Theme.h"
#include "windows/tables/ColumnHead.h"

#include <algorithm>
#include <array>

namespace {
constexpr std::array<ColumnHead, ChecksModel::ColumnCount> checkHeads{{
    {"Level", "An error will not work, a warning hardly as it is meant, a note is good to know"},
    {"Where", "The layer, its panel and the port"},
    {"What", "What is wrong and what to do"},
}};

struct LevelLook
{
    const char *name;
    QColor colour;
};
/// In the order of Finding::Level.
constexpr std::array<LevelLook, 4> looks{{
    {"Error", Theme::danger},
    {"Warning", Theme::warning},
    {"Note", Theme::text},
    {"Meant", Theme::dimText},
}};

const LevelLook &lookOf(const Finding &finding)
{
    return looks.at(static_cast<std::size_t>(finding.level));
}

QString nameOf(const Layer &layer)
{
    return layer.label().isEmpty() ? QString("a layer without a name") : TextLine::shown(layer.label());
}

QString panelOf(const Layer &layer, const Cell &cell)
{
    const auto *wall = qobject_cast<const LWScreen *>(&layer);
    return wall ? "panel " + wall->panelLabel(cell).trimmed() : QString();
}

QString whereOf(const Finding &finding, const std::vector<LayerPointer> &layers)
{
    QStringList parts;
    if (finding.layer) {
        const Layer &layer = *layers[static_cast<std::size_t>(*finding.layer)];
        parts.append(nameOf(layer));
        if (finding.cell)
            parts.append(panelOf(layer, *finding.cell));
    }
    if (finding.port && !finding.processor.isEmpty())
        parts.append("port " + PortName{finding.processor, *finding.port}.text());
    else if (!finding.processor.isEmpty())
        parts.append("processor " + finding.processor);
    parts.removeAll(QString());
    return parts.isEmpty() ? QString("the show") : parts.join(", ");
}
} // namespace

void ChecksModel::show(std::vector<Finding> findings, const std::vector<LayerPointer> &layers)
{
    std::ranges::stable_sort(findings, {}, &Finding::level);
    std::vector<Row> rows;
    for (Finding &finding : findings) {
        const QString where = whereOf(finding, layers);
        rows.push_back({std::move(finding), where});
    }
    if (rows == m_rows)
        return;
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

int ChecksModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ChecksModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ChecksModel::data(const QModelIndex &index, int role) const
{
    const Row &row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return index.column() == Level   ? QString(lookOf(row.finding).name)
               : index.column() == Where ? row.where
                                         : row.finding.sentence;
    case Qt::ForegroundRole:
        return index.column() == Level || row.finding.level == Finding::Level::Meant
                   ? QVariant(lookOf(row.finding).colour)
                   : QVariant();
    default:
        return {};
    }
}

QVariant ChecksModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return headOf(checkHeads, section, orientation, role, Qt::AlignLeft);
}
