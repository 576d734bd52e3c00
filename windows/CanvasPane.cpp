#include "windows/CanvasPane.h"

#include "canvas/CanvasRuler.h"
#include "windows/ElidedLabel.h"
#include "windows/Icons.h"
#include "windows/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include <algorithm>
#include <iterator>

namespace {
/// Wider than the icon is, for some room beside the text.
constexpr QSize toolIconSize{24, 16};
} // namespace

CanvasPane::CanvasPane(CanvasDocument &document, QWidget *parent)
    : QWidget(parent), m_canvas(new LWCanvasImageView(document)), m_hint(new ElidedLabel), m_words(new QHBoxLayout)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(toolSwitch(), 0, 0, 1, 2);
    grid->addWidget(new CanvasRuler(Qt::Horizontal, *m_canvas), 1, 1);
    grid->addWidget(new CanvasRuler(Qt::Vertical, *m_canvas), 2, 0);
    grid->addWidget(m_canvas, 2, 1);
    connect(m_canvas, &LWCanvasImageView::toolDidChange, this, &CanvasPane::showTool);
    showTool(m_canvas->tool());
}

QWidget *CanvasPane::toolSwitch()
{
    auto *bar = new QWidget(this);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(Theme::gap, 0, Theme::gap, 0);
    bar->setFixedHeight(Theme::controlHeight + Theme::gap); // all of it is the hint's, which may need two lines
    row->setSpacing(Theme::gap / 2);
    for (const CanvasToolRow &tool : canvasTools()) {
        auto *button = new QToolButton;
        button->setText(tool.word);
        button->setToolTip(tool.tip);
        button->setCheckable(true);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setIconSize(toolIconSize);
        connect(button, &QToolButton::clicked, this, [this, name = tool.name] {
            m_canvas->setTool(name);
            showTool(m_canvas->tool()); // a press on the one that is on would switch it off
        });
        m_tools.push_back(button);
        row->addWidget(button);
    }
    row->addSpacing(Theme::gap);
    m_hint->setFont(Theme::smallFont());
    QPalette colours = m_hint->palette();
    colours.setColor(QPalette::WindowText, Theme::dimText);
    m_hint->setPalette(colours);
    row->addWidget(m_hint, 1);
    row->addLayout(m_words);
    m_words->setSpacing(Theme::gap / 2);
    return bar;
}

void CanvasPane::showWords(const std::vector<LiveOutput::Words> &words)
{
    while (m_words->count() < static_cast<int>(words.size()))
        m_words->addWidget(wordsLabel());
    for (int i = 0; i < m_words->count(); ++i) {
        auto &label = static_cast<ElidedLabel &>(*m_words->itemAt(i)->widget());
        const bool isUsed = i < static_cast<int>(words.size());
        label.setVisible(isUsed);
        if (!isUsed)
            continue;
        const LiveOutput::Words &shown = words[static_cast<std::size_t>(i)];
        label.setText(shown.text);
        label.setToolTip(shown.text);
        label.setMinimumWidth(shown.isDanger ? label.sizeHint().width() : 0); // all of that is read
        QPalette colours = label.palette();
        colours.setColor(QPalette::Window, shown.isDanger ? Theme::danger : Theme::warning);
        label.setPalette(colours);
    }
}

ElidedLabel *CanvasPane::wordsLabel()
{
    auto *label = new ElidedLabel(this);
    label->setObjectName("wallWords");
    label->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    label->setAccessibleName("On the wall");
    label->setFont(Theme::titleFont());
    label->setContentsMargins(Theme::gap, 0, Theme::gap, 0);
    label->setAutoFillBackground(true);
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, Theme::ground);
    label->setPalette(colours);
    return label;
}

void CanvasPane::showIcons()
{
    for (std::size_t i = 0; i < m_tools.size(); ++i)
        m_tools[i]->setIcon(Icons::icon(canvasTools()[i].icon));
}

void CanvasPane::showTool(CanvasToolName tool)
{
    for (std::size_t i = 0; i < m_tools.size(); ++i)
        m_tools[i]->setChecked(canvasTools()[i].name == tool);
    m_hint->setText(canvasTool(tool).hint);
}
