#pragma once

#include "windows/displays/LiveDesk.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QSpinBox;
class QToolButton;

/// The row of controls of the charts: which one, on what, how, and that it stands on the wall.
class ChartStrip final : public QWidget
{
    Q_OBJECT

public:
    /// `desk` outlives this.
    explicit ChartStrip(LiveDesk &desk, QWidget *parent = nullptr);

private:
    void addCharts();
    void fillCharts(QMenu &menu);
    void addChoices();
    QComboBox *addChoice(const QString &name, const QString &tip, const QStringList &texts);
    void choose(const Chart &chart);
    void toggle(bool isOn);
    void show();
    bool mustAsk() const;
    void ask();
    LiveChart::Style style() const;
    void showState();
    void showLate();

    LiveDesk &m_desk;
    const Chart *m_chosen;
    QToolButton *m_charts = nullptr;
    QComboBox *m_area = nullptr;
    QComboBox *m_range = nullptr;
    QComboBox *m_colour = nullptr;
    QSpinBox *m_level = nullptr;
    QSpinBox *m_steps = nullptr;
    QToolButton *m_show = nullptr;
    QLabel *m_told = nullptr;
    bool m_wasAsked = false; ///< whether full white may take its power
};
