#pragma once

#include <QListView>

class LayerList;

/// The layers of the document, topmost first. Its selected rows and the list's are always the same.
/// Rows are dragged to another place, and from and to other tables.
class LayerTable final : public QListView
{
    Q_OBJECT

public:
    /// `list` outlives the table's last event.
    explicit LayerTable(LayerList &list, QWidget *parent = nullptr);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;

private:
    void followSelection();
    void leadSelection();

    LayerList &m_list;
    bool m_follows = false; ///< the list leads
    bool m_rowsGo = false;  ///< from before rows are removed until they are
};
