#include "windows/inspector/PatternGrid.h"

#include "screen/ScreenChart.h"
#include "windows/Theme.h"

#include <QGridLayout>
#include <QIcon>
#include <QPixmap>
#include <QToolButton>

namespace {
constexpr int patterns = 8;
constexpr int columns = 4;
constexpr QSize pictureSize{44, 33};
/// In pictures of twice the size, lines and arrows look smooth in small.
constexpr int panelSide = 64;

/// A wall of 4 x 3 panels with nothing but its data path, drawn as walls are.
QIcon pictureOf(int pattern)
{
    ScreenChart chart;
    chart.col = 4;
    chart.row = 3;
    chart.panelWidth = panelSide;
    chart.panelHeight = panelSide;
    chart.drawFlowPath = true;
    chart.pattern = pattern;
    const QImage wall = chart.draw({}).scaled(pictureSize * 2, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return QIcon(QPixmap::fromImage(wall));
}

const char *nameOf(int pattern)
{
    constexpr const char *names[patterns] = {
        "Data path 1", "Data path 2", "Data path 3", "Data path 4",
        "Data path 5", "Data path 6", "Data path 7", "Data path 8",
    };
    return names[pattern];
}
} // namespace

PatternGrid::PatternGrid(QWidget *parent) : QWidget(parent)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(Theme::gap / 2);
    for (int pattern = 0; pattern < patterns; ++pattern) {
        auto *button = new QToolButton;
        button->setCheckable(true);
        button->setIcon(pictureOf(pattern));
        button->setIconSize(pictureSize);
        button->setAccessibleName(nameOf(pattern));
        button->setToolTip("Chains the panels this way");
        connect(button, &QToolButton::clicked, this, [this, pattern] {
            show(pattern); // a press on the one that is on would switch it off
            emit chosen(pattern);
        });
        m_buttons.append(button);
        grid->addWidget(button, pattern / columns, pattern % columns);
    }
}

void PatternGrid::show(const std::optional<qint64> &pattern)
{
    if (pattern && (*pattern < 0 || *pattern >= patterns))
        return;
    for (int i = 0; i < patterns; ++i)
        m_buttons[i]->setChecked(i == pattern);
}
