#pragma once

#include "facts/PortRows.h"

#include <QAbstractTableModel>

/// The rows of the table of ports as they are read.
class PortsModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        Processor,
        Port,
        Backup,
        Walls,
        Panels,
        Pixels,
        Loaded,
        Free,
        Used,
        HighestRate,
        Cost,
        ColumnCount
    };
    /// Of the column Used: per cent, invalid where there is no limit, and a PortRow::Level as int.
    static constexpr int percentRole = Qt::UserRole;
    static constexpr int levelRole = Qt::UserRole + 1;

    using QAbstractTableModel::QAbstractTableModel;

    /// Rows stay where they are as long as there are as many.
    void show(std::vector<PortRow> rows, const std::vector<LayerPointer> &layers);
    const PortRow &row(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    /// Whether any row has a text there.
    bool isUsed(int column) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QString text(const PortRow &row, int column) const;
    QString wallsOf(const PortRow &row) const;
    QString tip(const PortRow &row, int column) const;

    std::vector<PortRow> m_rows;
    std::vector<QString> m_names; ///< of the layers, hidden ones said to be so
};
