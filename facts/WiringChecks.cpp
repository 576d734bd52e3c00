#include "facts/WiringChecks.h"

#include "base/NumberText.h"
#include "facts/WiringSentence.h"

#include <algorithm>
#include <iterator>

namespace {
using Check = WiringFinding::Check;
using Level = Finding::Level;

/// How a check is called and told; by the order of WiringFinding::Check.
struct Telling
{
    Check check;
    const char *name;
    Level level;
    QString (WiringSentence::*sentence)() const;
};

constexpr Telling tellings[]{
    {Check::PortOver, "port-over", Level::Error, &WiringSentence::portOver},
    {Check::PortNearlyFull, "port-nearly-full", Level::Note, &WiringSentence::portNearlyFull},
    {Check::LinesOver, "port-over-limit", Level::Error, &WiringSentence::linesOver},
    {Check::PanelFedTwice, "panel-fed-twice", Level::Error, &WiringSentence::panelFedTwice},
    {Check::PanelNotFed, "panel-not-fed", Level::Error, &WiringSentence::panelNotFed},
    {Check::CellMissing, "cable-beside-wall", Level::Warning, &WiringSentence::cellMissing},
    {Check::Jump, "cable-jump", Level::Warning, &WiringSentence::jump},
    {Check::CapExceeded, "processor-over", Level::Error, &WiringSentence::capExceeded},
    {Check::CanvasExceeded, "canvas-exceeded", Level::Error, &WiringSentence::canvasExceeded},
    {Check::ProcessorsMissing, "processors-missing", Level::Error, &WiringSentence::processorsMissing},
    {Check::NoFigure, "no-figure", Level::Warning, &WiringSentence::noFigure},
    {Check::WallWaits, "no-figure", Level::Error, &WiringSentence::wallWaits},
    {Check::ProcessorUnknown, "processor-unknown", Level::Error, &WiringSentence::processorUnknown},
    {Check::RunOfMissing, "cable-of-unknown-processor", Level::Error, &WiringSentence::runOfMissing},
    {Check::PortMissing, "port-missing", Level::Error, &WiringSentence::portMissing},
    {Check::NameUsedTwice, "processor-name-twice", Level::Error, &WiringSentence::nameUsedTwice},
    {Check::PortKeptTwice, "port-kept-twice", Level::Warning, &WiringSentence::portKeptTwice},
    {Check::PartnerTaken, "loop-end-taken", Level::Error, &WiringSentence::partnerTaken},
    {Check::PortLeftOver, "port-without-partner", Level::Note, &WiringSentence::portLeftOver},
    {Check::LoopTooLong, "loop-too-long", Level::Warning, &WiringSentence::loopTooLong},
    {Check::NoLoops, "loops-impossible", Level::Warning, &WiringSentence::noLoops},
    {Check::BackupWrong, "backup-processor", Level::Error, &WiringSentence::backupWrong},
    {Check::FirstPortMissing, "first-port-missing", Level::Error, &WiringSentence::firstPortMissing},
    {Check::FirstPortEndsLoop, "first-port-ends-loop", Level::Warning, &WiringSentence::firstPortEndsLoop},
    {Check::FirstPortFilled, "first-port-filled", Level::Warning, &WiringSentence::firstPortFilled},
    {Check::NoPath, "ports-without-pattern", Level::Error, &WiringSentence::noPath},
    {Check::TooManyPanels, "too-many-panels", Level::Error, &WiringSentence::tooManyPanels},
};

constexpr bool areInOrder()
{
    for (std::size_t i = 0; i < std::size(tellings); ++i) {
        if (static_cast<std::size_t>(tellings[i].check) != i)
            return false;
    }
    return std::size(tellings) == static_cast<std::size_t>(Check::TooManyPanels) + 1;
}
static_assert(areInOrder());

/// Nullopt where it is a wall of the list of layers, or nothing that has a place.
std::optional<PixelBox> boxOf(const WiringFinding &found, const ShowPorts &ports)
{
    if (found.cell && found.wall && ports.show.walls[*found.wall].shape.holds(*found.cell))
        return ports.show.walls[*found.wall].shape.boxOf(*found.cell);
    const PortLoad *load = nullptr;
    if (found.portPlace)
        load = &ports.wiring.ports[*found.portPlace].load;
    else if (found.processor && !found.wall)
        load = &ports.wiring.processors[*found.processor].total;
    return load && load->panels > 0 ? std::optional(load->box) : std::nullopt;
}

QString processorOf(const WiringFinding &found, const ShowPorts &ports)
{
    if (found.port)
        return found.port->processor;
    return found.processor ? ports.show.processors[*found.processor].name : QString();
}

QString sentenceOf(const WiringFinding &found, const ShowPorts &ports)
{
    const QString sentence = (WiringSentence(found, ports).*tellings[static_cast<std::size_t>(found.check)].sentence)();
    return found.more == 0 ? sentence : sentence + QString(" And %1 more.").arg(NumberText::grouped(found.more));
}

Finding told(const WiringFinding &found, const ShowPorts &ports)
{
    const Telling &telling = tellings[static_cast<std::size_t>(found.check)];
    const bool isInWall = found.check != Check::CellMissing; // whose panels are beside it
    const bool hasNumber = found.port && found.port->number > 0;
    return {.check = telling.name,
            .level = telling.level,
            .layer = found.wall ? std::optional(ports.rows[*found.wall]) : std::nullopt,
            .cell = isInWall ? found.cell : std::nullopt,
            .port = hasNumber ? std::optional(found.port->number) : std::nullopt,
            .processor = processorOf(found, ports),
            .box = boxOf(found, ports),
            .sentence = sentenceOf(found, ports)};
}
} // namespace

namespace WiringChecks {

std::vector<Finding> of(const ShowPorts &ports)
{
    std::vector<Finding> findings;
    for (const WiringFinding &found : findInWiring(ports.show, ports.wiring))
        findings.push_back(told(found, ports));
    return findings;
}

std::vector<const char *> names()
{
    std::vector<const char *> names;
    std::ranges::transform(tellings, std::back_inserter(names), &Telling::name);
    return names;
}

} // namespace WiringChecks
