#pragma once

#include <QWidget>

#include <optional>

class QToolButton;

/// The eight ways in which a wall's panels are chained, as small pictures; one is chosen at most.
class PatternGrid final : public QWidget
{
    Q_OBJECT

public:
    explicit PatternGrid(QWidget *parent = nullptr);

    /// Turns on the button of a pattern, 0 to 7, and the others off; any other number, which files may hold, leaves
    /// them as they were. Nullopt: walls have several, none is on.
    void show(const std::optional<qint64> &pattern);

signals:
    void chosen(int pattern);

private:
    QList<QToolButton *> m_buttons; ///< by pattern; no QButtonGroup, so that Tab reaches each of them
};
