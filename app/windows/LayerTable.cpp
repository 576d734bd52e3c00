#include "app/windows/LayerTable.h"

#include "app/LayerList.h"

#include <QScopedValueRollback>

#include <utility>
#include <vector>

LayerTable::LayerTable(LayerList &list, const QString &name, LayerDelegate::SecondLine secondLine, QWidget *parent)
    : QListView(parent), m_list(list)
{
    setAccessibleName(name);
    setFrameShape(QFrame::NoFrame);
    setBackgroundRole(QPalette::Window);
    viewport()->setBackgroundRole(QPalette::Window);
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDragDropOverwriteMode(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setItemDelegate(new LayerDelegate(list, secondLine, this));
    // Around the views and selections that look for other rows when theirs go: nobody has chosen those.
    connect(&list, &LayerList::rowsAboutToBeRemoved, this, [this] { m_rowsGo = true; });
    setModel(&list);
    connect(&list, &LayerList::rowsRemoved, this, [this] { m_rowsGo = false; });
    connect(&list, &LayerList::selectionIndexDidChange, this, &LayerTable::followSelection);
    connect(&list, &LayerList::selectionIndexesDidChange, this, &LayerTable::followSelection);
    connect(&list, &LayerList::rowsInserted, this, &LayerTable::hideOtherNames);
    connect(&list, &LayerList::rowsMoved, this, &LayerTable::hideOtherNames);
    connect(&list, &LayerList::modelReset, this, &LayerTable::hideOtherNames);
    connect(&list, &LayerList::dataChanged, this, &LayerTable::hideOtherNames);
    followSelection();
}

void LayerTable::showNamesWith(const QString &text)
{
    m_searched = text;
    hideOtherNames();
}

void LayerTable::hideOtherNames()
{
    for (int row = 0; row < m_list.rowCount(); ++row) {
        const bool isSearched = m_list.layer(row)->label().contains(m_searched, Qt::CaseInsensitive);
        if (isRowHidden(row) == isSearched)
            setRowHidden(row, !isSearched);
    }
}

void LayerTable::followSelection()
{
    const QScopedValueRollback guard(m_follows, true);
    QItemSelection rows;
    for (const qsizetype row : m_list.selectionIndexes()) {
        const QModelIndex index = m_list.index(static_cast<int>(row));
        rows.select(index, index);
    }
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    const QModelIndex shown = m_list.index(static_cast<int>(m_list.selectionIndex()));
    selectionModel()->setCurrentIndex(shown, QItemSelectionModel::NoUpdate);
    scrollTo(shown);
}

void LayerTable::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    leadSelection();
}

void LayerTable::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QListView::selectionChanged(selected, deselected);
    leadSelection();
}

/// Someone has selected rows. To select none is no choice: the list keeps what it had.
void LayerTable::leadSelection()
{
    if (m_follows || m_rowsGo)
        return;
    std::vector<qsizetype> rows;
    for (const QModelIndex &index : selectedIndexes())
        rows.push_back(index.row());
    if (rows.empty())
        followSelection();
    else
        m_list.setSelectionIndexes(std::move(rows), currentIndex().row());
}
