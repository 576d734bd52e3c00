#pragma once

#include "app/Wiring.h"

#include <QPoint>
#include <QString>

#include <functional>

class LWAppDelegate;
class QMenu;

/// What can be done with the cable of a panel, and with the cables of its wall. Each is one step.
class CableMenu
{
public:
    /// Is called after each: with what could not be done, or that it could.
    using Tell = std::function<void(const Result<void> &done)>;

    /// Actions of a menu use copies of both; the document outlives them.
    CableMenu(LWAppDelegate &document, Tell tell);

    /// Of the topmost wall at that pixel of the output; nothing where there is none, or no panel.
    void fill(QMenu &menu, const QPoint &pixel) const;

private:
    void fillForPort(QMenu &menu, const CableHand::Panel &panel, const PortName &port) const;
    void fillForWall(QMenu &menu, const CableHand::Panel &panel) const;
    void addEdit(QMenu &menu, const QString &text, const QString &name, const Wiring::CableEdit &edit) const;
    /// An action that asks for the number of a port of the same processor first.
    void addEditWithPort(
        QMenu &menu, const QString &text, const QString &name, const PortName &port,
        std::function<Result<PortEdits::ShowRuns>(const PortEdits::ShowRuns &, const PortName &)> edit) const;

    LWAppDelegate &m_document;
    Tell m_tell;
};
