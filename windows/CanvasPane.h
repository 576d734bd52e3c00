#pragma once

#include "canvas/LWCanvasImageView.h"
#include "live/LiveOutput.h"

#include <QWidget>

#include <vector>

class QHBoxLayout;
class ElidedLabel;
class QLabel;
class QToolButton;

/// The middle of the window: the switch between the canvas' tools, the rulers, and the canvas.
class CanvasPane final : public QWidget
{
    Q_OBJECT

public:
    /// `document` outlives every event that this gets.
    explicit CanvasPane(CanvasDocument &document, QWidget *parent = nullptr);

    LWCanvasImageView &canvas() { return *m_canvas; }
    /// What stands on the wall in the output's place; nothing: the output does.
    void showWords(const std::vector<LiveOutput::Words> &words);
    /// Puts pictures on the switch, which has words alone until then.
    void showIcons();

private:
    QWidget *toolSwitch();
    ElidedLabel *wordsLabel();
    void showTool(CanvasToolName tool);

    LWCanvasImageView *m_canvas;
    std::vector<QToolButton *> m_tools; ///< by rows of canvasTools(); no QButtonGroup, so that Tab reaches each of them
    ElidedLabel *m_hint;
    QHBoxLayout *m_words; ///< labels of what stands on the wall, at the end of the row
};
