#pragma once

#include "facts/Finding.h"
#include "layer/Layer.h"

#include <QAbstractTableModel>

#include <vector>

/// What the checks have found as it is read, the worst first.
class ChecksModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        Level,
        Where,
        What,
        ColumnCount
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Rows that say the same stay. `layers`: those of the show, topmost first.
    void show(std::vector<Finding> findings, const std::vector<LayerPointer> &layers);
    const Finding &finding(int row) const { return m_rows[static_cast<std::size_t>(row)].finding; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Row
    {
        Finding finding;
        QString where;

        bool operator==(const Row &) const = default;
    };

    std::vector<Row> m_rows;
};
