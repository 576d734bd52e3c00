#pragma once

#include <QTableView>

/// A table of rows that are asked for, by a click, the return key or space.
class RowTable final : public QTableView
{
    Q_OBJECT

public:
    /// `name` is what it is called where it cannot be seen. Does not own the model.
    RowTable(QAbstractItemModel &model, const QString &name, QWidget *parent = nullptr);

signals:
    void rowAsked(const QModelIndex &index);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
