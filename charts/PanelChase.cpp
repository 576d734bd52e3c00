#include "charts/FrameCount.h"
#include "charts/Painters.h"
#include "charts/PanelWords.h"

#include <QHash>

#include <iterator>

namespace {
struct PortLength
{
    qint64 length = 0; ///< how many places it has
    qint64 before = 0; ///< how many come on the ports before it
};

/// The ports of panels, in the order in which they come.
class PortLengths
{
public:
    explicit PortLengths(const std::vector<ChartPanel> &panels)
    {
        QHash<QString, std::size_t> numbers;
        const QString *last = nullptr; // most panels are on the port of the panel before
        m_portOf.reserve(panels.size());
        for (const ChartPanel &panel : panels) {
            if (!last || *last != panel.port) {
                last = &panel.port;
                const auto known = numbers.constFind(panel.port);
                m_portOf.push_back(known == numbers.constEnd() ? m_ports.size() : *known);
                if (known == numbers.constEnd()) {
                    numbers.insert(panel.port, m_ports.size());
                    m_ports.emplace_back();
                }
            } else {
                m_portOf.push_back(m_portOf.back());
            }
            PortLength &port = m_ports[m_portOf.back()];
            port.length = std::max<qint64>(port.length, panel.number);
        }
        for (PortLength &port : m_ports) {
            port.before = m_total;
            m_total += port.length;
        }
    }

    const PortLength &portOf(std::size_t panel) const { return m_ports[m_portOf[panel]]; }
    qint64 total() const { return m_total; }

private:
    std::vector<PortLength> m_ports;
    std::vector<std::size_t> m_portOf; ///< of each panel
    qint64 m_total = 0;
};

enum class Ports
{
    Together,
    InTurn
};

using Lit = std::vector<std::size_t>; ///< places in the shape's panels, ascending

Lit litPanels(const ChartShape &shape, const PortLengths &lengths, Ports ports, qint64 frame)
{
    const qint64 step = FrameCount::step(frame, FrameCount::hold(shape));
    const qint64 inTurn = lengths.total() == 0 ? 0 : FrameCount::within(step, lengths.total());
    Lit lit;
    for (std::size_t i = 0; i < shape.panels.size(); ++i) {
        const ChartPanel &panel = shape.panels[i];
        if (panel.number < 1)
            continue;
        const PortLength &port = lengths.portOf(i);
        const bool isLit = ports == Ports::Together ? FrameCount::within(step, port.length) == panel.number - 1
                                                    : inTurn == port.before + panel.number - 1;
        if (isLit)
            lit.push_back(i);
    }
    return lit;
}

void drawChase(ChartPainter &painter, const ChartShape &shape, Ports ports, qint64 frame)
{
    const ChartLevels &levels = painter.levels();
    painter.fill(painter.whole(), levels.black());
    for (const std::size_t i : litPanels(shape, PortLengths(shape.panels), ports, frame)) {
        const ChartPanel &panel = shape.panels[i];
        painter.fill(panel.box, levels.white());
        drawPanelWords(painter, panel.box, panel.name, placeOnPort(panel), levels.black());
    }
}

QRegion movedOfChase(const ChartShape &shape, Ports ports, qint64 from, qint64 to)
{
    const qint64 hold = FrameCount::hold(shape);
    if (FrameCount::step(from, hold) == FrameCount::step(to, hold))
        return {};
    const PortLengths lengths(shape.panels);
    const Lit before = litPanels(shape, lengths, ports, from);
    const Lit after = litPanels(shape, lengths, ports, to);
    Lit differ;
    std::set_symmetric_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(differ));
    std::vector<QRect> boxes;
    for (const std::size_t i : differ)
        boxes.push_back(shape.panels[i].box);
    return regionOf(std::move(boxes));
}
} // namespace

void Painters::chase(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    drawChase(painter, shape, Ports::Together, frame);
}

QRegion Painters::chaseMoved(const Shape &shape, qint64 from, qint64 to)
{
    return movedOfChase(shape, Ports::Together, from, to);
}

void Painters::chasePorts(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    drawChase(painter, shape, Ports::InTurn, frame);
}

QRegion Painters::chasePortsMoved(const Shape &shape, qint64 from, qint64 to)
{
    return movedOfChase(shape, Ports::InTurn, from, to);
}
