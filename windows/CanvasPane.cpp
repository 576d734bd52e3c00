#include "windows/CanvasPane.h"

#include "canvas/CanvasRuler.h"
#include "windows/ElidedLabel.h"
#include "windows/Icons.h"
#include "windows/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QToolButton>

namespace {
using Tool = LWCanvasImageView::Tool;

struct ToolText
{
    Tool tool;
    const char *name;
    const char *icon;
    const char *tip;
    const char *hint;
};
/// Wider than the icon is, for some room beside the text.
constexpr QSize iconSize{24, 16};
constexpr ToolText toolTexts[] = {
    {Tool::Panels, "Panels", "grid-3x3", "Switches panels off and on, and resizes images (P)",
     "Click panels off or on, or drag over them; Shift makes a rectangle. Drag an image or its handles."},
    {Tool::Arrange, "Arrange", "arrows-move", "Moves layers (V, or Alt held)",
     "Drag layers by exact pixels. Shift adds to the selection, Ctrl keeps from snapping."},
};
} // namespace

CanvasPane::CanvasPane(CanvasDocument &document, QWidget *parent)
    : QWidget(parent), m_canvas(new LWCanvasImageView(document)), m_hint(new ElidedLabel)
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
    for (const ToolText &text : toolTexts) {
        auto *button = new QToolButton;
        button->setText(text.name);
        button->setToolTip(text.tip);
        button->setCheckable(true);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setIconSize(iconSize);
        connect(button, &QToolButton::clicked, this, [this, tool = text.tool] {
            m_canvas->setTool(tool);
            showTool(m_canvas->tool()); // a press on the one that is on would switch it off
        });
        m_tools.append(button);
        row->addWidget(button);
    }
    row->addSpacing(Theme::gap);
    m_hint->setFont(Theme::smallFont());
    QPalette colours = m_hint->palette();
    colours.setColor(QPalette::WindowText, Theme::dimText);
    m_hint->setPalette(colours);
    row->addWidget(m_hint, 1);
    return bar;
}

void CanvasPane::showIcons()
{
    for (qsizetype i = 0; i < m_tools.size(); ++i)
        m_tools[i]->setIcon(Icons::icon(toolTexts[i].icon));
}

void CanvasPane::showTool(Tool tool)
{
    for (qsizetype i = 0; i < m_tools.size(); ++i) {
        const bool isShown = toolTexts[i].tool == tool;
        m_tools[i]->setChecked(isShown);
        if (isShown)
            m_hint->setText(toolTexts[i].hint);
    }
}
