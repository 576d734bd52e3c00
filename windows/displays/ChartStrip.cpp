#include "windows/displays/ChartStrip.h"

#include "base/NumberText.h"
#include "windows/ElidedLabel.h"
#include "windows/Theme.h"
#include "windows/charts/ChartChoice.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QTime>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
int secondsOfDay()
{
    return QTime::currentTime().msecsSinceStartOfDay() / 1000;
}
} // namespace

ChartStrip::ChartStrip(LiveDesk &desk, QWidget *parent)
    : QWidget(parent), m_desk(desk), m_choice(new ChartChoice(Qt::Horizontal, [](const Chart &) { return true; })),
      m_area(new QComboBox), m_over(new QToolButton), m_show(new QToolButton), m_told(new ElidedLabel)
{
    // What is told comes above and goes again: no control moves under the pointer.
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(Theme::gap, Theme::gap / 2, Theme::gap, 0);
    column->setSpacing(Theme::gap / 2);
    column->addWidget(m_told);
    auto *row = new QHBoxLayout;
    row->setSpacing(Theme::gap / 2);
    column->addLayout(row);
    m_show->setCheckable(true);
    row->addWidget(m_show);
    row->addWidget(m_choice);
    m_area->setAccessibleName("Over");
    m_area->setToolTip("What the chart is laid over");
    m_area->addItems({"Output", "Each wall", "Selected walls"});
    row->addWidget(m_area);
    m_over->setText("Over the picture");
    m_over->setToolTip("The picture is seen where the chart is black");
    m_over->setCheckable(true);
    row->addWidget(m_over);
    row->addStretch(1);
    m_told->setAccessibleName("About the chart");
    connect(m_choice, &ChartChoice::chosen, this, &ChartStrip::takeChoice);
    connect(m_area, &QComboBox::activated, this, &ChartStrip::takeChoice);
    connect(m_over, &QToolButton::clicked, this, &ChartStrip::takeChoice);
    connect(m_show, &QToolButton::clicked, this, &ChartStrip::toggle);
    connect(&desk, &LiveDesk::anotherShow, this, [this] { m_isPowerKnown = false; });
    connect(&desk.chart(), &LiveChart::changed, this, &ChartStrip::showState);
    connect(&desk.chart(), &LiveChart::moved, this, &ChartStrip::showLate);
    m_told->hide();
    showState();
}

LiveDesk::ChartArea ChartStrip::area() const
{
    return static_cast<LiveDesk::ChartArea>(m_area->currentIndex());
}

/// Whether nobody has heard yet what a full white wall draws.
bool ChartStrip::mustAsk() const
{
    const ChartText chosen = m_choice->value();
    return chosen.chart->isFullWhite(chosen.options) && !m_isPowerKnown && !m_desk.power(area()).isEmpty();
}

void ChartStrip::ask()
{
    m_isPowerKnown = true;
    m_desk.chart().end();
    m_show->setChecked(false);
    tell(QString("Full white draws %1. Press Show once more.").arg(m_desk.power(area())));
}

void ChartStrip::toggle(bool isOn)
{
    tell({});
    if (!isOn)
        m_desk.chart().end();
    else if (mustAsk())
        ask();
    else
        show();
}

/// As it is chosen now, where one stands; what flashes begins by hand alone, each time.
void ChartStrip::takeChoice()
{
    tell({});
    showState();
    if (!m_desk.chart().chart())
        return;
    if (m_choice->value().chart->flashes)
        m_desk.chart().end();
    else if (mustAsk())
        ask();
    else
        show();
}

void ChartStrip::show()
{
    ChartText chosen = m_choice->value();
    chosen.options.start = secondsOfDay();
    m_desk.showChart(chosen, area(), chosen.chart->moves() && m_over->isChecked());
}

void ChartStrip::showState()
{
    const LiveChart &live = m_desk.chart();
    const Chart &chosen = *m_choice->value().chart;
    const bool isFlashing = live.chart() && live.chart()->flashes;
    m_show->setText(isFlashing ? "Stop flashing" : chosen.flashes ? "Start strobe (flashing)" : "Show");
    m_show->setToolTip("Lays the chart over the picture on the wall");
    m_show->setChecked(live.chart() != nullptr);
    m_over->setVisible(chosen.moves());
    if (live.chart() && live.pictures().empty())
        tell("There is no wall to lay it over: select one, or choose the output.");
    else if (live.chart())
        showLate();
}

void ChartStrip::showLate()
{
    const qint64 late = m_desk.chart().lateFrames();
    tell(late > 0 ? NumberText::counted(late, "frame") + " late" : QString());
}

void ChartStrip::tell(const QString &sentence)
{
    if (m_told->text() == sentence)
        return; // each frame of a moving chart comes here
    m_told->setText(sentence);
    m_told->setToolTip(sentence);
    m_told->setVisible(!sentence.isEmpty());
}
