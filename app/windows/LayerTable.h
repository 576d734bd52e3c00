#pragma once

#include <QListView>

class LayerList;

/// The layers of the document, topmost first. Its selected row and the list's selection are always the same.
class LayerTable final : public QListView
{
    Q_OBJECT

public:
    /// `list` outlives the table's last event.
    explicit LayerTable(LayerList &list, QWidget *parent = nullptr);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

private:
    void followSelection();

    LayerList &m_list;
    bool m_rowsGo = false; ///< Qt looks for another current row; nobody has chosen it
};
