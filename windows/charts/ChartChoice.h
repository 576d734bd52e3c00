#pragma once

#include "charts/ChartText.h"

#include <QWidget>

#include <functional>
#include <optional>

class QBoxLayout;
class QComboBox;
class QMenu;
class QSpinBox;
class QToolButton;

/// A chart in a menu with small pictures, and beside or below it what can be chosen of that chart.
class ChartChoice final : public QWidget
{
    Q_OBJECT

public:
    /// Which charts are in the menu.
    using IsOffered = bool (*)(const Chart &chart);

    ChartChoice(Qt::Orientation orientation, IsOffered isOffered, QWidget *parent = nullptr);

    /// What is chosen now.
    ChartText value() const;
    /// Shows a choice, and tells nobody; nullopt: that none is.
    void setValue(const std::optional<ChartText> &text);

    /// "Finds ..." and a picture for each chart that is offered, in groups; calls `choose` with the one that is chosen.
    static void fillMenu(QMenu &menu, IsOffered isOffered, const std::function<void(const Chart &)> &choose);

signals:
    /// Somebody chose another chart, or something else of it.
    void chosen();

private:
    void addChart(IsOffered isOffered);
    QComboBox *addChoice(const QString &name, const QString &tip, const QStringList &texts);
    QSpinBox *addNumber(const QString &name, int least, int most, const QString &suffix);
    void choose(const Chart &chart);
    void showChart(bool isAny = true);

    const Chart *m_chart;
    QBoxLayout *m_row;
    QToolButton *m_charts = nullptr;
    QComboBox *m_range = nullptr;
    QComboBox *m_colour = nullptr;
    QSpinBox *m_level = nullptr;
    QSpinBox *m_steps = nullptr;
    QSpinBox *m_speed = nullptr;
    QSpinBox *m_hold = nullptr;
};
