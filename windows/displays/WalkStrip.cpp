#include "windows/displays/WalkStrip.h"

#include "windows/Theme.h"
#include "windows/displays/WallWalk.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

WalkStrip::WalkStrip(WallWalk &walk, QWidget *parent) : QWidget(parent), m_walk(walk)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(Theme::gap, Theme::gap / 2, Theme::gap, Theme::gap / 2);
    row->setSpacing(Theme::gap / 2);
    m_on = addTool("Walk", "Lights the panels of the show one after the other, along its cables");
    m_on->setCheckable(true);
    m_run = new QComboBox;
    m_run->setAccessibleName("Cable");
    m_run->setToolTip("The cable that is walked along");
    row->addWidget(m_run);
    m_back = addTool("◀", "The panel before (Page Up)");
    m_next = addTool("▶", "The next panel (Page Down)");
    m_byItself = addTool("Auto", "Goes on by itself");
    m_byItself->setCheckable(true);
    m_seconds = new QDoubleSpinBox;
    m_seconds->setAccessibleName("Seconds a panel");
    m_seconds->setRange(WallWalk::leastSeconds, WallWalk::mostSeconds);
    m_seconds->setDecimals(1);
    m_seconds->setSingleStep(0.2);
    m_seconds->setSuffix(" s");
    m_seconds->setValue(1);
    row->addWidget(m_seconds);
    m_where = new QLabel;
    m_where->setTextFormat(Qt::PlainText);
    m_where->setAccessibleName("Panel of the walk");
    row->addWidget(m_where, 1);
    addMarks();
    connect(m_on, &QToolButton::clicked, &walk, &WallWalk::setOn);
    connect(m_run, &QComboBox::activated, &walk, &WallWalk::choose);
    connect(m_back, &QToolButton::clicked, &walk, &WallWalk::goBack);
    connect(m_next, &QToolButton::clicked, &walk, &WallWalk::goOn);
    connect(m_byItself, &QToolButton::clicked, &walk, &WallWalk::setByItself);
    connect(m_seconds, &QDoubleSpinBox::valueChanged, &walk, &WallWalk::setSeconds);
    connect(&walk, &WallWalk::changed, this, &WalkStrip::showWalk);
    showWalk();
}

QToolButton *WalkStrip::addTool(const QString &text, const QString &tip)
{
    auto *button = new QToolButton;
    button->setText(text);
    button->setToolTip(tip);
    layout()->addWidget(button);
    return button;
}

void WalkStrip::addMarks()
{
    m_wrong = addTool("Wrong", "This panel is not where it should be, or not any more so (X)");
    m_wrong->setCheckable(true);
    connect(m_wrong, &QToolButton::clicked, &m_walk, &WallWalk::toggleMark);
    m_marks = addTool({}, "The panels that were marked as wrong");
    m_marks->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(m_marks);
    m_marks->setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        for (const QString &mark : m_walk.walk().marks())
            menu->addAction(QString(mark).replace('&', "&&"))->setEnabled(false);
        menu->addSeparator();
        // Below another entry: what was marked in an hour is not lost by a click beside it.
        menu->addMenu("Clear the list")->addAction("All of it", &m_walk, &WallWalk::clearMarks);
        menu->addAction("Copy the list", &m_walk, &WallWalk::copyMarks);
    });
}

void WalkStrip::showWalk()
{
    const PanelWalk &walk = m_walk.walk();
    const bool isOn = m_walk.isOn();
    m_on->setChecked(isOn);
    if (m_run->count() != static_cast<int>(walk.runs().size()) || !walk.panel() ||
        m_run->itemText(static_cast<int>(walk.run())) != walk.runs()[walk.run()].port) {
        m_run->clear();
        for (const PanelWalk::Run &run : walk.runs())
            m_run->addItem(run.port);
    }
    m_run->setCurrentIndex(walk.panel() ? static_cast<int>(walk.run()) : -1);
    for (QWidget *control : std::initializer_list<QWidget *>{m_run, m_back, m_next, m_byItself, m_seconds, m_wrong})
        control->setEnabled(isOn && walk.panel());
    m_byItself->setChecked(m_walk.isByItself());
    m_where->setText(!isOn ? QString() : walk.panel() ? walk.words() : QString("No panel hangs on a cable"));
    m_wrong->setChecked(walk.isMarked());
    m_marks->setText(QString("%1 wrong").arg(walk.marks().size()));
    m_marks->setVisible(!walk.marks().isEmpty());
}
