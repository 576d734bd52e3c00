#include "facts/WiringSentence.h"

#include "base/NumberText.h"
#include "facts/PortSummary.h"
#include "show/ShowProcessors.h"

#include <algorithm>

using NumberText::counted;
using NumberText::grouped;

QString WiringSentence::panelsAre() const
{
    return counted(m_finding.found, "panel") + (m_finding.found == 1 ? " is" : " are");
}

QString WiringSentence::amount(qint64 number) const
{
    switch (m_finding.of) {
    case PortExcess::Of::Panels:
        return counted(number, "panel");
    case PortExcess::Of::Width:
        return counted(number, "pixel") + " across";
    case PortExcess::Of::Height:
        return counted(number, "pixel") + " down";
    case PortExcess::Of::Pixels:
        break;
    }
    return counted(number, "pixel");
}

QString WiringSentence::bearsAndWhatToDo() const
{
    const QString limit = grouped(m_finding.limit);
    if (m_finding.isHeadroomOnly)
        return QString("shall carry %1, so that %2 % stay free; move panels to another port.")
            .arg(limit)
            .arg(settings().headroom);
    return QString("carries %1; move panels to another port.").arg(limit);
}

QString WiringSentence::portOver() const
{
    const ShowWiring::Port &over = m_ports.wiring.ports[*m_finding.portPlace];
    const PortBounds &bounds = *m_ports.wiring.processors[over.processor].ports;
    const bool isOfPixels = m_finding.of == PortExcess::Of::Pixels;
    if (isOfPixels && over.load.panels == 1)
        return QString("A single panel on port %1 has %2, and the port carries %3; lower the rate or the bits, or take "
                       "another processor.")
            .arg(port(), amount(m_finding.found), grouped(m_finding.limit));
    const bool isBox = isOfPixels && bounds.isRectangle && over.load.boxPixels() > over.load.pixels;
    return QString("Port %1 has %2%3 and %4")
        .arg(port(), amount(m_finding.found), isBox ? " with the box around its panels" : "", bearsAndWhatToDo());
}

QString WiringSentence::portNearlyFull() const
{
    return QString("Port %1 has %2 of the %3 that it carries.")
        .arg(port(), amount(m_finding.found), grouped(m_finding.limit));
}

QString WiringSentence::linesOver() const
{
    return QString("One line of panels has %1, a port carries %2; make the lines shorter or cut the wall panel by "
                   "panel.")
        .arg(counted(m_finding.found, "pixel"), grouped(m_finding.limit));
}

QString WiringSentence::panelFedTwice() const
{
    return QString("%1 on more than one cable; take them off all but one.").arg(panelsAre());
}

QString WiringSentence::panelNotFed() const
{
    return QString("%1 on no cable; lay one through them.").arg(panelsAre());
}

QString WiringSentence::cellMissing() const
{
    return QString("Its cables name %1 that it does not have; lay them anew.").arg(counted(m_finding.found, "panel"));
}

QString WiringSentence::jump() const
{
    return QString("A cable reaches over more than one panel in %1; check that it is long enough.")
        .arg(counted(m_finding.found, "place"));
}

QString WiringSentence::capExceeded() const
{
    return QString("Processor %1 has %2 and carries %3; move walls to another one.")
        .arg(settings().name, counted(m_finding.found, "pixel"), grouped(m_finding.limit));
}

QString WiringSentence::canvasExceeded() const
{
    const PixelBox &box = m_finding.box;
    return QString("The panels of processor %1 lie over %2 px, more than its canvas holds; move walls to another "
                   "one.")
        .arg(settings().name, NumberText::size(box.columns.to - box.columns.from, box.rows.to - box.rows.from));
}

QString WiringSentence::processorsMissing() const
{
    const ShowWiring::Shortage &shortage = m_ports.wiring.shortages[*m_finding.shortage];
    const QString sentence = PortSummary::shortage(m_ports, shortage);
    if (m_finding.limit == 0)
        return sentence + "; choose another model.";
    const ProcessorSettings &full = m_ports.show.processors[shortage.processor];
    const auto other = std::ranges::find_if(m_ports.show.processors, [&](const ProcessorSettings &settings) {
        return settings.model == full.model && !settings.isLike(full);
    });
    if (other == m_ports.show.processors.end())
        return sentence + '.';
    return sentence + QString("; %1 takes none of them, as its settings are others.").arg(other->name);
}

QString WiringSentence::noFigure() const
{
    return QString("Processor %1: %2")
        .arg(settings().name, m_ports.wiring.processors[*m_finding.processor].ports.error().sentence);
}

QString WiringSentence::wallWaits() const
{
    return QString("%1 waits: %2").arg(wall(), m_ports.wiring.processors[*m_finding.processor].ports.error().sentence);
}

