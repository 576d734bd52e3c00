#include "windows/tables/RowTable.h"

#include "windows/Theme.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace {
constexpr int heightOfRow = 24;
/// A head and a row: what the smallest window leaves.
constexpr int leastHeight = 48;
/// Beyond these rows columns are not measured.
constexpr int measuredRows = 200;
} // namespace

RowTable::RowTable(QAbstractItemModel &model, const QString &name, QWidget *parent) : QTableView(parent)
{
    setModel(&model);
    setAccessibleName(name);
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setFont(Theme::smallFont());
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setMinimumHeight(leastHeight);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(heightOfRow);
    verticalHeader()->setMinimumSectionSize(heightOfRow);
    QHeaderView &columns = *horizontalHeader();
    columns.setFont(Theme::smallFont());
    columns.setHighlightSections(false);
    columns.setMinimumSectionSize(Theme::controlHeight);
    columns.setResizeContentsPrecision(measuredRows);
    columns.setStretchLastSection(true);
    connect(this, &QTableView::clicked, this, &RowTable::rowAsked);
}

void RowTable::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const bool isAsking = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    if (!isAsking)
        return QTableView::keyPressEvent(event);
    if (currentIndex().isValid())
        emit rowAsked(currentIndex());
}
