#include "windows/ports/PortsPane.h"

#include "app/LWAppDelegate.h"
#include "base/NumberText.h"
#include "facts/PortSummary.h"
#include "windows/ElidedLabel.h"
#include "windows/Theme.h"
#include "windows/ports/LoadBar.h"
#include "windows/ports/ProcessorDialog.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>
#include <numeric>

namespace {
constexpr int rowHeight = 24;
/// A head and a row: what the smallest window leaves.
constexpr int leastTableHeight = 48;
constexpr int usedWidth = 88;
/// Beyond these rows columns are not measured.
constexpr int measuredRows = 200;

QPushButton *headButton(const QString &text, const QString &tip)
{
    auto *button = new QPushButton(text);
    button->setToolTip(tip);
    return button;
}
} // namespace

PortsPane::PortsPane(LWAppDelegate &document, QWidget *parent) : QWidget(parent), m_document(document)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(head());
    addTable();
    column->addWidget(m_table);
    setOpen(false);
    connect(&document, &LWAppDelegate::changed, this, &PortsPane::follow);
}

QWidget *PortsPane::head()
{
    auto *bar = new QWidget(this);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, Theme::gap, 0);
    row->setSpacing(Theme::gap);
    m_fold = new QToolButton;
    m_fold->setText("Ports");
    m_fold->setFont(Theme::titleFont());
    m_fold->setObjectName("groupHead");
    m_fold->setCheckable(true);
    m_fold->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_fold->setToolTip("Folds and unfolds the table of ports");
    connect(m_fold, &QToolButton::clicked, this, &PortsPane::setOpen);
    m_summary = new ElidedLabel;
    m_summary->setAccessibleName("State of the ports");
    m_addNeeded = headButton({}, "Adds what is missing, with the same settings");
    connect(m_addNeeded, &QPushButton::clicked, this, &PortsPane::addNeeded);
    QPushButton *processors = headButton("Processors", "Adds what feeds the walls, or takes it away");
    m_processors = new QMenu(processors);
    processors->setMenu(m_processors);
    connect(m_processors, &QMenu::aboutToShow, this, &PortsPane::listProcessors);
    row->addWidget(m_fold);
    row->addWidget(m_summary, 1);
    row->addWidget(m_addNeeded);
    row->addWidget(processors);
    return bar;
}

void PortsPane::addTable()
{
    m_table = new QTableView;
    m_table->setModel(&m_model);
    m_table->setAccessibleName("Ports");
    m_table->setFrameShape(QFrame::NoFrame);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->setFont(Theme::smallFont());
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setMinimumHeight(leastTableHeight);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(rowHeight);
    QHeaderView &columns = *m_table->horizontalHeader();
    columns.setFont(Theme::smallFont());
    columns.setHighlightSections(false);
    columns.setMinimumSectionSize(Theme::controlHeight);
    columns.setResizeContentsPrecision(measuredRows);
    columns.setStretchLastSection(true);
    m_table->setItemDelegateForColumn(PortsModel::Used, new LoadBar(m_table));
    m_table->installEventFilter(this);
    connect(m_table, &QTableView::clicked, this, &PortsPane::askForRow);
}

void PortsPane::setOpen(bool isOpen)
{
    const bool isOther = m_isOpen != isOpen;
    m_isOpen = isOpen;
    m_fold->setChecked(isOpen);
    m_fold->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
    m_table->setVisible(isOpen);
    setMaximumHeight(isOpen ? QWIDGETSIZE_MAX : layout()->sizeHint().height());
    follow();
    if (isOther)
        emit openDidChange(isOpen);
}

void PortsPane::toggle()
{
    setOpen(!m_isOpen);
    if (m_isOpen)
        m_table->setFocus();
}

/// In sight from the first processor on, and as long as it is open.
void PortsPane::follow()
{
    setVisible(m_isOpen || !m_document.wiring().processors().empty());
    if (isVisible())
        refresh();
}

void PortsPane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    refresh();
}

void PortsPane::refresh()
{
    const ShowPorts &ports = m_document.wiring().ports();
    std::vector<PortRow> rows = PortRows::of(m_document.allScreensArray(), ports);
    showSummary(PortSummary::of(rows, ports));
    if (!m_isOpen)
        return;
    m_model.show(std::move(rows), m_document.allScreensArray());
    fitColumns();
}

