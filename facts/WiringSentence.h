#pragma once

#include "facts/ShowPorts.h"
#include "wiring/WiringFinding.h"

/// Says what a finding of the wiring is, in one sentence with its figures and names and what to do. Each function is of
/// one check.
class WiringSentence
{
public:
    WiringSentence(const WiringFinding &finding, const ShowPorts &ports) : m_finding(finding), m_ports(ports) {}

    QString portOver() const;
    QString portNearlyFull() const;
    QString linesOver() const;
    QString panelFedTwice() const;
    QString panelNotFed() const;
    QString cellMissing() const;
    QString jump() const;
    QString capExceeded() const;
    QString canvasExceeded() const;
    QString processorsMissing() const;
    QString noFigure() const;
    QString wallWaits() const;
    QString processorUnknown() const;
    QString runOfMissing() const;
    QString portMissing() const;
    QString nameUsedTwice() const;
    QString portKeptTwice() const;
    QString partnerTaken() const;
    QString portLeftOver() const;
    QString loopTooLong() const;
    QString noLoops() const;
    QString backupWrong() const;
    QString firstPortMissing() const;
    QString firstPortEndsLoop() const;
    QString firstPortFilled() const;
    QString noPath() const;
    QString tooManyPanels() const;

private:
    QString port() const { return m_finding.port ? m_finding.port->text() : QString(); }
    const ProcessorSettings &settings() const { return m_ports.show.processors[*m_finding.processor]; }
    QString wall() const { return m_ports.wallName(*m_finding.wall); }
    QString panelsAre() const;
    QString amount(qint64 number) const;
    QString bearsAndWhatToDo() const;

    const WiringFinding &m_finding;
    const ShowPorts &m_ports;
};
