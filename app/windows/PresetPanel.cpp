#include "app/windows/PresetPanel.h"

#include "app/LWAppDelegate.h"
#include "app/windows/Icons.h"
#include "app/windows/LayerTable.h"
#include "app/windows/Theme.h"
#include "app/windows/WindowInterface.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

PresetPanel::PresetPanel(LWAppDelegate &document, WindowInterface &interface, QWidget *parent)
    : QWidget(parent), m_document(document), m_interface(interface), m_search(new QLineEdit),
      m_table(new LayerTable(document.presetarraycontroller(), "Presets", LayerDelegate::Kind::Presets))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, Theme::edge, 0, 0);
    column->setSpacing(Theme::gap);
    column->addWidget(head());
    column->addWidget(m_table);
    m_table->setObjectName("presetTView");
    m_search->setPlaceholderText("Search presets");
    m_search->setAccessibleName("Search presets");
    m_search->setToolTip("Shows the presets whose names contain this. Enter adds the chosen one.");
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, m_table, &LayerTable::showNamesWith);
    connect(m_search, &QLineEdit::returnPressed, this, &PresetPanel::addShown);
    connect(m_table, &QAbstractItemView::activated, this, &PresetPanel::addShown);
    m_search->installEventFilter(this);
}

bool PresetPanel::eventFilter(QObject *watched, QEvent *event)
{
    const bool isDown = event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down;
    if (watched != m_search || !isDown)
        return QWidget::eventFilter(watched, event);
    m_table->setFocus();
    return true;
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
    layout->addWidget(Theme::title("Presets", m_table));
    layout->addWidget(m_search, 1);

    auto *more = new QToolButton;
    more->setIcon(Icons::icon("three-dots"));
    more->setAccessibleName("Preset library");
    more->setToolTip("Opens, saves and changes the preset library");
    more->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(more);
    menu->addAction("&Open Library...", this, [this] {
        m_interface.prepareOpenPanel("Open preset library");
        m_document.openPresets();
    });
    menu->addAction("&Save Library...", this, [this] {
        m_interface.prepareSavePanel("Save preset library", {}, WindowInterface::Appended::Never);
        m_document.savePresets();
    });
    menu->addSeparator();
    menu->addAction("&Remove Preset", this, &PresetPanel::removeShown);
    more->setMenu(menu);
    layout->addWidget(more);
    return row;
}

void PresetPanel::search()
{
    m_search->setFocus();
    m_search->selectAll();
}
