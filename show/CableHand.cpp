#include "show/CableHand.h"

#include "base/NumberText.h"
#include "screen/LWScreen.h"
#include "show/WallShapes.h"

#include <algorithm>

namespace {
/// Runs that lie ready while another way of splitting is chosen do not count.
WallRuns handRunsOf(const Layer &wall)
{
    const LayerRecordPointer record = wall.record();
    return record->split == CableSplit::Hand ? record->runs.list() : WallRuns();
}

void giveRuns(Layer &wall, const WallRuns &runs)
{
    wall.setValue("runs", QVariant::fromValue(CableRuns(runs)));
    wall.drawInRect();
}

/// A wall that was not wired by hand is from now on, and shows it.
void makeHandWired(Layer &wall, const QString &processor)
{
    if (wall.record()->split != CableSplit::Hand) {
        wall.setValue("split", "hand");
        wall.setValue("runs", {});
        wall.setDrawFlowPath(true);
    }
    if (ShowProcessors::of(wall).isEmpty())
        wall.setValue("processor", processor);
}

/// The one that a wall names; one without a name takes the first.
Result<QString> processorFor(const CableHand::Show &show, const Layer &wall)
{
    if (show.processors.empty())
        return fail("The show has no processor; add one in the table of ports below the canvas.");
    const QString name = ShowProcessors::of(wall);
    if (name.isEmpty())
        return show.processors.front().name;
    if (!ShowProcessors::find(show.processors, name))
        return fail(QString("The show has no processor \"%1\"; add it, or give the wall another one.").arg(name));
    return name;
}

QString labelOf(const CableHand::Panel &panel)
{
    return static_cast<const LWScreen &>(*panel.wall).panelLabel(panel.cell).trimmed();
}

/// Of each port of a processor; nullopt: nobody says.
std::optional<PortBounds> boundsOf(const CableHand::Show &show, const QString &processor)
{
    const ProcessorSettings *const settings = ShowProcessors::find(show.processors, processor);
    if (!settings)
        return std::nullopt;
    const auto bounds = PortBounds::of(*settings, show.output.height());
    return bounds ? std::optional(*bounds) : std::nullopt;
}

/// What hangs on a port in all walls; without the run that has `except`.
PortLoad loadOf(const CableHand::Show &show, const PortName &port,
                const std::optional<CableHand::Panel> &except = std::nullopt)
{
    PortLoad load;
    for (const LayerPointer &layer : show.layers) {
        const WallRuns runs = handRunsOf(*layer);
        const auto left = except && except->wall == layer ? HandWiring::runAt(runs, except->cell) : std::nullopt;
        for (std::size_t run = 0; run < runs.size(); ++run) {
            if (runs[run].port == port && run != left)
                load.add(HandWiring::loadOf(wallShapeOf(*layer), runs[run]));
        }
    }
    return load;
}

/// What hangs on a port in one wall.
struct Piece
{
    LayerPointer wall;
    CableRun run;
};

/// In the order of the cable; those without panels left out.
std::vector<Piece> piecesOn(const CableHand::Show &show, const PortName &port)
{
    std::vector<Piece> pieces;
    for (const LayerPointer &layer : show.layers) {
        for (const CableRun &run : handRunsOf(*layer)) {
            if (run.port == port && !run.cells.empty())
                pieces.push_back({layer, run});
        }
    }
    std::ranges::stable_sort(pieces, {}, [](const Piece &piece) { return piece.run.piece; });
    return pieces;
}

/// The end of a cable that a panel is, from which it can be laid on; one of a single panel goes on.
enum class CableEnd
{
    None,
    First,
    Last
};

CableEnd endAt(const CableHand::Show &show, const PortName &port, const CableHand::Panel &panel)
{
    const std::vector<Piece> pieces = piecesOn(show, port);
    if (panel == CableHand::Panel{pieces.back().wall, pieces.back().run.cells.back()})
        return CableEnd::Last;
    const bool isFirst = panel == CableHand::Panel{pieces.front().wall, pieces.front().run.cells.front()};
    return isFirst ? CableEnd::First : CableEnd::None;
}
} // namespace

/// What was laid is worked out from the walls as they were and from the way since, so that other keys lay it anew.
struct CableHand::Held
{
    /// The panels that the pointer went over in one wall.
    struct Way
    {
        LayerPointer wall;
        std::vector<Cell> cells;
    };

    Show show;
    std::vector<LayerRecordPointer> before; ///< of the layers of `show`
    PortName port;
    std::optional<PortBounds> bounds; ///< of the port
    Panel from;                       ///< where it was taken
    bool isNew = false;               ///< else it goes on with the run that feeds `from`
    bool isBefore = false;            ///< it grows at its beginning
    Keys keys;
    std::vector<Way> ways;
    Panel last; ///< where the pointer was
    std::optional<Panel> end;
    std::vector<std::pair<Panel, HandWiring::Passed>> passed;
    bool isFull = false;
    bool isOver = false;

