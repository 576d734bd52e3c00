#pragma once

#include "windows/displays/LiveDesk.h"

#include <QWidget>

class ChartChoice;
class QComboBox;
class QLabel;
class QToolButton;

/// The row of controls of the charts: which one, on what, how, and that it stands on the wall.
class ChartStrip final : public QWidget
{
    Q_OBJECT

public:
    /// `desk` outlives this.
    explicit ChartStrip(LiveDesk &desk, QWidget *parent = nullptr);

private:
    void toggle(bool isOn);
    void takeChoice();
    void show();
    bool mustAsk() const;
    void ask();
    void showState();
    void showLate();

    LiveDesk &m_desk;
    ChartChoice *m_choice;
    QComboBox *m_area;
    QToolButton *m_show;
    QLabel *m_told;
    bool m_wasAsked = false; ///< whether full white may take its power
};
