#include "windows/displays/DisplaysPage.h"

#include "windows/Theme.h"
#include "windows/displays/ChartStrip.h"
#include "windows/displays/LiveDesk.h"
#include "windows/displays/WalkStrip.h"
#include "windows/tables/RowTable.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

DisplaysPage::DisplaysPage(LiveDesk &desk, QWidget *parent)
    : TablePage(parent), m_live(desk.live()), m_pointing(desk.pointing()), m_model(desk.live(), this)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    m_table = new RowTable(m_model, "Displays");
    m_table->setObjectName("ticked");
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    column->setSpacing(0);
    column->addWidget(m_table);
    column->addWidget(new ChartStrip(desk));
    column->addWidget(new WalkStrip(desk.walk()));
    setFocusProxy(m_table);
    m_table->installEventFilter(this);
    addTools(desk);
    connect(m_table, &QTableView::doubleClicked, this, &DisplaysPage::turn);
    connect(&m_model, &DisplaysModel::toggled, &desk, &LiveDesk::toggle);
    connect(&m_model, &DisplaysModel::failureTold, this, &DisplaysPage::failureTold);
    connect(&m_live, &LiveOutput::changed, this, &DisplaysPage::showLive);
    connect(&m_model, &DisplaysModel::dataChanged, m_table, &RowTable::resizeColumnsToContents);
    m_table->resizeColumnsToContents();
    showLive();
}

QToolButton *DisplaysPage::addTool(const QString &text, const QString &tip)
{
    auto *button = new QToolButton;
    button->setText(text);
    button->setToolTip(tip);
    button->setCheckable(true);
    m_tools->layout()->addWidget(button);
    return button;
}

void DisplaysPage::addTools(LiveDesk &desk)
{
    m_tools = new QWidget(this);
    auto *row = new QHBoxLayout(m_tools);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::gap / 2);
    m_identify = addTool("Identify", "Every display tells for three seconds which it is (I)");
    m_black = addTool("Blackout", "The wall is black until this is pressed again (B)");
    m_freeze = addTool("Freeze", "The wall keeps the picture that it has, whatever is edited (F)");
    m_point = addTool("Point", "Lights the panel under the pointer on the wall; Q held on the canvas does it as long");
    m_level = new QComboBox;
    m_level->setAccessibleName("Level");
    m_level->setToolTip("How bright the wall is: 100 to 10 per cent of each value (1 to 5)");
    for (const int level : LiveOutput::levels)
        m_level->addItem(QString("%1 %").arg(level), level);
    row->addWidget(m_level);
    connect(m_identify, &QToolButton::clicked, &m_live, &LiveOutput::identify);
    connect(m_point, &QToolButton::clicked, &desk.pointing(), &Pointing::setOn);
    connect(&desk.pointing(), &Pointing::changed, this, &DisplaysPage::showLive);
    connect(m_black, &QToolButton::clicked, &m_live, &LiveOutput::setBlack);
    connect(m_freeze, &QToolButton::clicked, &m_live, &LiveOutput::setFrozen);
    connect(m_level, &QComboBox::activated, this,
            [this](int place) { m_live.setLevel(m_level->itemData(place).toInt()); });
}

TablePage::State DisplaysPage::state() const
{
    const std::vector<LiveOutput::Row> rows = m_live.rows();
    const auto on = std::ranges::count_if(rows, [](const auto &row) { return row.isOn && row.isConnected; });
    const bool isAnyGone = std::ranges::any_of(rows, [](const auto &row) { return row.isOn && !row.isConnected; });
    return {QString("%1 of %2 on").arg(on).arg(rows.size()), isAnyGone ? Level::Doubtful : Level::Fine};
}

void DisplaysPage::showLive()
{
    m_identify->setChecked(m_live.isIdentifying());
    m_black->setChecked(m_live.look().isBlack);
    m_freeze->setChecked(m_live.isFrozen());
    m_point->setChecked(m_pointing.isActive());
    m_level->setCurrentIndex(m_level->findData(m_live.look().level));
    emit stateDidChange();
}

/// A quarter further.
void DisplaysPage::turn(const QModelIndex &index)
{
    const LiveOutput::Row row = m_model.row(index.row());
    if (index.column() == DisplaysModel::Turned && row.isOn)
        m_live.setRegion(row.display.key(), {row.region.offset, (row.region.turn + 90) % 360});
}

/// A table would look for rows that begin with the letter, and tick the first column alone.
bool DisplaysPage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && press(static_cast<const QKeyEvent &>(*event)))
        return true;
    const bool isSpace =
        event->type() == QEvent::KeyPress && static_cast<const QKeyEvent &>(*event).key() == Qt::Key_Space;
    if (const QModelIndex row = m_table->currentIndex(); isSpace && row.isValid()) {
        emit m_model.toggled(m_model.row(row.row()).display.key());
        return true;
    }
    return TablePage::eventFilter(watched, event);
}

void DisplaysPage::keyPressEvent(QKeyEvent *event)
{
    if (!press(*event))
        TablePage::keyPressEvent(event);
}

bool DisplaysPage::press(const QKeyEvent &event)
{
    const bool isLetter = event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z;
    const bool isFigure = event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9;
    if (event.modifiers() == Qt::NoModifier && (isLetter || isFigure))
        return m_live.press(event, {});
    const bool isPlace = event.key() == Qt::Key_Home || (event.key() >= Qt::Key_Left && event.key() <= Qt::Key_Down);
    const QModelIndex row = m_table->currentIndex();
    return event.modifiers().testFlag(Qt::AltModifier) && isPlace && row.isValid() &&
           m_live.press(event, m_model.row(row.row()).display.key());
}
