#include "windows/checks/ChecksPage.h"

#include "app/LWAppDelegate.h"
#include "base/NumberText.h"
#include "screen/LWScreen.h"
#include "windows/Theme.h"
#include "windows/checks/RestedChecks.h"
#include "windows/tables/RowTable.h"

#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int mostFittedRows = 100;

qint64 countOf(const std::vector<Finding> &findings, Finding::Level level)
{
    return std::ranges::count(findings, level, &Finding::level);
}

/// "2 errors, 1 warning, 1 meant"
QString countsOf(const std::vector<Finding> &findings)
{
    QStringList parts;
    if (const qint64 errors = countOf(findings, Finding::Level::Error); errors > 0)
        parts.append(NumberText::counted(errors, "error"));
    if (const qint64 warnings = countOf(findings, Finding::Level::Warning); warnings > 0)
        parts.append(NumberText::counted(warnings, "warning"));
    if (parts.isEmpty())
        parts.append("nothing is wrong");
    if (const qint64 notes = countOf(findings, Finding::Level::Note); notes > 0)
        parts.append(NumberText::counted(notes, "note"));
    if (const qint64 meant = countOf(findings, Finding::Level::Meant); meant > 0)
        parts.append(NumberText::grouped(meant) + " meant");
    return parts.join(", ");
}

QToolButton *toolButton(const QString &text, const QString &tip)
{
    auto *button = new QToolButton;
    button->setText(text);
    button->setToolTip(tip);
    button->hide();
    return button;
}

/// What a row is about, whatever it says of it.
bool isSameMatter(const Finding &left, const Finding &right)
{
    return left.check == right.check && left.layer == right.layer && left.cell == right.cell &&
           left.processor == right.processor && left.port == right.port;
}

/// Where a finding is seen; empty: nowhere.
QRectF placeOf(const Finding &finding, const std::vector<LayerPointer> &layers)
{
    if (finding.box)
        return TablePage::pixelsOf(*finding.box);
    if (!finding.layer)
        return {};
    const Layer &layer = *layers[static_cast<std::size_t>(*finding.layer)];
    const auto *wall = qobject_cast<const LWScreen *>(&layer);
    return wall && finding.cell ? QRectF(wall->panelRect(*finding.cell)) : TablePage::pixelsOf(PixelBox::of(layer));
}
} // namespace

ChecksPage::ChecksPage(LWAppDelegate &document, RestedChecks &checks, QWidget *parent)
    : TablePage(parent), m_document(document), m_checks(checks)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    m_table = new RowTable(m_model, "Checks");
    m_table->setWordWrap(true); // what to do stands at the end of a sentence
    column->addWidget(m_table);
    setFocusProxy(m_table);
    addTools();
    connect(m_table, &RowTable::rowAsked, this, &ChecksPage::askForRow);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ChecksPage::showTools);
    connect(&checks, &RestedChecks::rested, this, &ChecksPage::showRested);
    showState();
}

void ChecksPage::addTools()
{
    m_tools = new QWidget(this);
    auto *row = new QHBoxLayout(m_tools);
    row->setContentsMargins(0, 0, 0, 0);
    m_feed = toolButton("Feed them", "Hangs these panels on the ends of the cables beside them, while they fit");
    connect(m_feed, &QToolButton::clicked, this, &ChecksPage::feed);
    m_meant = toolButton("Meant", "Somebody wants it so: what the chosen row says counts as nothing");
    m_meant->setCheckable(true);
    connect(m_meant, &QToolButton::clicked, this, &ChecksPage::mean);
    row->addWidget(m_feed);
    row->addWidget(m_meant);
}

void ChecksPage::showEvent(QShowEvent *event)
{
    TablePage::showEvent(event);
    m_meant->show();
    m_checks.catchUp();
}

void ChecksPage::resizeEvent(QResizeEvent *event)
{
    TablePage::resizeEvent(event);
    fitRows();
}

void ChecksPage::hideEvent(QHideEvent *event)
{
    TablePage::hideEvent(event);
    m_feed->hide();
    m_meant->hide();
}

void ChecksPage::showRested()
{
    showState();
    if (isVisible())
        showFindings();
}

void ChecksPage::showState()
{
    const std::vector<Finding> &findings = m_checks.findings();
    const qint64 errors = countOf(findings, Finding::Level::Error);
    const qint64 all = errors + countOf(findings, Finding::Level::Warning);
    m_title = all > 0 ? QString("Checks (%1)").arg(NumberText::grouped(all)) : QString("Checks");
    m_state = {all > 0 ? countsOf(findings) : QString("nothing is wrong"), errors > 0 ? Level::Wrong
                                                                           : all > 0  ? Level::Doubtful
                                                                                      : Level::Fine};
    emit stateDidChange();
}

/// The row that was chosen stays so, wherever it stands now.
void ChecksPage::showFindings()
{
    const std::optional<Finding> before = chosen() ? std::optional(*chosen()) : std::nullopt;
    m_model.show(m_checks.findings(), m_document.allScreensArray());
    m_table->resizeColumnToContents(ChecksModel::Level);
    m_table->resizeColumnToContents(ChecksModel::Where);
    fitRows();
    for (int row = 0; before && !chosen() && row < m_model.rowCount(); ++row) {
        if (isSameMatter(m_model.finding(row), *before))
            m_table->selectRow(row);
    }
    showTools();
}

/// As long as there are few: each is laid out for it.
void ChecksPage::fitRows()
{
    if (m_model.rowCount() <= mostFittedRows)
        m_table->resizeRowsToContents();
}

const Finding *ChecksPage::chosen() const
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : &m_model.finding(rows.front().row());
}

/// Only what is of one layer can be meant there.
void ChecksPage::showTools()
{
    const Finding *const finding = chosen();
    m_feed->setVisible(isVisible() && finding && finding->check == QLatin1StringView("panel-not-fed"));
    m_meant->setEnabled(finding && finding->layer);
    m_meant->setChecked(finding && finding->level == Finding::Level::Meant);
}

void ChecksPage::mean(bool isMeant)
{
    if (const Finding *const finding = chosen(); finding && finding->layer)
        m_document.checks().setMeant(*finding->layer, finding->check, isMeant);
    m_checks.catchUp();
}

void ChecksPage::feed()
{
    const Finding *const finding = chosen();
    if (!finding || !finding->layer)
        return;
    const Result<void> done = m_document.wiring().feed(*finding->layer);
    emit failureTold(done ? QString() : done.error().text);
    m_checks.catchUp();
}

void ChecksPage::askForRow(const QModelIndex &index)
{
    const Finding finding = m_model.finding(index.row()); // whoever hears it may change the rows
    const auto &layers = m_document.allScreensArray();
    if (finding.layer && *finding.layer >= std::ssize(layers))
        return; // it has gone, and is told no more in a moment
    const QRectF place = placeOf(finding, layers);
    if (!place.isEmpty())
        emit asked(finding.layer ? std::vector{*finding.layer} : std::vector<qsizetype>(), place);
}
