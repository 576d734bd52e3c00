#pragma once

#include "live/ScreenAwake.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

/// The same by the session's bus: its screen saver, else the portal. Where there is no bus, or nobody answers, nothing
/// happens but a line in the log.
class BusScreenAwake final : public QObject, public ScreenAwake
{
    Q_OBJECT

public:
    explicit BusScreenAwake(QDBusConnection bus, QObject *parent = nullptr);

    void keep(bool isAwake) override;

private:
    void ask();
    void askPortal();
    /// An answer has come: what ends the wish, which is sent at once where nobody wants it any more.
    void take(const QDBusMessage &end);

    QDBusConnection m_bus;
    bool m_isWanted = false;
    bool m_isAsked = false; ///< and not answered yet
    QDBusMessage m_end;     ///< what ends it; of no type where nothing holds
};
