#pragma once

#include "windows/LayerDelegate.h"
#include "windows/LayerStamps.h"

#include <QListView>

class LayerList;

/// The layers of the document, topmost first, or the presets. Its selected rows and the list's are always the same.
/// Rows are dragged to another place, and from and to other tables. The widget's actions are its context menu.
class LayerTable final : public QListView
{
    Q_OBJECT

public:
    /// `list` outlives the table's last event and is told how to describe its rows. `name` is the table's for those who
    /// cannot see it. `warnings` is asked at every painting of a row.
    LayerTable(LayerList &list, const QString &name, LayerDelegate::Kind kind, LayerDelegate::Warnings warnings = {},
               QWidget *parent = nullptr);

    /// Shows only the rows that all words of the text are found in, whatever their case: anywhere in the name, or where
    /// a number begins ("128", "128x64", "220W"); empty: all. Rows that it hides are not selected any longer; where
    /// that is the current one, the first that is shown is selected.
    void showRowsWith(const QString &text);
    /// The current row; -1 where that is not shown.
    int shownRow() const;
    /// The pictures of its rows.
    const LayerStamps &stamps() const { return m_stamps; }

signals:
    /// The eye of a row was pressed, which neither selects the row nor drags it.
    void eyeClicked(int row);

protected:
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    /// Drags the selected rows, with the picture of the current one beside the pointer.
    void startDrag(Qt::DropActions actions) override;
    /// Has the name edited, in the document's layers.
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;

private:
    bool isPressOfEye(const QEvent &event);
    void openMenuAtCurrentRow();
    void openMenu(const QPoint &place);
    bool isInSight(const QModelIndex &row) const;
    void followSelection();
    void leadSelection();
    void searchRows(int first, int last);
    void hideOthers(int first, int last);

    LayerList &m_list;
    LayerDelegate::Kind m_kind;
    LayerStamps m_stamps;
    LayerDelegate *m_delegate;
    QStringList m_searched;   ///< words
    bool m_eyeIsDown = false; ///< what the mouse does is no gesture of the table
    bool m_wasPainted = false;
    bool m_follows = false; ///< the list leads
    bool m_rowsGo = false;  ///< from before rows are removed until they are
};
