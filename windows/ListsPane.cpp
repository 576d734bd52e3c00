#include "windows/ListsPane.h"

#include <QLabel>
#include <QSplitter>
#include <QTabBar>
#include <QVBoxLayout>

namespace {
enum Tab
{
    Layers,
    Presets
};
} // namespace

ListsPane::ListsPane(QWidget *parent)
    : QWidget(parent), m_column(new QVBoxLayout(this)), m_splitter(new QSplitter(Qt::Vertical, this))
{
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    m_column->addWidget(m_splitter);
    m_splitter->setHandleWidth(1);
    m_splitter->setChildrenCollapsible(false);
}

void ListsPane::setLayers(QWidget *layers)
{
    m_layers = layers;
    m_splitter->addWidget(layers);
}

void ListsPane::setPresets(QWidget *presets)
{
    m_presets = presets;
    m_splitter->addWidget(presets);
    m_splitter->setStretchFactor(0, 2); // presets are looked at less often
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({2 * height() / 3, height() / 3});
    m_splitter->restoreState(m_state);
    addTabs();
    showLists();
}

void ListsPane::addTabs()
{
    m_tabs = new QTabBar;
    m_tabs->addTab("Layers");
    m_tabs->addTab("Presets");
    m_tabs->setAccessibleName("Lists");
    m_tabs->setExpanding(true);
    m_tabs->setDrawBase(false);
    m_tabs->setAcceptDrops(true);
    m_tabs->setChangeCurrentOnDrag(true); // a preset is dragged over the tab into the layers
    connect(m_tabs, &QTabBar::currentChanged, this, &ListsPane::showLists);
    m_column->insertWidget(0, m_tabs);
}

void ListsPane::setFolded(bool isFolded)
{
    m_isFolded = isFolded;
    showLists();
}

void ListsPane::showLayers()
{
    m_tabs->setCurrentIndex(Layers);
}

void ListsPane::showPresets()
{
    m_tabs->setCurrentIndex(Presets);
}

void ListsPane::showLists()
{
    if (!m_presets)
        return;
    m_tabs->setVisible(m_isFolded);
    for (QLabel *title : findChildren<QLabel *>(titleName))
        title->setVisible(!m_isFolded);
    m_layers->setVisible(!m_isFolded || m_tabs->currentIndex() == Layers);
    m_presets->setVisible(!m_isFolded || m_tabs->currentIndex() == Presets);
}

QByteArray ListsPane::saveState() const
{
    return m_presets ? m_splitter->saveState() : m_state;
}

void ListsPane::restoreState(const QByteArray &state)
{
    m_state = state;
    if (m_presets)
        m_splitter->restoreState(state);
}
