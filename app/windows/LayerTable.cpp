#include "app/windows/LayerTable.h"

#include "app/LayerList.h"
#include "app/windows/Theme.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QScopedValueRollback>
#include <QStyleOption>
#include <QTimer>

#include <utility>
#include <vector>

namespace {
/// Draws the place of a drop as a line that is seen, above the row that it is on.
class InsertionLine final : public QProxyStyle
{
public:
    explicit InsertionLine(QObject *parent) : QProxyStyle("Fusion") { setParent(parent); }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element != PE_IndicatorItemViewItemDrop)
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
        const int top = qMax(0, option->rect.top() - lineHeight / 2);
        painter->fillRect(option->rect.left(), top, option->rect.width(), lineHeight, Theme::accent);
    }

private:
    static constexpr int lineHeight = 2;
};

/// Beside the pointer, where it does not hide the insertion line.
constexpr QPoint draggedPicturePlace{12, 12};
} // namespace

LayerTable::LayerTable(LayerList &list, const QString &name, LayerDelegate::Kind kind, LayerDelegate::Warnings warnings,
                       QWidget *parent)
    : QListView(parent), m_list(list), m_kind(kind),
      m_delegate(new LayerDelegate(list, kind, std::move(warnings), this))
{
    setStyle(new InsertionLine(this));
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
    setItemDelegate(m_delegate);
    list.setDescription([delegate = QPointer(m_delegate)](const Layer &layer) {
        return delegate ? delegate->lines(layer).join(". ") : QString();
    });
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
    for (int row = 0; shownRow() < 0 && row < m_list.rowCount(); ++row) {
        if (!isRowHidden(row))
            m_list.setSelectionIndex(row);
    }
}

int LayerTable::shownRow() const
{
    const int row = currentIndex().row();
    return row < 0 || isRowHidden(row) ? -1 : row;
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

bool LayerTable::viewportEvent(QEvent *event)
{
    return isPressOfEye(*event) || QListView::viewportEvent(event);
}

/// Whether this is part of a press of an eye, from the button's going down to its going up.
bool LayerTable::isPressOfEye(const QEvent &event)
{
    const QEvent::Type type = event.type();
    if (type == QEvent::MouseMove)
        return m_eyeIsDown;
    if (type == QEvent::MouseButtonRelease)
        return std::exchange(m_eyeIsDown, false);
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick)
        return false;
    const auto &mouse = static_cast<const QMouseEvent &>(event);
    const QPoint place = mouse.position().toPoint();
    const QModelIndex index = indexAt(place);
    m_eyeIsDown =
        mouse.button() == Qt::LeftButton && index.isValid() && m_delegate->eyePlace(visualRect(index)).contains(place);
    if (m_eyeIsDown)
        emit eyeClicked(index.row());
    return m_eyeIsDown;
}

void LayerTable::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (std::exchange(m_wasPainted, true))
        return;
    QTimer::singleShot(0, this, [this] {
        m_delegate->showIcons();
        viewport()->update();
    });
}

void LayerTable::startDrag(Qt::DropActions actions)
{
    auto *drag = new QDrag(this);
    drag->setMimeData(m_list.mimeData(selectedIndexes()));
    drag->setPixmap(viewport()->grab(m_delegate->picturePlace(visualRect(currentIndex()))));
    drag->setHotSpot(-draggedPicturePlace);
    drag->exec(actions);
}

void LayerTable::mouseDoubleClickEvent(QMouseEvent *event)
{
    QListView::mouseDoubleClickEvent(event);
    const QPoint place = event->position().toPoint();
    const QModelIndex index = indexAt(place);
    const bool isPlain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    if (m_kind == LayerDelegate::Kind::Layers && isPlain && index.isValid() &&
        m_delegate->namePlace(visualRect(index)).contains(place))
        edit(index);
}

void LayerTable::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_F10 || event->modifiers() != Qt::ShiftModifier)
        return QListView::keyPressEvent(event);
    openMenuAtCurrentRow();
}

void LayerTable::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        openMenuAtCurrentRow();
    else
        openMenu(event->globalPos());
}

/// Where the eyes are; the pointer may be anywhere.
void LayerTable::openMenuAtCurrentRow()
{
    scrollTo(currentIndex());
    openMenu(viewport()->mapToGlobal(m_delegate->namePlace(visualRect(currentIndex())).bottomLeft()));
}

void LayerTable::openMenu(const QPoint &place)
{
    if (!actions().isEmpty())
        QMenu::exec(actions(), place, nullptr, this);
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
