#include "windows/PresetPanel.h"

#include "app/LWAppDelegate.h"
#include "show/LayerList.h"
#include "windows/Icons.h"
#include "windows/LayerTable.h"
#include "windows/ListsPane.h"
#include "windows/TextField.h"
#include "windows/Theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

PresetPanel::PresetPanel(LWAppDelegate &document, QWidget *parent)
    : QWidget(parent), m_document(document), m_search(new QLineEdit),
      m_table(new LayerTable(document.presetarraycontroller(), "Presets", LayerDelegate::Kind::Presets)),
      m_nothingFound(new QLabel("No preset has that name, size or power"))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, Theme::edge, 0, 0);
    column->setSpacing(Theme::gap);
    column->addWidget(head());
    m_nothingFound->setContentsMargins(Theme::edge, 0, Theme::edge, 0);
    m_nothingFound->setWordWrap(true);
    m_nothingFound->hide();
    column->addWidget(m_nothingFound);
    column->addWidget(m_table);
    m_table->addAction("&Add to layers", this, &PresetPanel::addShown);
    m_table->addAction("&Remove preset", this, &PresetPanel::removeShown);
    m_table->setObjectName("presetTView");
    m_search->setPlaceholderText("Search presets");
    m_search->setAccessibleName("Search presets");
    m_search->setToolTip("By name, pixels or watts; Enter adds the chosen one");
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, this, &PresetPanel::showFound);
    connect(m_search, &QLineEdit::returnPressed, this, &PresetPanel::addShown);
    connect(m_table, &QAbstractItemView::activated, this, &PresetPanel::addShown);
    m_search->installEventFilter(this);
    // Later, when the list has its new selection.
    const auto searchAgain = [this] { showFound(m_search->text()); };
    const LayerList &presets = document.presetarraycontroller();
    connect(&presets, &LayerList::modelReset, this, searchAgain, Qt::QueuedConnection);
    connect(&presets, &LayerList::rowsInserted, this, searchAgain, Qt::QueuedConnection);
    connect(&presets, &LayerList::rowsRemoved, this, searchAgain, Qt::QueuedConnection);
    connect(&document.arraycontroller(), &LayerList::rowsInserted, m_search, &QLineEdit::clear, Qt::QueuedConnection);
}

bool PresetPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_search)
        return QWidget::eventFilter(watched, event);
    // With nothing to search for, the history's keys are the document's: Enter has just added a preset.
    if (event->type() == QEvent::ShortcutOverride && TextField::isOfHistory(*event) && m_search->text().isEmpty())
        return true;
    if (event->type() != QEvent::KeyPress)
        return false;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Down:
        m_table->setFocus();
        return true;
    case Qt::Key_Escape:
        m_search->clear();
        return true;
    default:
        return false;
    }
}

void PresetPanel::showFound(const QString &searched)
{
    m_table->showRowsWith(searched);
    m_nothingFound->setVisible(m_table->shownRow() < 0);
}

void PresetPanel::addShown()
{
    if (m_table->shownRow() >= 0)
        m_document.insertPreset(m_table->shownRow());
}

void PresetPanel::removeShown()
{
    if (m_table->shownRow() >= 0)
        m_document.removePreset();
}

QWidget *PresetPanel::head()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(Theme::edge, 0, Theme::edge, 0);
    layout->setSpacing(Theme::gap);
    QLabel *title = Theme::title("Presets", m_table);
    title->setObjectName(ListsPane::titleName);
    layout->addWidget(title);
    layout->addWidget(m_search, 1);

    auto *more = new QToolButton;
    more->setIcon(Icons::icon("three-dots"));
    more->setAccessibleName("Preset library");
    more->setToolTip("Opens, saves and changes the preset library");
    more->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(more);
    menu->addAction("&Keep selected layers", &m_document, &LWAppDelegate::keepAsPresets);
    menu->addSeparator();
    menu->addAction("&Open library...", &m_document, &LWAppDelegate::openPresets);
    menu->addAction("&Save library...", &m_document, &LWAppDelegate::savePresets);
    menu->addSeparator();
    menu->addAction("&Remove preset", this, &PresetPanel::removeShown);
    menu->addAction("Reset to the &built-in presets", &m_document, &LWAppDelegate::resetPresets);
    more->setMenu(menu);
    layout->addWidget(more);
    return row;
}

void PresetPanel::search()
{
    m_search->setFocus();
    m_search->selectAll();
}
