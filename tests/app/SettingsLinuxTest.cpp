// Permissions and links as Linux has them.

#include "app/Settings.h"
#include "tests/base/AsNobody.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

TEST(SettingsLinux, BehindALinkTheyAreWrittenWhereTheyAre)
{
    const QTemporaryDir folder;
    const QString elsewhere = folder.filePath("settings.conf");
    const QString path = qEnvironmentVariable("XDG_CONFIG_HOME") + "/wallwright/wallwright.conf";
    Settings::setOtherVolts(240);
    ASSERT_TRUE(QFile::rename(path, elsewhere) && QFile::link(elsewhere, path));
    EXPECT_EQ(Settings::otherVolts(), 240);

    Settings::setOtherVolts(220);

    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_EQ(QSettings(elsewhere, QSettings::IniFormat).value("supply/otherVolts").toInt(), 220);
    QFile::remove(path);
}

TEST(SettingsLinux, InAFolderThatTurnedReadOnlyTheOldOnesStay)
{
    const QString path = qEnvironmentVariable("XDG_CONFIG_HOME") + "/wallwright/wallwright.conf";
    QFile::remove(path);
    Settings::setOtherVolts(240);
    const QDir folder = QFileInfo(path).dir();
    const QByteArray home = QFile::encodeName(folder.filePath(".."));
    ASSERT_EQ(chmod(home.constData(), 0755), 0); // for nobody
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0555), 0);

    const QString volts = toldToNobody([] {
        Settings::setOtherVolts(220);
        return QString::number(Settings::otherVolts());
    });

    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    ASSERT_EQ(chmod(home.constData(), 0700), 0);
    EXPECT_EQ(volts, "240");
    EXPECT_EQ(folder.entryList(QDir::Files | QDir::Hidden), QStringList("wallwright.conf"));
    QFile::remove(path);
}
