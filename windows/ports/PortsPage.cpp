#include "windows/ports/PortsPage.h"

#include "app/LWAppDelegate.h"
#include "app/OwnModels.h"
#include "base/NumberText.h"
#include "facts/PortSummary.h"
#include "windows/MenuText.h"
#include "windows/Theme.h"
#include "windows/ports/LoadBar.h"
#include "windows/ports/ModelDialog.h"
#include "windows/ports/ProcessorDialog.h"
#include "windows/tables/RowTable.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include <numeric>

namespace {
constexpr int usedWidth = 88;

QPushButton *headButton(const QString &text, const QString &tip)
{
    auto *button = new QPushButton(text);
    button->setToolTip(tip);
    return button;
}

TablePage::Level levelOf(PortRow::Level level)
{
    switch (level) {
    case PortRow::Level::Fits:
        return TablePage::Level::Fine;
    case PortRow::Level::NearlyFull:
        return TablePage::Level::Doubtful;
    case PortRow::Level::Over:
        break;
    }
    return TablePage::Level::Wrong;
}
} // namespace

PortsPage::PortsPage(LWAppDelegate &document, QWidget *parent) : TablePage(parent), m_document(document)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    addTools();
    addTable();
    column->addWidget(m_table);
    setFocusProxy(m_table);
}

void PortsPage::addTools()
{
    m_tools = new QWidget(this);
    auto *row = new QHBoxLayout(m_tools);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::gap);
    m_addNeeded = headButton({}, "Adds what is missing, with the same settings");
    connect(m_addNeeded, &QPushButton::clicked, this, &PortsPage::addNeeded);
    QPushButton *processors = headButton("Processors", "Adds what feeds the walls, or takes it away");
    m_processors = new QMenu(processors);
    processors->setMenu(m_processors);
    connect(m_processors, &QMenu::aboutToShow, this, &PortsPage::listProcessors);
    row->addWidget(m_addNeeded);
    row->addWidget(processors);
}

void PortsPage::addTable()
{
    m_table = new RowTable(m_model, "Ports");
    m_table->setItemDelegateForColumn(PortsModel::Used, new LoadBar(m_table));
    connect(m_table, &RowTable::rowAsked, this, &PortsPage::askForRow);
}

void PortsPage::showEvent(QShowEvent *event)
{
    TablePage::showEvent(event);
    refresh();
}

void PortsPage::refresh()
{
    const ShowPorts &ports = m_document.wiring().ports();
    std::vector<PortRow> rows = PortRows::of(m_document.allScreensArray(), ports);
    showSummary(PortSummary::of(rows, ports, m_document.allScreensArray()));
    if (!isVisible())
        return;
    m_model.show(std::move(rows), m_document.allScreensArray());
    fitColumns();
}

/// Columns that say nothing are not there.
void PortsPage::fitColumns()
{
    for (const int column : {PortsModel::Processor, PortsModel::Backup, PortsModel::Loaded, PortsModel::HighestRate})
        m_table->setColumnHidden(column, !m_model.isUsed(column));
    m_table->resizeColumnsToContents();
    m_table->setColumnWidth(PortsModel::Used, usedWidth);
}

void PortsPage::showSummary(const PortSummary &summary)
{
    QStringList parts{summary.count, summary.worst};
    parts.removeAll(QString());
    m_state = {parts.join(", "), levelOf(summary.level)};
    m_needed = summary.needed;
    m_addNeeded->setVisible(m_needed.has_value());
    if (m_needed)
        m_addNeeded->setText("Add " + NumberText::grouped(m_needed->processors));
    emit stateDidChange();
}

void PortsPage::addNeeded()
{
    if (m_needed)
        tellIfFailed(m_document.wiring().addLike(m_needed->processor, m_needed->processors));
}

void PortsPage::tellIfFailed(const Result<void> &done)
{
    emit failureTold(done ? QString() : done.error().text); // what was told before is over
}

/// By family, as the catalogue has them; each entry is one step.
void PortsPage::listProcessors()
{
    m_processors->clear();
    qDeleteAll(m_processors->findChildren<QMenu *>(Qt::FindDirectChildrenOnly)); // which clearing leaves behind
    QMenu *family = nullptr;
    for (const ProcessorModel &model : ProcessorCatalogue::builtIn().models()) {
        if (!family || family->title() != model.family)
            family = m_processors->addMenu(model.family);
        family->addAction(menuText(model.model), this, [this, &model] { addProcessor(model, {}); });
    }
    listOwnModels(*m_processors->addMenu(OwnModel::family));
    m_processors->addSeparator();
    const auto &processors = m_document.wiring().processors();
    const auto add = [this](const QString &title, auto act) { m_processors->addAction(menuText(title), this, act); };
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

void PortsPage::addProcessor(const ProcessorModel &model, const OwnModel &own)
{
    ProcessorSettings settings;
    settings.model = model.model;
    settings.own = own;
    settings.bits = model.bits.empty() ? settings.bits : model.bits.front();
    tellIfFailed(m_document.wiring().add(settings));
}

/// Those that are kept for all shows, and another one.
void PortsPage::listOwnModels(QMenu &menu)
{
    const OwnModels::Found found = OwnModels::in(OwnModels::standardPath());
    for (const OwnModel &own : found.models)
        menu.addAction(menuText(own.model()->model), this, [this, own] { addProcessor(*own.model(), own); });
    for (const QString &fault : found.faults)
        emit failureTold(fault);
    menu.addSeparator();
    menu.addAction("Describe a model...", this, &PortsPage::describeModel);
}

void PortsPage::describeModel()
{
    auto *dialog = new ModelDialog(*window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        const Result<OwnModel> own = OwnModel::of(dialog->description());
        const Result<void> kept =
            own.and_then([](const OwnModel &model) { return OwnModels::keep(model, OwnModels::standardPath()); });
        if (kept)
            addProcessor(*own->model(), *own);
        tellIfFailed(kept);
    });
    dialog->open();
}

void PortsPage::askForSettings(std::size_t processor)
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

void PortsPage::keepAllPorts()
{
    std::vector<qsizetype> rows(m_document.allScreensArray().size());
    std::iota(rows.begin(), rows.end(), qsizetype{0});
    tellIfFailed(m_document.wiring().keepPorts(rows));
}

void PortsPage::askForRow(const QModelIndex &index)
{
    const PortRow row = m_model.row(index.row()); // whoever hears it may change the rows
    emit asked(row.layers, pixelsOf(row.box));
}
