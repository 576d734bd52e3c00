#include "windows/tables/TablesPane.h"

#include "app/LWAppDelegate.h"
#include "windows/ElidedLabel.h"
#include "windows/Theme.h"
#include "windows/checks/ChecksPage.h"
#include "windows/displays/DisplaysPage.h"
#include "windows/displays/LiveDesk.h"
#include "windows/ports/PortsPage.h"

#include <QHBoxLayout>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>

TablesPane::TablesPane(LWAppDelegate &document, RestedChecks &checks, LiveDesk &desk, QWidget *parent)
    : QWidget(parent), m_document(document), m_desk(desk)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto *head = new QWidget;
    m_head = new QHBoxLayout(head);
    m_stack = new QStackedWidget;
    column->addWidget(head);
    column->addWidget(m_stack);
    addHead();
    addPage(new PortsPage(document));
    addPage(new ChecksPage(document, checks));
    addPage(new DisplaysPage(desk));
    setOpen(false);
    connect(&document, &LWAppDelegate::changed, this, &TablesPane::follow);
    connect(&desk.live(), &LiveOutput::changed, this, &TablesPane::showOrHide);
}

void TablesPane::addHead()
{
    m_head->setContentsMargins(0, 0, Theme::gap, 0);
    m_head->setSpacing(Theme::gap);
    m_state = new ElidedLabel;
    m_state->setAccessibleName("State of the tables");
    m_head->addWidget(m_state, 1);
}

void TablesPane::addPage(TablePage *page)
{
    const auto place = static_cast<Page>(m_pages.size());
    auto *tab = new QToolButton;
    tab->setFont(Theme::titleFont());
    tab->setObjectName("groupHead");
    tab->setCheckable(true);
    tab->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tab->setToolTip("Shows this table; once more folds it");
    connect(tab, &QToolButton::clicked, this, [this, place] { turnTo(place); });
    m_head->insertWidget(place, tab);
    m_head->addWidget(page->tools());
    m_stack->addWidget(page);
    m_pages.push_back(page);
    m_tabs.push_back(tab);
    connect(page, &TablePage::stateDidChange, this, &TablesPane::showState);
    connect(page, &TablePage::failureTold, this, &TablesPane::failureTold);
    connect(page, &TablePage::asked, this, &TablesPane::asked);
}

void TablesPane::setOpen(bool isOpen)
{
    const bool isOther = m_isOpen != isOpen;
    m_isOpen = isOpen;
    m_stack->setVisible(isOpen);
    setMaximumHeight(isOpen ? QWIDGETSIZE_MAX : layout()->sizeHint().height());
    showTabs();
    showState();
    follow();
    if (isOther)
        emit didTurn();
}

void TablesPane::setCurrentPage(Page page)
{
    if (page == m_current)
        return;
    m_current = page;
    showTabs();
    showState();
    emit didTurn();
}

void TablesPane::toggle(Page page)
{
    turnTo(page);
    if (m_isOpen)
        m_pages[m_current]->setFocus();
}

/// The page that is open folds.
void TablesPane::turnTo(Page page)
{
    const bool shallOpen = !isOpenAt(page);
    setCurrentPage(page);
    setOpen(shallOpen);
}

/// In sight from the first processor or display on, and as long as it is open.
void TablesPane::showOrHide()
{
    setVisible(m_isOpen || !m_document.wiring().processors().empty() || m_desk.live().isAnyOn());
}

void TablesPane::follow()
{
    showOrHide();
    if (!isVisible())
        return;
    for (TablePage *page : m_pages)
        page->refresh();
}

void TablesPane::showTabs()
{
    m_stack->setCurrentIndex(m_current);
    for (std::size_t i = 0; i < m_tabs.size(); ++i) {
        const bool isCurrent = i == m_current;
        m_tabs[i]->setChecked(isCurrent && m_isOpen);
        m_tabs[i]->setArrowType(!isCurrent ? Qt::NoArrow : m_isOpen ? Qt::DownArrow : Qt::RightArrow);
        m_pages[i]->tools()->setVisible(isCurrent);
    }
}

/// That of the page that is open; of folded ones the worst.
void TablesPane::showState()
{
    TablePage::State state = m_pages[m_current]->state();
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        m_tabs[i]->setText(m_pages[i]->title());
        if (!m_isOpen && m_pages[i]->state().level > state.level)
            state = m_pages[i]->state();
    }
    m_state->setText(state.text);
    m_state->setToolTip(state.text);
    constexpr std::array colours{Theme::dimText, Theme::warning, Theme::danger};
    Theme::colourText(*m_state, colours.at(static_cast<std::size_t>(state.level)));
}
