#include "charts/FrameCount.h"
#include "charts/Painters.h"
#include "charts/PanelWords.h"

#include <QHash>

#include <iterator>

namespace {
/// How many places each port has, and how many come on the ports before it.
class PortLengths
{
public:
    explicit PortLengths(const std::vector<ChartPanel> &panels)
    {
        std::vector<QString> order;
        for (const ChartPanel &panel : panels) {
            if (panel.number < 1)
                continue;
            Port &port = m_ports[panel.port];
            if (port.length == 0)
                order.push_back(panel.port);
            port.length = std::max<qint64>(port.length, panel.number);
        }
        for (const QString &name : order) {
            m_ports[name].before = m_total;
            m_total += m_ports[name].length;
        }
    }

    qint64 lengthOf(const QString &port) const { return m_ports.value(port).length; }
    qint64 before(const QString &port) const { return m_ports.value(port).before; }
    qint64 total() const { return m_total; }

private:
    struct Port
    {
        qint64 length = 0;
        qint64 before = 0;
    };
    QHash<QString, Port> m_ports;
    qint64 m_total = 0;
};

enum class Ports
{
    Together,
    InTurn
};

using Lit = std::vector<std::size_t>; ///< places in the shape's panels, ascending

Lit litPanels(const ChartShape &shape, Ports ports, qint64 frame)
{
    const PortLengths lengths(shape.panels);
    const qint64 step = FrameCount::step(frame, FrameCount::hold(shape));
    Lit lit;
    for (std::size_t i = 0; i < shape.panels.size(); ++i) {
        const ChartPanel &panel = shape.panels[i];
        if (panel.number < 1)
            continue;
        const bool isLit =
            ports == Ports::Together
                ? FrameCount::within(step, lengths.lengthOf(panel.port)) == panel.number - 1
                : FrameCount::within(step, lengths.total()) == lengths.before(panel.port) + panel.number - 1;
        if (isLit)
            lit.push_back(i);
    }
    return lit;
}

void drawChase(ChartPainter &painter, const ChartShape &shape, Ports ports, qint64 frame)
{
    const ChartLevels &levels = painter.levels();
    painter.fill(painter.whole(), levels.black());
    for (const std::size_t i : litPanels(shape, ports, frame)) {
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
    const Lit before = litPanels(shape, ports, from);
    const Lit after = litPanels(shape, ports, to);
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
