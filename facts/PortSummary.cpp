#include "facts/PortSummary.h"

#include "base/NumberText.h"
#include "facts/ShowChecks.h"
#include "facts/WiringChecks.h"

#include <algorithm>

namespace {
using NumberText::counted;

/// "MAIN and SIDE", "12 walls"
QString namesOf(const ShowPorts &ports, const std::vector<std::size_t> &walls)
{
    if (walls.size() > 2)
        return counted(std::ssize(walls), "wall");
    QStringList names;
    for (const std::size_t wall : walls)
        names.append(ports.wallName(wall));
    return names.join(" and ");
}

/// Those that name the first processor that is missing.
QString waitingWalls(const ShowPorts &ports)
{
    std::vector<std::size_t> waiting;
    for (std::size_t i = 0; i < ports.wiring.walls.size(); ++i) {
        const bool isWaiting = ports.wiring.walls[i].state == ShowWiring::State::NoProcessor;
        const auto processorOf = [&](std::size_t wall) { return ports.show.walls[wall].processor; };
        if (isWaiting && (waiting.empty() || processorOf(waiting.front()) == processorOf(i)))
            waiting.push_back(i);
    }
    if (waiting.empty())
        return {};
    return QString("%1 %2: the show has no processor \"%3\"")
        .arg(namesOf(ports, waiting), waiting.size() == 1 ? "waits" : "wait",
             ports.show.walls[waiting.front()].processor);
}

qint64 countOf(const std::vector<PortRow> &rows, PortRow::Level level)
{
    return std::count_if(rows.begin(), rows.end(), [level](const PortRow &row) { return row.level() == level; });
}

QString fullPorts(const std::vector<PortRow> &rows, PortRow::Level level)
{
    const qint64 over = countOf(rows, PortRow::Level::Over);
    if (level == PortRow::Level::Over)
        return counted(over, "port") + (over == 1 ? " over its limit" : " over their limit");
    return counted(countOf(rows, PortRow::Level::NearlyFull), "port") + " nearly full";
}

/// The first error that is told of a show's ports and cables, and that nobody means, with its wall.
QString firstError(const ShowPorts &ports, const std::vector<LayerPointer> &layers)
{
    const std::vector<Finding> findings = WiringChecks::of(ports);
    const auto error = std::ranges::find_if(findings, [&](const Finding &finding) {
        const bool isMeant =
            finding.layer && ShowChecks::isMeant(*layers[static_cast<std::size_t>(*finding.layer)], finding.check);
        return finding.level == Finding::Level::Error && !isMeant;
    });
    if (error == findings.end())
        return {};
    QString sentence = error->sentence.chopped(1);
    if (!error->layer)
        return sentence;
    const auto row = std::ranges::lower_bound(ports.rows, *error->layer);
    const QString name = ports.wallName(static_cast<std::size_t>(row - ports.rows.begin()));
    return sentence.startsWith(name) ? sentence : name + ": " + sentence;
}

qint64 portsOf(const std::vector<PortRow> &rows, const ShowPorts &ports)
{
    return ports.show.processors.empty() ? 0 : std::ssize(rows);
}
} // namespace

QString PortSummary::shortage(const ShowPorts &ports, const ShowWiring::Shortage &shortage)
{
    const QString who = namesOf(ports, shortage.walls);
    const QString model = ports.show.processors[shortage.processor].model;
    const QString over = counted(shortage.ports, "port") + " over";
    if (shortage.processors == 0)
        return QString("%1: %2, and no number of %3 takes %4")
            .arg(who, over, model, shortage.ports == 1 ? "it" : "them");
    return QString("%1 %2 %3 more %4 (%5)")
        .arg(who, shortage.walls.size() == 1 ? "needs" : "need", NumberText::grouped(shortage.processors), model, over);
}

PortSummary PortSummary::of(const std::vector<PortRow> &rows, const ShowPorts &ports,
                            const std::vector<LayerPointer> &layers)
{
    PortSummary summary;
    if (const qint64 count = portsOf(rows, ports); count > 0)
        summary.count = counted(count, "port");
    const auto &shortages = ports.wiring.shortages;
    const auto helped = std::find_if(shortages.begin(), shortages.end(),
                                     [](const ShowWiring::Shortage &shortage) { return shortage.processors > 0; });
    if (helped != shortages.end())
        summary.needed = *helped;
    if (summary.worst = waitingWalls(ports); summary.worst.isEmpty() && !shortages.empty())
        summary.worst = shortage(ports, helped != shortages.end() ? *helped : shortages.front());
    for (const PortRow &row : rows)
        summary.level = std::max(summary.level, row.level());
    if (summary.worst.isEmpty() && summary.level != PortRow::Level::Over)
        summary.worst = firstError(ports, layers);
    if (!summary.worst.isEmpty())
        summary.level = PortRow::Level::Over;
    else if (summary.level != PortRow::Level::Fits)
        summary.worst = fullPorts(rows, summary.level);
    return summary;
}
