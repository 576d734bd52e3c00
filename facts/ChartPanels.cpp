#include "facts/ChartPanels.h"

#include "screen/LWScreen.h"

#include <algorithm>

namespace {
/// Far beyond any output; sums of two of them are numbers still.
constexpr qint64 farthest = qint64{1} << 29;

QRect rectOf(const PixelBox &box)
{
    const auto number = [](qint64 value) { return static_cast<int>(std::clamp(value, -farthest, farthest)); };
    return QRect(QPoint(number(box.columns.from), number(box.rows.from)),
                 QPoint(number(box.columns.to) - 1, number(box.rows.to) - 1));
}

/// Where a panel hangs.
struct ChartPlace
{
    QString port;
    int number = 0;
};

/// Which walls are seen and among the first WallPanels::mostPanels panels.
std::vector<bool> wallsOfCharts(const std::vector<LayerPointer> &layers, const ShowPorts &ports)
{
    std::vector<bool> asked;
    qint64 count = 0;
    for (std::size_t wall = 0; wall < ports.rows.size(); ++wall) {
        const qint64 panels = ports.show.walls[wall].shape.panelCount();
        asked.push_back(layers[static_cast<std::size_t>(ports.rows[wall])]->visible() &&
                        panels <= WallPanels::mostPanels - count);
        count += asked.back() ? panels : 0;
    }
    return asked;
}

/// The places of the panels of some walls.
class PlacesOnPorts
{
public:
    PlacesOnPorts(const ShowPorts &ports, const std::vector<bool> &asked) : m_places(asked.size())
    {
        for (std::size_t wall = 0; wall < asked.size(); ++wall) {
            if (asked[wall])
                m_places[wall].resize(static_cast<std::size_t>(ports.show.walls[wall].shape.panelCount()));
        }
        for (const ShowWiring::Port &port : ports.wiring.ports)
            addPort(ports, port);
        for (std::size_t wall = 0; wall < asked.size(); ++wall) {
            if (asked[wall] && ports.wiring.walls[wall].state == ShowWiring::State::LeftOut)
                addLines(ports.show.walls[wall], m_places[wall]);
        }
    }

    const ChartPlace &of(std::size_t wall, const WallShape &shape, const Cell &cell) const
    {
        return m_places[wall][indexOf(shape, cell)];
    }

private:
    using Places = std::vector<ChartPlace>; ///< of a wall, row by row; none of one that is not asked for

    static std::size_t indexOf(const WallShape &shape, const Cell &cell)
    {
        return static_cast<std::size_t>(qint64{cell.row} * shape.grid.columns.count() + cell.column);
    }

    void addPort(const ShowPorts &ports, const ShowWiring::Port &port)
    {
        const QString name = ports.nameOf(port);
        int number = 0;
        for (const ShowWiring::Piece &piece : port.pieces) {
            const WallSplit &split = ports.wiring.walls[piece.wall].split;
            for (const WiredPanel &panel : split.panelsOf(split.runs[piece.run])) {
                if (!panel.isOn)
                    continue;
                ++number;
                if (!m_places[piece.wall].empty())
                    m_places[piece.wall][indexOf(ports.show.walls[piece.wall].shape, panel.cell)] = {name, number};
            }
        }
    }

    /// Of a wall that no processor feeds.
    static void addLines(const WallToWire &wall, Places &places)
    {
        const std::optional<FlowPattern> pattern = FlowPattern::ofCode(wall.pattern);
        if (!pattern)
            return;
        const WallSplit split = WallSplit::byLines(wall.shape, *pattern, wall.pixelLimit);
        int port = 0;
        for (const WallSplit::Run &run : split.runs) {
            const QString name = QString("%1 %2").arg(wall.name, QString::number(++port)).trimmed();
            int number = 0;
            for (const WiredPanel &panel : split.panelsOf(run))
                places[indexOf(wall.shape, panel.cell)] = {name, ++number};
        }
    }

    std::vector<Places> m_places;
};

ChartPanels::Wall chartWall(const LWScreen &layer, const ShowPorts &ports, std::size_t wall,
                            const PlacesOnPorts &places)
{
    const WallShape &shape = ports.show.walls[wall].shape;
    ChartPanels::Wall panels{ports.rows[wall], rectOf(PixelBox::of(layer)), {}};
    for (int row = 0; row < shape.grid.rows.count(); ++row) {
        for (int column = 0; column < shape.grid.columns.count(); ++column) {
            const Cell cell{column, row};
            if (shape.off.contains(cell))
                continue;
            const ChartPlace &place = places.of(wall, shape, cell);
            panels.panels.push_back({rectOf(shape.boxOf(cell)), layer.panelLabel(cell), place.port, place.number});
        }
    }
    return panels;
}
} // namespace

ChartPanels ChartPanels::of(const std::vector<LayerPointer> &layers, const ShowPorts &ports)
{
    const std::vector<bool> asked = wallsOfCharts(layers, ports);
    const PlacesOnPorts places(ports, asked);
    ChartPanels all;
    for (std::size_t wall = 0; wall < asked.size(); ++wall) {
        const Layer &layer = *layers[static_cast<std::size_t>(ports.rows[wall])];
        if (asked[wall])
            all.walls.push_back(chartWall(static_cast<const LWScreen &>(layer), ports, wall, places));
    }
    return all;
}

std::vector<ChartPanel> ChartPanels::panels() const
{
    std::vector<ChartPanel> panels;
    for (const Wall &wall : walls)
        panels.insert(panels.end(), wall.panels.begin(), wall.panels.end());
    return panels;
}

std::vector<QRect> ChartPanels::boxes() const
{
    std::vector<QRect> boxes;
    for (const Wall &wall : walls)
        boxes.push_back(wall.box);
    return boxes;
}
