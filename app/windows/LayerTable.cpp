#include "app/windows/LayerTable.h"

#include "app/LayerList.h"
#include "app/windows/LayerDelegate.h"

#include <QScopedValueRollback>

LayerTable::LayerTable(LayerList &list, QWidget *parent) : QListView(parent), m_list(list)
{
    setAccessibleName("Layers");
    setFrameShape(QFrame::NoFrame);
    setBackgroundRole(QPalette::Window);
    viewport()->setBackgroundRole(QPalette::Window);
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setItemDelegate(new LayerDelegate(list, this));
    setModel(&list);
    connect(&list, &LayerList::selectionIndexDidChange, this, &LayerTable::followSelection);
    followSelection();
}

void LayerTable::followSelection()
{
    setCurrentIndex(m_list.index(static_cast<int>(m_list.selectionIndex())));
}

void LayerTable::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    if (m_rowsGo || !current.isValid() || current.row() == m_list.selectionIndex())
        return;
    m_list.setSelectionIndex(current.row());
}

void LayerTable::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    const QScopedValueRollback guard(m_rowsGo, true);
    QListView::rowsAboutToBeRemoved(parent, start, end);
}
