#pragma once

#include <QWidget>

class QToolButton;

/// The eight ways in which a wall's panels are chained, as small pictures; one is chosen at most.
class PatternGrid final : public QWidget
{
    Q_OBJECT

public:
    explicit PatternGrid(QWidget *parent = nullptr);

    static constexpr qint64 none = -1;
    /// Turns on the button of a pattern, 0 to 7, and the others off; none for any other number.
    void show(qint64 pattern);

signals:
    void chosen(int pattern);

private:
    QList<QToolButton *> m_buttons; ///< by pattern; no QButtonGroup, so that Tab reaches each of them
};
