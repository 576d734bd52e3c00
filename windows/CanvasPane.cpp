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
    : QWidget(parent), m_canvas(new LWCanvasImageView(document)), m_hint(new ElidedLabel), m_words(new QLabel)
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
    m_words->setObjectName("wallWords");
    m_words->setTextFormat(Qt::PlainText);
    m_words->setAccessibleName("On the wall");
    m_words->setFont(Theme::titleFont());
    m_words->setContentsMargins(Theme::gap, 0, Theme::gap, 0);
    m_words->hide();
    row->addWidget(m_words);
    return bar;
}

void CanvasPane::showWords(const std::vector<LiveOutput::Words> &words)
{
    QStringList texts;
    std::ranges::transform(words, std::back_inserter(texts), &LiveOutput::Words::text);
    m_words->setText(texts.join(" · "));
    m_words->setVisible(!words.empty());
    const bool isDanger = std::ranges::any_of(words, &LiveOutput::Words::isDanger);
    QPalette colours = m_words->palette();
    colours.setColor(QPalette::Window, isDanger ? Theme::danger : Theme::warning);
    colours.setColor(QPalette::WindowText, Theme::ground);
    m_words->setPalette(colours);
    m_words->setAutoFillBackground(true);
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
