#include "live/BusScreenAwake.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>

namespace {
/// Answers any call, and keeps what was called.
class Recorder : public QDBusVirtualObject
{
public:
    QStringList calls;

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        calls.append(message.interface().section('.', -1) + '.' + message.member() + ' ' +
                     (message.arguments().isEmpty() ? QString() : message.arguments().constFirst().toString()));
        const bool isPortal = message.interface().contains("portal");
        if (message.member() == "Inhibit")
            return connection.send(
                message.createReply(isPortal ? QVariant::fromValue(QDBusObjectPath("/handle/7")) : QVariant(42U)));
        return connection.send(message.createReply());
    }
};

/// A bus of its own, with nobody on it at first.
class BusScreenAwakeTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        ASSERT_TRUE(m_daemon.waitForStarted()) << "dbus-daemon is not installed";
        while (!m_daemon.canReadLine())
            ASSERT_TRUE(m_daemon.waitForReadyRead());
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    void TearDown() override
    {
        for (const char *name : {"service", "program"})
            QDBusConnection::disconnectFromBus(name);
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    void serve(const QString &name)
    {
        QDBusConnection bus = QDBusConnection::connectToBus(m_address, "service");
        ASSERT_TRUE(bus.registerVirtualObject("/", &service, QDBusConnection::SubPath));
        ASSERT_TRUE(bus.registerService(name));
    }
    QDBusConnection program() { return QDBusConnection::connectToBus(m_address, "program"); }
    QStringList callsAfterAWhile(qsizetype count)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return service.calls.size() >= count; }));
        QTest::qWait(30);
        return service.calls;
    }

    Recorder service;

private:
    QProcess m_daemon;
    QString m_address;
};
} // namespace

TEST_F(BusScreenAwakeTest, TheScreenSaverIsHeldOnceAndLetGo)
{
    serve("org.freedesktop.ScreenSaver");
    BusScreenAwake awake(program());
    awake.keep(true);
    awake.keep(true);
    EXPECT_EQ(callsAfterAWhile(1), QStringList("ScreenSaver.Inhibit wallwright"));
    awake.keep(true);
    awake.keep(false);
    awake.keep(false);
    EXPECT_EQ(callsAfterAWhile(2), (QStringList{"ScreenSaver.Inhibit wallwright", "ScreenSaver.UnInhibit 42"}));
}

TEST_F(BusScreenAwakeTest, WhatIsNoLongerWantedWhenTheAnswerComesIsLetGo)
{
    serve("org.freedesktop.ScreenSaver");
    BusScreenAwake awake(program());
    awake.keep(true);
    awake.keep(false);
    EXPECT_EQ(callsAfterAWhile(2), (QStringList{"ScreenSaver.Inhibit wallwright", "ScreenSaver.UnInhibit 42"}));
}

TEST_F(BusScreenAwakeTest, WithoutAScreenSaverThePortalIsAsked)
{
    serve("org.freedesktop.portal.Desktop");
    BusScreenAwake awake(program());
    awake.keep(true);
    EXPECT_EQ(callsAfterAWhile(1), QStringList("Inhibit.Inhibit "));
    awake.keep(false);
    EXPECT_EQ(callsAfterAWhile(2), (QStringList{"Inhibit.Inhibit ", "Request.Close "}));
}

TEST_F(BusScreenAwakeTest, WhereNobodyAnswersItIsAskedAgainNextTime)
{
    BusScreenAwake awake(program());
    awake.keep(true);
    QTest::qWait(50);
    awake.keep(false);
    serve("org.freedesktop.ScreenSaver");
    awake.keep(true);
    EXPECT_EQ(callsAfterAWhile(1), QStringList("ScreenSaver.Inhibit wallwright"));
}

TEST(BusScreenAwake, WithoutABusNothingHappens)
{
    BusScreenAwake awake(QDBusConnection("nowhere"));
    awake.keep(true);
    awake.keep(false);
}
