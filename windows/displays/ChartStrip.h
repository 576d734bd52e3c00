#pragma once

#include "windows/displays/LiveDesk.h"

#include <QWidget>

class ChartChoice;
class ElidedLabel;
class QComboBox;
class QToolButton;

/// The row of controls of the charts: which one, on what, how, and that it stands on the wall.
class ChartStrip final : public QWidget
{
    Q_OBJECT

public:
    /// `desk` outlives this.
    explicit ChartStrip(LiveDesk &desk, QWidget *parent = nullptr);

private:
    LiveDesk::ChartArea area() const;
    void toggle(bool isOn);
    void takeChoice();
    void show();
    bool mustAsk() const;
    void ask();
    void showState();
    void showLate();
    void tell(const QString &sentence);

    LiveDesk &m_desk;
    ChartChoice *m_choice;
    QComboBox *m_area;
    QToolButton *m_over;
    QToolButton *m_show;
    ElidedLabel *m_told;
    bool m_isPowerKnown = false; ///< the person has heard what full white draws in this show
};
