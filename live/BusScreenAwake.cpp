#include "live/BusScreenAwake.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QLoggingCategory>
#include <QVariantMap>

#include <utility>

namespace {
Q_LOGGING_CATEGORY(awakeLog, "wallwright.awake", QtInfoMsg)

// https://specifications.freedesktop.org/idle-inhibit-spec/latest/
constexpr char saver[] = "org.freedesktop.ScreenSaver";
constexpr char saverPath[] = "/org/freedesktop/ScreenSaver";
// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Inhibit.html
constexpr char portal[] = "org.freedesktop.portal.Desktop";
constexpr char portalPath[] = "/org/freedesktop/portal/desktop";
constexpr char inhibit[] = "org.freedesktop.portal.Inhibit";
constexpr char request[] = "org.freedesktop.portal.Request";
constexpr uint idleFlag = 8;

const QString applicationName("wallwright");
const QString reason("The output is shown on a display");
} // namespace

BusScreenAwake::BusScreenAwake(QDBusConnection bus, QObject *parent) : QObject(parent), m_bus(std::move(bus)) {}

void BusScreenAwake::keep(bool isAwake)
{
    if (std::exchange(m_isWanted, isAwake) == isAwake)
        return;
    if (isAwake && !m_isAsked && m_end.type() == QDBusMessage::InvalidMessage)
        ask();
    else if (!isAwake && m_end.type() != QDBusMessage::InvalidMessage)
        m_bus.send(std::exchange(m_end, {}));
}

void BusScreenAwake::ask()
{
    if (!m_bus.isConnected()) {
        qCInfo(awakeLog, "There is no session bus: nobody is asked to leave the screen on.");
        return;
    }
    m_isAsked = true;
    QDBusMessage call = QDBusMessage::createMethodCall(saver, saverPath, saver, "Inhibit");
    call << applicationName << reason;
    auto *answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *done) {
        done->deleteLater();
        const QDBusPendingReply<uint> cookie = *done;
        if (cookie.isError())
            return askPortal();
        QDBusMessage end = QDBusMessage::createMethodCall(saver, saverPath, saver, "UnInhibit");
        end << cookie.value();
        take(end);
    });
}

void BusScreenAwake::askPortal()
{
    QDBusMessage call = QDBusMessage::createMethodCall(portal, portalPath, inhibit, "Inhibit");
    call << QString() << idleFlag << QVariantMap{{"reason", reason}};
    auto *answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *done) {
        done->deleteLater();
        const QDBusPendingReply<QDBusObjectPath> handle = *done;
        if (!handle.isError())
            return take(QDBusMessage::createMethodCall(portal, handle.value().path(), request, "Close"));
        m_isAsked = false;
        qCInfo(awakeLog, "Nobody leaves the screen on: %s", qUtf8Printable(handle.error().message()));
    });
}

void BusScreenAwake::take(const QDBusMessage &end)
{
    m_isAsked = false;
    if (m_isWanted)
        m_end = end;
    else
        m_bus.send(end);
}
