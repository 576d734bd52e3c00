#include "windows/displays/ChartStrip.h"

#include "base/NumberText.h"
#include "windows/Theme.h"
#include "windows/charts/ChartChoice.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTime>
#include <QToolButton>

namespace {
int secondsOfDay()
{
    return QTime::currentTime().msecsSinceStartOfDay() / 1000;
}

bool isFullWhite(const ChartText &chosen)
{
    return (chosen.chart->choices & Chart::Colour) != 0 && chosen.options.colour == FieldColour::White &&
           chosen.options.level.value_or(100) == 100;
}
} // namespace

ChartStrip::ChartStrip(LiveDesk &desk, QWidget *parent)
    : QWidget(parent), m_desk(desk), m_choice(new ChartChoice(Qt::Horizontal, [](const Chart &) { return true; })),
      m_area(new QComboBox), m_show(new QToolButton), m_told(new QLabel)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(Theme::gap, Theme::gap / 2, Theme::gap, 0);
    row->setSpacing(Theme::gap / 2);
    row->addWidget(m_choice);
    m_area->setAccessibleName("Over");
    m_area->setToolTip("What the chart is laid over");
    m_area->addItems({"Output", "Each wall", "Selected walls"});
    row->addWidget(m_area);
    m_show->setCheckable(true);
    row->addWidget(m_show);
    m_told->setTextFormat(Qt::PlainText);
    m_told->setAccessibleName("About the chart");
    row->addWidget(m_told, 1);
    connect(m_choice, &ChartChoice::chosen, this, &ChartStrip::takeChoice);
    connect(m_area, &QComboBox::activated, this, &ChartStrip::takeChoice);
    connect(m_show, &QToolButton::clicked, this, &ChartStrip::toggle);
    connect(&desk.chart(), &LiveChart::changed, this, &ChartStrip::showState);
    connect(&desk.chart(), &LiveChart::moved, this, &ChartStrip::showLate);
    showState();
}

/// Whether nobody has heard yet what a full white wall draws.
bool ChartStrip::mustAsk() const
{
    return isFullWhite(m_choice->value()) && !m_wasAsked && !m_desk.power().isEmpty();
}

void ChartStrip::ask()
{
    m_wasAsked = true;
    m_desk.chart().end();
    m_show->setChecked(false);
    m_told->setText(QString("Full white draws %1. Press Show once more.").arg(m_desk.power()));
}

void ChartStrip::toggle(bool isOn)
{
    m_told->clear();
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
    if (m_desk.showChart(chosen, static_cast<LiveDesk::ChartArea>(m_area->currentIndex())))
        return;
    m_desk.chart().end();
    m_show->setChecked(false);
    m_told->setText("There is no wall to lay it over: select one, or choose the output.");
}

void ChartStrip::showState()
{
    const bool flashes = m_choice->value().chart->flashes;
    m_show->setText(flashes ? "Start strobe (flashing)" : "Show");
    m_show->setToolTip("Lays the chart over the picture on the wall");
    m_show->setChecked(m_desk.chart().chart() != nullptr);
    if (m_desk.chart().chart())
        showLate();
}

void ChartStrip::showLate()
{
    const qint64 late = m_desk.chart().lateFrames();
    m_told->setText(late > 0 ? NumberText::counted(late, "frame") + " late" : QString());
}
