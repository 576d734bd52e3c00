#pragma once

#include <QWidget>

class GuideView;
class QToolButton;

/// The guides, in a window of its own beside the main one. Closing the program's other windows closes it too.
class HelpWindow final : public QWidget
{
    Q_OBJECT

public:
    /// Opens at "A first wall in five minutes".
    HelpWindow();

protected:
    /// Escape closes it.
    void keyPressEvent(QKeyEvent *event) override;

private:
    QToolButton *button(const QString &title, const QString &tip);

    GuideView *m_guides;
};
