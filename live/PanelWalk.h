#pragma once

#include "charts/ChartShape.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// A walk through the panels of a show in the order of its cables, and what was found wrong on the way.
class PanelWalk
{
public:
    /// A cable; panels on none are in none.
    struct Run
    {
        QString port;                   ///< "A3"
        std::vector<ChartPanel> panels; ///< in its order
    };

    /// Gives it the panels of a show: it stays at its place on its port as far as there is one, else where it begins.
    void setPanels(const std::vector<ChartPanel> &panels);
    const std::vector<Run> &runs() const { return m_runs; }

    /// Goes to the first panel of a run.
    void choose(std::size_t run);
    /// To the next panel, behind a run to the first of the next one, behind the last to the first of all; and back.
    void goOn();
    void goBack();
    std::size_t run() const { return m_run; }
    /// The panel where it is; null: the show has none on a cable.
    const ChartPanel *panel() const;
    /// "C7, A3.12 of 30"; empty: there is no panel.
    QString words() const;

    /// The panel is wrong, or is not any more.
    void toggleMark();
    bool isMarked() const;
    /// "A3.12 C7", in the order in which they were marked. They stay whatever the show becomes.
    const QStringList &marks() const { return m_marks; }
    void setMarks(const QStringList &marks) { m_marks = marks; }

private:
    QString markText() const;

    std::vector<Run> m_runs;
    std::size_t m_run = 0;
    std::size_t m_place = 0;
    QStringList m_marks;
};
