#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

/// Asks the desktop to leave the screen on, by the session's bus: its screen saver, else the portal. Where there is no
/// bus, or nobody answers, nothing happens but a line in the log. What was asked for ends with the program.
/// Main thread only.
class ScreenAwake final : public QObject
{
    Q_OBJECT

public:
    explicit ScreenAwake(QDBusConnection bus, QObject *parent = nullptr);

    /// Whether the screen shall stay on.
    void keep(bool isAwake);

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
