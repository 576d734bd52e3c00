#pragma once

#include "live/LiveOutput.h"

#include <QAbstractTableModel>

#include <vector>

/// The displays of the machine as they are read; each can be switched on, and given its region.
class DisplaysModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        Display, ///< with a tick: it shows the output
        Place,
        Pixels,
        Offset, ///< can be typed: "1920, 0"
        Turned,
        State,
        ColumnCount
    };

    /// `live` outlives this.
    explicit DisplaysModel(LiveOutput &live, QObject *parent = nullptr);

    const LiveOutput::Row &row(int row) const { return m_rows[static_cast<std::size_t>(row)]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// "1920, 0", "-8 12"; nullopt: it is no place.
    static std::optional<QPoint> offsetOf(const QString &text);

signals:
    /// Someone wants it on, or off.
    void toggled(const QString &key);
    /// What was typed could not be taken, and why.
    void failureTold(const QString &sentence);

private:
    void follow();
    void bringTo(std::size_t place, const LiveOutput::Row &row);
    QString text(const LiveOutput::Row &row, int number, int column) const;

    LiveOutput &m_live;
    std::vector<LiveOutput::Row> m_rows;
};
