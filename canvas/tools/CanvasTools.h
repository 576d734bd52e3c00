#pragma once

#include "canvas/tools/CanvasTool.h"

#include <memory>
#include <span>

/// The tools by name.
enum class CanvasToolName
{
    Panels,  ///< see PanelsTool
    Arrange, ///< see ArrangeTool
    Data     ///< see DataTool
};

/// What is known of a tool before it works, texts for the person included.
struct CanvasToolRow
{
    CanvasToolName name;
    std::unique_ptr<CanvasTool> (*make)(const ToolSurroundings &canvas);
    const char *word;
    const char *title; ///< in a menu, with its letter marked
    const char *icon;
    Qt::Key key;
    const char *tip;
    const char *hint;    ///< what the hand does with it
    bool goesToSelected; ///< clicks go to the selected layer, whatever lies above it
    bool keepsAlt;       ///< Alt does not change to another tool
};

/// All of them, in the order in which they are shown; the first is in effect at first.
std::span<const CanvasToolRow> canvasTools();
const CanvasToolRow &canvasTool(CanvasToolName name);
/// The one in effect while Alt is held.
constexpr CanvasToolName toolOfAlt = CanvasToolName::Arrange;
