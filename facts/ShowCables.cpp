#include "facts/ShowCables.h"

#include "screen/LWScreen.h"

#include <algorithm>

namespace {
/// Collects the cables of all walls, run by run, so that each port knows which piece is its last.
class Collection
{
public:
    explicit Collection(const ShowPorts &ports) : m_ports(ports)
    {
        for (const ShowWiring::Wall &wall : ports.wiring.walls)
            m_walls.emplace_back(wall.split.runs.size());
        for (const ShowWiring::Port &port : ports.wiring.ports)
            addPort(port);
        addThoseWithoutPort();
    }

    std::vector<WallCablesPointer> all() const
    {
        std::vector<WallCablesPointer> cables;
        for (std::size_t wall = 0; wall < m_walls.size(); ++wall) {
            const bool isWired = m_ports.wiring.walls[wall].state == ShowWiring::State::Wired;
            cables.push_back(isWired ? std::make_shared<const WallCables>(m_walls[wall]) : nullptr);
        }
        return cables;
    }

private:
    void addPort(const ShowWiring::Port &port)
    {
        int place = 1;
        for (const ShowWiring::Piece &piece : port.pieces) {
            WallCable &cable = m_walls[piece.wall][piece.run];
            cable.port = {m_ports.show.processors[port.processor].name, port.number};
            cable.backup = port.backup;
            cable.cells = cellsOf(piece.wall, piece.run);
            cable.firstPlace = place;
            cable.begins = &piece == &port.pieces.front();
            cable.ends = &piece == &port.pieces.back();
            place += static_cast<int>(cable.cells.size());
        }
    }

    /// Of processors that the show lacks; somebody laid them by hand.
    void addThoseWithoutPort()
    {
        for (std::size_t wall = 0; wall < m_walls.size(); ++wall) {
            const std::vector<std::size_t> &ports = m_ports.wiring.walls[wall].ports;
            const WallRuns &runs = m_ports.show.walls[wall].runs;
            for (std::size_t run = 0; run < std::min(ports.size(), runs.size()); ++run) {
                if (ports[run] != ShowWiring::noPort)
                    continue;
                m_walls[wall][run].port = runs[run].port;
                m_walls[wall][run].cells = cellsOf(wall, run);
                m_walls[wall][run].begins = runs[run].piece == 1;
            }
        }
    }

    std::vector<Cell> cellsOf(std::size_t wall, std::size_t run) const
    {
        const WallSplit &split = m_ports.wiring.walls[wall].split;
        std::vector<Cell> cells;
        for (const WiredPanel &panel : split.panelsOf(split.runs[run])) {
            if (panel.isOn)
                cells.push_back(panel.cell);
        }
        return cells;
    }

    const ShowPorts &m_ports;
    std::vector<WallCables> m_walls; ///< a cable for each run
};
} // namespace

namespace ShowCables {

bool areShown(const Layer &layer)
{
    const LayerRecord &wall = *layer.record();
    const bool isPathOfPorts = wall.drawFlowPath && (wall.split != CableSplit::Lines || wall.portColours);
    return isPathOfPorts || wall.portNames || (wall.drawLabels && wall.panelPlaces);
}

std::vector<WallCablesPointer> of(const ShowPorts &ports)
{
    return Collection(ports).all();
}

void show(const std::vector<LayerPointer> &layers, const ShowPorts &ports)
{
    const std::vector<WallCablesPointer> cables = of(ports);
    for (std::size_t wall = 0; wall < cables.size(); ++wall) {
        Layer &layer = *layers[static_cast<std::size_t>(ports.rows[wall])];
        static_cast<LWScreen &>(layer).showCables(areShown(layer) ? cables[wall] : nullptr);
    }
}

} // namespace ShowCables
