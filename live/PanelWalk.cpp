#include "live/PanelWalk.h"

#include <QHash>

#include <algorithm>
#include <utility>

namespace {
/// "A", 10 of "A10": A2 comes before it.
std::pair<QString, qint64> nameAndNumber(const QString &port)
{
    qsizetype digits = 0;
    while (digits < port.size() && port[port.size() - 1 - digits].isDigit())
        ++digits;
    return {port.chopped(digits), port.last(digits).toLongLong()};
}
} // namespace

void PanelWalk::setPanels(const std::vector<ChartPanel> &panels)
{
    const QString port = panel() ? m_runs[m_run].port : QString();
    m_runs.clear();
    QHash<QString, std::size_t> places;
    for (const ChartPanel &panel : panels) {
        if (panel.number == 0)
            continue;
        const auto known = places.constFind(panel.port);
        const std::size_t run = known == places.constEnd() ? m_runs.size() : *known;
        if (run == m_runs.size()) {
            places.insert(panel.port, run);
            m_runs.push_back({panel.port, {}});
        }
        m_runs[run].panels.push_back(panel);
    }
    for (Run &run : m_runs)
        std::ranges::stable_sort(run.panels, {}, &ChartPanel::number);
    std::ranges::stable_sort(m_runs, {}, [](const Run &run) { return nameAndNumber(run.port); });

    const auto same = std::ranges::find(m_runs, port, &Run::port);
    if (same == m_runs.end()) {
        m_run = m_place = 0;
        return;
    }
    m_run = static_cast<std::size_t>(same - m_runs.begin());
    m_place = std::min(m_place, same->panels.size() - 1);
}

void PanelWalk::choose(std::size_t run)
{
    m_run = std::min(run, m_runs.size());
    m_place = 0;
}

void PanelWalk::goOn()
{
    if (!panel())
        return;
    if (++m_place < m_runs[m_run].panels.size())
        return;
    m_place = 0;
    m_run = (m_run + 1) % m_runs.size();
}

void PanelWalk::goBack()
{
    if (!panel())
        return;
    if (m_place-- > 0)
        return;
    m_run = (m_run + m_runs.size() - 1) % m_runs.size();
    m_place = m_runs[m_run].panels.size() - 1;
}

const ChartPanel *PanelWalk::panel() const
{
    return m_run < m_runs.size() ? &m_runs[m_run].panels[m_place] : nullptr;
}

QString PanelWalk::words() const
{
    const ChartPanel *const here = panel();
    if (!here)
        return {};
    return QString("%1, %2.%3 of %4")
        .arg(here->name.trimmed(), here->port, QString::number(here->number),
             QString::number(m_runs[m_run].panels.size()));
}

QString PanelWalk::markText() const
{
    return QString("%1.%2 %3").arg(panel()->port, QString::number(panel()->number), panel()->name.trimmed());
}

void PanelWalk::toggleMark()
{
    if (!panel())
        return;
    if (isMarked())
        m_marks.removeAll(markText());
    else
        m_marks.append(markText());
}

bool PanelWalk::isMarked() const
{
    return panel() && m_marks.contains(markText());
}