    void lay(const Way &way, bool isFirst);
    QString words() const;
};

/// Goes on where the pointer came in from elsewhere with a piece of its own.
void CableHand::Held::lay(const Way &way, bool isFirst)
{
    Layer &wall = *way.wall;
    const WallRuns runs = handRunsOf(wall);
    const WallShape shape = wallShapeOf(wall);
    const bool goesOn = isFirst && !isNew;
    const HandWiring::Limit limit{bounds ? &*bounds : nullptr,
                                  loadOf(show, port, goesOn ? std::optional(from) : std::nullopt)};
    const HandWiring::Hand hand{isBefore, keys.takesOver, keys.goesPastLimit};
    HandWiring::Laid laid;
    if (goesOn)
        laid = HandWiring::lay(shape, runs, *HandWiring::runAt(runs, from.cell), way.cells, limit, hand);
    else
        laid = HandWiring::begin(shape, runs, port, PortEdits::nextPiece(runsOf(show), port), way.cells, limit, hand);
    if (!laid.taken.empty()) {
        makeHandWired(wall, port.processor);
        giveRuns(wall, laid.runs);
        end = Panel{way.wall, laid.taken.back()};
    }
    for (const HandWiring::Passed &one : laid.passed)
        passed.emplace_back(Panel{way.wall, one.cell}, one);
    isFull = laid.full.has_value();
    isOver |= laid.isOver;
}

/// "A3, 12 panels, 640,000 of 659,722 px; B4 hangs on A1"
QString CableHand::Held::words() const
{
    const PortLoad load = loadOf(show, port);
    QString text = port.text() + ", " + NumberText::counted(load.panels, "panel") + ", ";
    if (bounds)
        text += NumberText::grouped(bounds->loaded(load)) + " of " + NumberText::grouped(bounds->limit(load)) + " px";
    else
        text += NumberText::grouped(load.pixels) + " px";
    if (isOver)
        text += ", over its limit";
    else if (isFull)
        text += ", full";
    if (passed.empty())
        return text;
    const auto &[panel, why] = passed.back();
    return text + "; " + labelOf(panel) + (why.port ? " hangs on " + why.port->text() : QString(" is off"));
}

CableHand::CableHand() = default;
CableHand::~CableHand() = default;

Result<bool> CableHand::take(const Show &show, const Panel &panel, const Keys &keys)
{
    m_held.reset();
    m_isAtLimit = false;
    m_words.clear();
    const WallShape shape = wallShapeOf(*panel.wall);
    const WallRuns runs = handRunsOf(*panel.wall);
    const auto run = HandWiring::runAt(runs, panel.cell);
    const CableEnd end = run ? endAt(show, runs[*run].port, panel) : CableEnd::None;
    const bool goesOn = end != CableEnd::None;
    if (!goesOn && (shape.off.contains(panel.cell) || (run && !keys.takesOver))) {
        m_words = run ? placeText(show, panel) : labelOf(panel) + " is off";
        return false;
    }

    Held held{.show = show,
              .before = {},
              .port = {},
              .bounds = {},
              .from = panel,
              .keys = keys,
              .ways = {{panel.wall, {}}},
              .last = panel,
              .end = {},
              .passed = {}};
    for (const LayerPointer &layer : show.layers)
        held.before.push_back(layer->record());
    if (goesOn) {
        held.port = runs[*run].port;
        held.isBefore = end == CableEnd::First;
    } else {
        const Result<QString> processor = processorFor(show, *panel.wall);
        if (!processor)
            return tl::unexpected(processor.error());
        held.port = show.freePort(*processor, panel.wall);
        held.isNew = true;
        held.ways.front().cells = {panel.cell};
    }
    held.bounds = boundsOf(show, held.port.processor);
    m_held = std::make_unique<Held>(std::move(held));
    layAll();
    return true;
}

void CableHand::goTo(const Panel &panel, const Keys &keys)
{
    Held &held = *m_held;
    const bool isOtherPanel = !(panel == held.last);
    if (isOtherPanel && panel.wall == held.last.wall) {
        const std::vector<Cell> way = HandWiring::wayBetween(held.last.cell, panel.cell);
        held.ways.back().cells.insert(held.ways.back().cells.end(), way.begin(), way.end());
    } else if (isOtherPanel && !held.isBefore) { // what hangs before it in another wall stays before it
        held.ways.push_back({panel.wall, {panel.cell}});
    } else if (isOtherPanel) {
        m_words = held.words() + "; what comes before its first panel stays in that wall";
        return;
    }
    held.last = panel;
    goWith(keys);
}

