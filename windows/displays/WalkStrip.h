#pragma once

#include <QWidget>

class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QToolButton;
class WallWalk;

/// The row of controls of a walk: which cable, on and back, by itself, where it is, and what was found wrong.
class WalkStrip final : public QWidget
{
    Q_OBJECT

public:
    /// `walk` outlives this.
    explicit WalkStrip(WallWalk &walk, QWidget *parent = nullptr);

private:
    QToolButton *addTool(const QString &text, const QString &tip);
    void addMarks();
    void showWalk();

    WallWalk &m_walk;
    QToolButton *m_on = nullptr;
    QComboBox *m_run = nullptr;
    QToolButton *m_back = nullptr;
    QToolButton *m_next = nullptr;
    QToolButton *m_byItself = nullptr;
    QDoubleSpinBox *m_seconds = nullptr;
    QLabel *m_where = nullptr;
    QToolButton *m_wrong = nullptr;
    QToolButton *m_marks = nullptr;
};
