#include "windows/displays/ChartStrip.h"

#include "base/NumberText.h"
#include "charts/Chart.h"
#include "windows/Theme.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QSpinBox>
#include <QToolButton>

namespace {
constexpr QSize sizeOfPicture{64, 36};
/// In the order of FieldColour.
const QStringList colourNames{"White", "Red", "Green", "Blue", "Cyan", "Magenta", "Yellow", "Black"};

/// A small one of a chart, over four panels.
QIcon pictureOf(const Chart &chart)
{
    ChartShape shape;
    shape.size = sizeOfPicture * 4;
    const QSize panel = shape.size / 2;
    for (int i = 0; i < 4; ++i) {
        const QPoint corner(i % 2 * panel.width(), i / 2 * panel.height());
        shape.panels.push_back({{corner, panel}, QString("%1%2").arg(QChar(u'A' + i % 2)).arg(i / 2 + 1), "A1", i + 1});
    }
    shape.walls = {QRect(QPoint(), shape.size)};
    const QImage picture = chart.picture(shape, 10);
    return QPixmap::fromImage(picture.scaled(sizeOfPicture, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

QSpinBox *spinBox(const QString &name, int least, int most, int value, const QString &suffix)
{
    auto *box = new QSpinBox;
    box->setAccessibleName(name);
    box->setToolTip(name);
    box->setRange(least, most);
    box->setValue(value);
    box->setSuffix(suffix);
    return box;
}
} // namespace

ChartStrip::ChartStrip(LiveDesk &desk, QWidget *parent) : QWidget(parent), m_desk(desk), m_chosen(&Chart::all().front())
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(Theme::gap, Theme::gap / 2, Theme::gap, 0);
    row->setSpacing(Theme::gap / 2);
    addCharts();
    addChoices();
    m_show = new QToolButton;
    m_show->setCheckable(true);
    row->addWidget(m_show);
    m_told = new QLabel;
    m_told->setTextFormat(Qt::PlainText);
    m_told->setAccessibleName("About the chart");
    row->addWidget(m_told, 1);
    connect(m_show, &QToolButton::clicked, this, &ChartStrip::toggle);
    connect(&desk.chart(), &LiveChart::changed, this, &ChartStrip::showState);
    connect(&desk.chart(), &LiveChart::moved, this, &ChartStrip::showLate);
    showState();
}

void ChartStrip::addCharts()
{
    m_charts = new QToolButton;
    m_charts->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(m_charts);
    menu->setToolTipsVisible(true);
    m_charts->setMenu(menu);
    layout()->addWidget(m_charts);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        if (menu->isEmpty())
            fillCharts(*menu);
    });
}

void ChartStrip::fillCharts(QMenu &menu)
{
    QMenu *group = nullptr;
    for (const Chart &chart : Chart::all()) {
        const QString name = Chart::groupName(chart.group);
        if (!group || group->title() != name) {
            group = menu.addMenu(name);
            group->setToolTipsVisible(true);
        }
        QAction *action = group->addAction(pictureOf(chart), chart.title, this, [this, &chart] { choose(chart); });
        action->setToolTip(QString("Finds ") + chart.finds);
    }
}

void ChartStrip::addChoices()
{
    m_area = addChoice("Over", "What the chart is laid over", {"Output", "Each wall", "Selected walls"});
    m_range = addChoice("Range", "The codes for black and white that the picture chain expects",
                        {Chart::rangeName(LevelRange::Full), Chart::rangeName(LevelRange::Narrow)});
    m_colour = addChoice("Colour", "Of the field", colourNames);
    m_level = spinBox("Level of the field", 0, 100, 100, " %");
    m_steps = spinBox("Steps", 2, 256, 11, " steps");
    for (QSpinBox *box : {m_level, m_steps}) {
        layout()->addWidget(box);
        connect(box, &QSpinBox::valueChanged, this, &ChartStrip::show);
    }
}

QComboBox *ChartStrip::addChoice(const QString &name, const QString &tip, const QStringList &texts)
{
    auto *box = new QComboBox;
    box->setAccessibleName(name);
    box->setToolTip(tip);
    box->addItems(texts);
    layout()->addWidget(box);
    connect(box, &QComboBox::activated, this, &ChartStrip::show);
    return box;
}

void ChartStrip::choose(const Chart &chart)
{
    m_chosen = &chart;
    show();
    showState();
}

LiveChart::Style ChartStrip::style() const
{
    LiveChart::Style style;
    style.range = m_range->currentIndex() == 1 ? LevelRange::Narrow : LevelRange::Full;
    style.options.colour = static_cast<FieldColour>(m_colour->currentIndex());
    style.options.level = m_level->value();
    style.options.steps = m_steps->value();
    return style;
}

/// Whether nobody has heard yet what a full white wall draws.
bool ChartStrip::mustAsk() const
{
    const bool isField = (m_chosen->choices & Chart::Colour) != 0;
    const bool isFullWhite = isField && m_colour->currentIndex() == 0 && m_level->value() == 100;
    return isFullWhite && !m_wasAsked && !m_desk.power().isEmpty();
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
    if (!isOn) {
        m_desk.chart().end();
        return;
    }
    if (mustAsk())
        return ask();
    m_desk.showChart(*m_chosen, style(), static_cast<LiveDesk::ChartArea>(m_area->currentIndex()));
}

/// As it is chosen now, where one stands; what flashes begins by hand alone, each time.
void ChartStrip::show()
{
    if (!m_desk.chart().chart())
        return;
    if (m_chosen->flashes)
        m_desk.chart().end();
    else if (mustAsk())
        ask();
    else
        m_desk.showChart(*m_chosen, style(), static_cast<LiveDesk::ChartArea>(m_area->currentIndex()));
}

void ChartStrip::showState()
{
    const LiveChart &live = m_desk.chart();
    m_charts->setText(QString("Chart: ") + m_chosen->title);
    m_charts->setToolTip(QString("The chart that is chosen: finds ") + m_chosen->finds);
    m_range->setVisible(m_chosen->rangeMatters);
    m_colour->setVisible((m_chosen->choices & Chart::Colour) != 0);
    m_level->setVisible((m_chosen->choices & Chart::Level) != 0);
    m_steps->setVisible((m_chosen->choices & Chart::Steps) != 0);
    m_show->setText(m_chosen->flashes ? "Start strobe (flashing)" : "Show");
    m_show->setToolTip("Lays the chart over the picture on the wall");
    m_show->setChecked(live.chart() != nullptr);
    if (live.chart())
        showLate();
}

void ChartStrip::showLate()
{
    const qint64 late = m_desk.chart().lateFrames();
    m_told->setText(late > 0 ? NumberText::counted(late, "frame") + " late" : QString());
}