void CableHand::goWith(const Keys &keys)
{
    m_held->keys = keys;
    layAll();
}

void CableHand::layAll()
{
    restore();
    Held &held = *m_held;
    held.end.reset();
    held.passed.clear();
    held.isFull = held.isOver = false;
    for (std::size_t way = 0; way < held.ways.size() && !held.isFull; ++way)
        held.lay(held.ways[way], way == 0);
    m_words = held.words();
    m_isAtLimit = held.isFull || held.isOver;
}

void CableHand::restore()
{
    for (std::size_t i = 0; i < m_held->before.size(); ++i) {
        Layer &layer = *m_held->show.layers[i];
        if (layer.hasRecord(m_held->before[i]))
            continue;
        layer.setRecord(m_held->before[i]);
        layer.drawInRect();
    }
}

bool CableHand::finish()
{
    bool isAnyOther = false;
    for (std::size_t i = 0; i < m_held->before.size(); ++i)
        isAnyOther |= !m_held->show.layers[i]->hasRecord(m_held->before[i]);
    m_held.reset();
    return isAnyOther;
}

void CableHand::cancel()
{
    restore();
    m_held.reset();
    m_words.clear();
    m_isAtLimit = false;
}

std::optional<CableHand::Panel> CableHand::end() const
{
    return m_held ? m_held->end : std::nullopt;
}

std::optional<PortName> CableHand::portAt(const Panel &panel)
{
    const WallRuns runs = handRunsOf(*panel.wall);
    const auto run = HandWiring::runAt(runs, panel.cell);
    return run ? std::optional(runs[*run].port) : std::nullopt;
}

QString CableHand::placeText(const Show &show, const Panel &panel)
{
    const auto port = portAt(panel);
    if (!port)
        return {};
    int place = 0;
    for (const auto &[wall, run] : piecesOn(show, *port)) {
        const WallShape shape = wallShapeOf(*wall);
        for (const Cell &cell : run.cells) {
            place += shape.off.contains(cell) ? 0 : 1;
            if (panel == Panel{wall, cell})
                return QString("%1.%2").arg(port->text()).arg(place);
        }
    }
    return {};
}

std::optional<CableHand::Panel> CableHand::lastOn(const Show &show, const PortName &port)
{
    const std::vector<Piece> pieces = piecesOn(show, port);
    return pieces.empty() ? std::nullopt : std::optional(Panel{pieces.back().wall, pieces.back().run.cells.back()});
}

PortEdits::ShowRuns CableHand::runsOf(const Show &show)
{
    PortEdits::ShowRuns runs;
    for (const LayerPointer &layer : show.layers)
        runs.push_back(handRunsOf(*layer));
    return runs;
}

void CableHand::give(const Show &show, const PortEdits::ShowRuns &runs)
{
    for (std::size_t i = 0; i < runs.size(); ++i) {
        if (runs[i] != handRunsOf(*show.layers[i]))
            giveRuns(*show.layers[i], runs[i]);
    }
}

qint64 CableHand::feed(const Show &show, const LayerPointer &wall)
{
    const WallRuns runs = handRunsOf(*wall);
    const PortEdits::ShowRuns all = runsOf(show);
    const auto fits = [&](const CableRun &run, const PortLoad &load) {
        if (PortEdits::nextPiece(all, run.port) != run.piece + 1)
            return false;
        const auto bounds = boundsOf(show, run.port.processor);
        PortLoad whole = loadOf(show, run.port, Panel{wall, run.cells.front()});
        whole.add(load);
        return !bounds || bounds->fits(whole);
    };
    const WallRuns fed = HandWiring::feed(wallShapeOf(*wall), runs, fits);
    const auto panels = [](const WallRuns &of) {
        qint64 count = 0;
        for (const CableRun &run : of)
            count += std::ssize(run.cells);
        return count;
    };
    if (fed != runs)
        giveRuns(*wall, fed);
    return panels(fed) - panels(runs);
}

bool CableHand::takeBack(const Show &show, const Panel &panel)
{
    const auto port = portAt(panel);
    if (!port)
        return false;
    PortEdits::ShowRuns runs = runsOf(show);
    std::optional<std::pair<std::size_t, std::size_t>> last; // wall and run
    for (std::size_t wall = 0; wall < runs.size(); ++wall) {
        for (std::size_t run = 0; run < runs[wall].size(); ++run) {
            if (runs[wall][run].port == *port &&
                (!last || runs[wall][run].piece >= runs[last->first][last->second].piece))
                last = std::pair(wall, run);
        }
    }
    runs[last->first] = HandWiring::takeBack(runs[last->first], last->second);
    give(show, runs);
    return true;
}
