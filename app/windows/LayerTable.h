#pragma once

#include "app/windows/LayerDelegate.h"

#include <QListView>

class LayerList;

/// The layers of the document, topmost first, or the presets. Its selected rows and the list's are always the same.
/// Rows are dragged to another place, and from and to other tables.
class LayerTable final : public QListView
{
    Q_OBJECT

public:
    /// `list` outlives the table's last event.
    LayerTable(LayerList &list, const QString &name, LayerDelegate::SecondLine secondLine, QWidget *parent = nullptr);

    /// Shows only the rows whose names contain the text, whatever its case; empty: all.
    void showNamesWith(const QString &text);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;

private:
    void followSelection();
    void leadSelection();

    void hideOtherNames();

    LayerList &m_list;
    QString m_searched;
    bool m_follows = false; ///< the list leads
    bool m_rowsGo = false;  ///< from before rows are removed until they are
};
