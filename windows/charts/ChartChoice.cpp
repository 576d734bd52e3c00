#include "windows/charts/ChartChoice.h"

#include "windows/Theme.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QIcon>
#include <QMenu>
#include <QPixmap>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>

#include <initializer_list>

namespace {
constexpr QSize sizeOfPicture{64, 36};
constexpr int mostWidth = 200; ///< of a title
constexpr int ownHold = 0;     ///< the chart's
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
} // namespace

ChartChoice::ChartChoice(Qt::Orientation orientation, IsOffered isOffered, QWidget *parent)
    : QWidget(parent), m_chart(&Chart::all().front()),
      m_row(new QBoxLayout(orientation == Qt::Horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, this))
{
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(Theme::gap / 2);
    addChart(isOffered);
    m_range = addChoice("Range", "The codes for black and white that the picture chain expects",
                        {Chart::rangeName(LevelRange::Full), Chart::rangeName(LevelRange::Narrow)});
    m_colour = addChoice("Colour", "Of the field", colourNames);
    m_level = addNumber("Level of the field", 0, 100, " %");
    m_steps = addNumber("Steps", 2, 256, " steps");
    m_speed = addNumber("Speed", 1, 4096, " px a frame");
    m_hold = addNumber("Frames that a panel is lit", ownHold, 10'000, " frames");
    m_hold->setSpecialValueText("A quarter of a second");
    setValue(ChartText{m_chart});
}

void ChartChoice::addChart(IsOffered isOffered)
{
    m_charts = new QToolButton;
    m_charts->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(m_charts);
    m_charts->setMenu(menu);
    m_row->addWidget(m_charts);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, isOffered] {
        if (menu->isEmpty())
            fillMenu(*menu, isOffered, [this](const Chart &chart) { choose(chart); });
    });
}

void ChartChoice::fillMenu(QMenu &menu, IsOffered isOffered, const std::function<void(const Chart &)> &choose)
{
    QMenu *group = nullptr;
    for (const Chart &chart : Chart::all()) {
        if (!isOffered(chart))
            continue;
        const QString name = Chart::groupName(chart.group);
        if (!group || group->title() != name) {
            group = menu.addMenu(name);
            group->setToolTipsVisible(true);
        }
        QAction *action = group->addAction(pictureOf(chart), chart.title, &menu, [choose, &chart] { choose(chart); });
        action->setToolTip(QString("Finds ") + chart.finds);
    }
}

QComboBox *ChartChoice::addChoice(const QString &name, const QString &tip, const QStringList &texts)
{
    auto *box = new QComboBox;
    box->setAccessibleName(name);
    box->setToolTip(tip);
    box->addItems(texts);
    m_row->addWidget(box);
    connect(box, &QComboBox::activated, this, &ChartChoice::chosen);
    return box;
}

QSpinBox *ChartChoice::addNumber(const QString &name, int least, int most, const QString &suffix)
{
    auto *box = new QSpinBox;
    box->setAccessibleName(name);
    box->setToolTip(name);
    box->setRange(least, most);
    box->setSuffix(suffix);
    m_row->addWidget(box);
    connect(box, &QSpinBox::valueChanged, this, &ChartChoice::chosen);
    return box;
}

void ChartChoice::choose(const Chart &chart)
{
    ChartText other = value();
    other.chart = &chart;
    other.options.level = std::nullopt; // each field has a usual one
    setValue(other);
    emit chosen();
}

ChartText ChartChoice::value() const
{
    ChartText text;
    text.chart = m_chart;
    text.range = m_range->currentIndex() == 1 ? LevelRange::Narrow : LevelRange::Full;
    text.options.colour = static_cast<FieldColour>(m_colour->currentIndex());
    text.options.steps = m_steps->value();
    text.options.speed = m_speed->value();
    if (m_level->value() != m_chart->field)
        text.options.level = m_level->value();
    if (m_hold->value() != ownHold)
        text.options.hold = m_hold->value();
    return text;
}

void ChartChoice::setValue(const std::optional<ChartText> &chosen)
{
    if (!chosen)
        return showChart(false);
    const ChartText &text = *chosen;
    m_chart = text.chart;
    const QSignalBlocker silent(this);
    m_range->setCurrentIndex(text.range == LevelRange::Narrow ? 1 : 0);
    m_colour->setCurrentIndex(static_cast<int>(text.options.colour));
    m_level->setValue(text.options.level.value_or(m_chart->field.value_or(0)));
    m_steps->setValue(text.options.steps);
    m_speed->setValue(text.options.speed);
    m_hold->setValue(text.options.hold.value_or(ownHold));
    showChart();
}

void ChartChoice::showChart(bool isAny)
{
    const QString title = QString("Chart: ") + m_chart->title;
    m_charts->setText(isAny ? m_charts->fontMetrics().elidedText(title, Qt::ElideRight, mostWidth)
                            : QString("Choose a chart"));
    m_charts->setToolTip(isAny ? title + ", finds " + m_chart->finds : QString());
    m_range->setVisible(isAny && m_chart->rangeMatters);
    const std::initializer_list<std::pair<QWidget *, Chart::Choice>> choices{{m_colour, Chart::Colour},
                                                                             {m_level, Chart::Level},
                                                                             {m_steps, Chart::Steps},
                                                                             {m_speed, Chart::Speed},
                                                                             {m_hold, Chart::Hold}};
    for (const auto &[control, choice] : choices)
        control->setVisible(isAny && (m_chart->choices & choice) != 0);
}
