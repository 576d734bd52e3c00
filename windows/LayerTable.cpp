#include "windows/LayerTable.h"

#include "show/LayerList.h"
#include "windows/Theme.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QStyleOption>
#include <QTimer>

#include <algorithm>
#include <iterator>
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

/// The selected rows, neighbours as one range: a selection takes time with the square of the number of its ranges.
QItemSelection rangesOf(const LayerList &list)
{
    QItemSelection ranges;
    const std::vector<qsizetype> &rows = list.selectionIndexes();
    for (auto first = rows.begin(); first != rows.end();) {
        auto last = first;
        while (std::next(last) != rows.end() && *std::next(last) == *last + 1)
            ++last;
        ranges.append({list.index(static_cast<int>(*first)), list.index(static_cast<int>(*last))});
        first = std::next(last);
    }
    return ranges;
}

/// "128 × 64" is one word, "128x64".
QStringList wordsOf(const QString &text)
{
    static const QRegularExpression timesSign("(?<=\\d)\\s*[x×]\\s*(?=\\d)", QRegularExpression::CaseInsensitiveOption);
    return QString(text).replace(timesSign, "x").remove(',').split(' ', Qt::SkipEmptyParts);
}

/// Whether each of the words is part of the name, or begins one of the numbers that the row shows.
bool isFound(const QStringList &words, const Layer &layer)
{
    const QString width = QString::number(layer.panelWidth());
    const QString height = QString::number(layer.panelHeight());
    const QString watts = QString::number(layer.powerOnCell());
    const QStringList facts{width + 'x' + height + "px", height + "px", watts + 'W', "px", "W"};
    return std::all_of(words.begin(), words.end(), [&](const QString &word) {
        return layer.label().contains(word, Qt::CaseInsensitive) ||
               std::any_of(facts.begin(), facts.end(),
                           [&](const QString &fact) { return fact.startsWith(word, Qt::CaseInsensitive); });
    });
}
} // namespace

LayerTable::LayerTable(LayerList &list, const QString &name, LayerDelegate::Kind kind, LayerDelegate::Warnings warnings,
                       QWidget *parent)
    : QListView(parent), m_list(list), m_kind(kind),
      m_stamps(LayerDelegate::pictureSize, [this](const QModelIndex &row) { return isInSight(row); }),
      m_delegate(new LayerDelegate(list, kind, m_stamps, std::move(warnings), this))
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
    connect(&list, &LayerList::rowsRemoved, &m_stamps, &LayerStamps::forgetGoneLayers);
    connect(&list, &LayerList::modelReset, &m_stamps, &LayerStamps::forgetGoneLayers);
    connect(&m_stamps, &LayerStamps::ready, this, [this](const QModelIndex &row) { update(row); });
    connect(&list, &LayerList::selectionIndexDidChange, this, &LayerTable::followSelection);
    connect(&list, &LayerList::selectionIndexesDidChange, this, &LayerTable::followSelection);
    // Rows that move stay hidden or shown by themselves.
    connect(&list, &LayerList::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) { searchRows(first, last); });
    connect(&list, &LayerList::modelReset, this, [this] { searchRows(0, m_list.rowCount() - 1); });
    connect(&list, &LayerList::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) { searchRows(first.row(), last.row()); });
    followSelection();
}

void LayerTable::showRowsWith(const QString &text)
{
    m_searched = wordsOf(text);
    hideOthers(0, m_list.rowCount() - 1);
    for (int row = 0; shownRow() < 0 && row < m_list.rowCount(); ++row) {
        if (!isRowHidden(row))
            m_list.setSelectionIndex(row);
    }
    if (shownRow() < 0)
        return;
    std::vector<qsizetype> rows = m_list.selectionIndexes();
    std::erase_if(rows, [this](qsizetype row) { return isRowHidden(static_cast<int>(row)); });
    m_list.setSelectionIndexes(std::move(rows), shownRow());
}

int LayerTable::shownRow() const
{
    const int row = currentIndex().row();
    return row < 0 || isRowHidden(row) ? -1 : row;
}

bool LayerTable::isInSight(const QModelIndex &row) const
{
    return viewport()->rect().intersects(visualRect(row));
}

/// All of them are shown while nothing is searched.
void LayerTable::searchRows(int first, int last)
{
    if (!m_searched.isEmpty())
        hideOthers(first, last);
}

void LayerTable::hideOthers(int first, int last)
{
    for (int row = first; row <= last; ++row) {
        const bool isSearched = isFound(m_searched, *m_list.layer(row));
        if (isRowHidden(row) == isSearched)
            setRowHidden(row, !isSearched);
    }
}

void LayerTable::followSelection()
{
    const QScopedValueRollback guard(m_follows, true);
    selectionModel()->select(rangesOf(m_list), QItemSelectionModel::ClearAndSelect);
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
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (!isRowHidden(row))
                rows.push_back(row);
        }
    }
    if (rows.empty())
        followSelection();
    else
        m_list.setSelectionIndexes(std::move(rows), currentIndex().row());
}