QString WiringSentence::processorUnknown() const
{
    return QString("It is fed by processor %1, which the show does not have; add it or choose another.")
        .arg(m_finding.name);
}

QString WiringSentence::runOfMissing() const
{
    if (m_finding.found == 1)
        return QString("A cable hangs on %1, and the show has no processor %2; add it or move the cable.")
            .arg(port(), m_finding.name);
    return QString("%1 hang on processor %2, which the show does not have; add it or move the cables.")
        .arg(counted(m_finding.found, "cable"), m_finding.name);
}

QString WiringSentence::portMissing() const
{
    if (m_finding.limit == 0)
        return QString("A cable hangs on %1, and no processor has so many ports; move the cable.").arg(port());
    return QString("A cable hangs on %1, and the processor has %2; move the cable.")
        .arg(port(), counted(m_finding.limit, "port"));
}

QString WiringSentence::nameUsedTwice() const
{
    return QString("Two processors are called %1; give one another name.").arg(m_finding.name);
}

QString WiringSentence::portKeptTwice() const
{
    return QString("%1 and %2 both claim port %3; let one of them take another.")
        .arg(wall(), m_ports.wallName(*m_finding.otherWall), port());
}

QString WiringSentence::partnerTaken() const
{
    if (m_finding.otherPort->processor == m_finding.port->processor)
        return QString("The loop of port %1 ends on a port that feeds panels of its own; free that port.").arg(port());
    return QString("The other end of port %1 comes in at %2, which feeds panels or ends another cable; free that port.")
        .arg(port(), m_finding.otherPort->text());
}

QString WiringSentence::portLeftOver() const
{
    if (m_finding.found == 1)
        return QString("Port %1 has no partner for a loop and stays free.").arg(port());
    return QString("%1, from %2 on, have no partner for a loop and stay free.")
        .arg(counted(m_finding.found, "port"), port());
}

QString WiringSentence::loopTooLong() const
{
    return QString("The loop of port %1 has %2, and %3 are the most; make it shorter.")
        .arg(port(), counted(m_finding.found, "panel"), grouped(m_finding.limit));
}

QString WiringSentence::noLoops() const
{
    if (m_finding.limit == 0)
        return QString("Nobody says how many ports a %1 has, so processor %2 closes no loops; choose no backup or "
                       "another model.")
            .arg(settings().model, settings().name);
    return QString("The ports of a %1 close no loops, and those of processor %2 have no backup; choose a second "
                   "processor.")
        .arg(settings().model, settings().name);
}

QString WiringSentence::backupWrong() const
{
    const QString begin = QString("The backup of processor %1 is ").arg(settings().name);
    if (m_finding.name.isEmpty())
        return begin + "a second processor that nobody named; choose one.";
    if (m_finding.name == settings().name)
        return begin + "the same processor; choose another one.";
    const ProcessorSettings *const second = ShowProcessors::find(m_ports.show.processors, m_finding.name);
    if (!second)
        return begin + QString("%1, which the show does not have; add it or choose another.").arg(m_finding.name);
    return begin + QString("%1, a %2 and no %3; choose one of the same model.")
                       .arg(second->name, second->model, settings().model);
}

QString WiringSentence::firstPortMissing() const
{
    if (m_finding.limit == 0)
        return QString("%1 keeps port %2 first, and no processor has so many ports; choose another first port.")
            .arg(wall(), port());
    if (m_finding.port->number <= m_finding.limit)
        return QString(
                   "%1 keeps port %2 first, which takes the other end of a loop as all behind it do; choose another "
                   "first port.")
            .arg(wall(), port());
    return QString("%1 keeps port %2 first, and processor %3 has %4; choose another first port.")
        .arg(wall(), port(), settings().name, counted(m_finding.limit, "port"));
}

QString WiringSentence::firstPortEndsLoop() const
{
    return QString("%1 keeps port %2 first, which takes the other end of a loop, so it begins at the next one; "
                   "choose another first port.")
        .arg(wall(), port());
}

QString WiringSentence::firstPortFilled() const
{
    return QString("%1 keeps port %2 behind %3, which has grown, so its panels hang elsewhere; keep the ports anew.")
        .arg(wall(), port(), m_ports.wallName(*m_finding.otherWall));
}

QString WiringSentence::noPath() const
{
    return QString("There is no pattern %1, so none of its panels hangs on a port; choose a pattern.")
        .arg(m_finding.found);
}

QString WiringSentence::tooManyPanels() const
{
    return QString("Ports are worked out for %1 of a show, and it comes behind them; take walls off their processors.")
        .arg(counted(m_finding.limit, "panel"));
}