/// Columns that say nothing are not there.
void PortsPane::fitColumns()
{
    for (const int column : {PortsModel::Processor, PortsModel::Backup, PortsModel::Loaded, PortsModel::HighestRate})
        m_table->setColumnHidden(column, !m_model.isUsed(column));
    m_table->resizeColumnsToContents();
    m_table->setColumnWidth(PortsModel::Used, usedWidth);
}

void PortsPane::showSummary(const PortSummary &summary)
{
    QStringList parts{summary.count, summary.worst};
    parts.removeAll(QString());
    m_summary->setText(parts.join(", "));
    m_summary->setToolTip(m_summary->text());
    const std::array<QColor, 3> colours{Theme::dimText, Theme::warning, Theme::danger};
    Theme::colourText(*m_summary, colours.at(static_cast<std::size_t>(summary.level)));
    m_needed = summary.needed;
    m_addNeeded->setVisible(m_needed.has_value());
    if (m_needed)
        m_addNeeded->setText("Add " + NumberText::grouped(m_needed->processors));
}

void PortsPane::addNeeded()
{
    if (m_needed)
        tellIfFailed(m_document.wiring().addLike(m_needed->processor, m_needed->processors));
}

void PortsPane::tellIfFailed(const Result<void> &done)
{
    if (!done)
        emit failureTold(done.error().text);
}

/// By family, as the catalogue has them; each entry is one step.
void PortsPane::listProcessors()
{
    m_processors->clear();
    qDeleteAll(m_processors->findChildren<QMenu *>(Qt::FindDirectChildrenOnly)); // which clearing leaves behind
    QMenu *family = nullptr;
    for (const ProcessorModel &model : ProcessorCatalogue::builtIn().models()) {
        if (!family || family->title() != model.family)
            family = m_processors->addMenu(model.family);
        family->addAction(model.model, this, [this, &model] {
            ProcessorSettings settings;
            settings.model = model.model;
            settings.bits = model.bits.empty() ? settings.bits : model.bits.front();
            tellIfFailed(m_document.wiring().add(settings));
        });
    }
    m_processors->addSeparator();
    const auto &processors = m_document.wiring().processors();
    const auto add = [this](QString title, auto act) { m_processors->addAction(title.replace('&', "&&"), this, act); };
    for (std::size_t i = 0; i < processors.size(); ++i) {
        const QString name = processors[i].name + ", " + processors[i].model;
        add("Settings of " + name + "...", [this, i] { askForSettings(i); });
    }
    m_processors->addSeparator();
    for (std::size_t i = 0; i < processors.size(); ++i)
        add("Remove " + processors[i].name + ", " + processors[i].model, [this, i] { m_document.wiring().remove(i); });
    if (!processors.empty()) {
        m_processors->addSeparator();
        add("Keep the ports of all walls", [this] { keepAllPorts(); });
    }
}

void PortsPane::askForSettings(std::size_t processor)
{
    const auto &processors = m_document.wiring().processors();
    QStringList others;
    for (std::size_t i = 0; i < processors.size(); ++i) {
        if (i != processor)
            others.append(processors[i].name);
    }
    auto *dialog = new ProcessorDialog(processors[processor], others, *window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this,
            [this, dialog, processor] { tellIfFailed(m_document.wiring().change(processor, dialog->settings())); });
    dialog->open();
}

void PortsPane::keepAllPorts()
{
    std::vector<qsizetype> rows(m_document.allScreensArray().size());
    std::iota(rows.begin(), rows.end(), qsizetype{0});
    tellIfFailed(m_document.wiring().keepPorts(rows));
}

void PortsPane::askForRow(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    const PortRow row = m_model.row(index.row()); // whoever hears it may change the rows
    const PixelBox &box = row.box;
    emit asked(row.layers, QRectF(QPointF(double(box.columns.from), double(box.rows.from)),
                                  QPointF(double(box.columns.to), double(box.rows.to))));
}

bool PortsPane::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_table && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
            askForRow(m_table->currentIndex());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
