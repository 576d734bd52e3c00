#include "app/Settings.h"

#include "base/System.h"
#include "tests/base/FullDisk.h"

#include <QColor>
#include <QDataStream>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
/// Begins and ends without a settings file.
class SettingsTest : public ::testing::Test
{
protected:
    SettingsTest() { QFile::remove(path); }
    ~SettingsTest() override { QFile::remove(path); }

    void write(const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    /// The path as it is remembered: with its drive where there are drives.
    static QString at(const QString &file) { return QFileInfo(file).absoluteFilePath(); }
    void store(const QString &key, const QVariant &value) const
    {
        QSettings(path, QSettings::IniFormat).setValue(key, value);
    }
    static void expectNothing()
    {
        EXPECT_TRUE(Settings::recentFiles().isEmpty());
        EXPECT_TRUE(Settings::windowGeometry().isEmpty());
        EXPECT_TRUE(Settings::windowState().isEmpty());
    }

    const QString path =
        QSettings(System::settingsFormat(), QSettings::UserScope, "wallwright", "wallwright").fileName();
};

/// Lists within lists, as many, as a settings file has them.
QByteArray nestedLists(int depth)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_0);
    for (int i = 0; i < depth; ++i)
        stream << quint32{9} << quint32{1}; // a list of one value
    stream << quint32{2} << qint32{5};
    return "[General]\nrecentFiles=\"@Variant(" + bytes + ")\"\n";
}
} // namespace

TEST_F(SettingsTest, AreEmptyAtFirstAndLeaveNoFile)
{
    expectNothing();

    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(SettingsTest, LieInThePlatformsPlace)
{
    Settings::noteRecentFile("/shows/stage.Orv");

    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(SettingsTest, TheMostRecentFileComesFirstAndNoneTwice)
{
    for (const char *file : {"/a.Orv", "/b.Orv", "/c.Orv", "/b.Orv", "/x/../b.Orv"})
        Settings::noteRecentFile(file);

    EXPECT_EQ(Settings::recentFiles(), (QStringList{at("/b.Orv"), at("/c.Orv"), at("/a.Orv")}));
}

TEST_F(SettingsTest, TenFilesAreRemembered)
{
    for (int i = 0; i < 13; ++i)
        Settings::noteRecentFile(QString("/%1.Orv").arg(i));

    EXPECT_EQ(Settings::recentFiles().size(), 10);
    EXPECT_EQ(Settings::recentFiles().first(), at("/12.Orv"));
    EXPECT_EQ(Settings::recentFiles().last(), at("/3.Orv"));
}

TEST_F(SettingsTest, PathsAreAbsoluteWhateverWasGiven)
{
    Settings::noteRecentFile("shows/Bühne, 左; \"1\".Orv");
    Settings::noteRecentFile("");

    EXPECT_EQ(Settings::recentFiles(), QStringList{QDir::currentPath() + "/shows/Bühne, 左; \"1\".Orv"});
}

TEST_F(SettingsTest, AFileThatIsGoneStaysUntilItIsForgotten)
{
    Settings::noteRecentFile("/nowhere/gone.Orv");
    Settings::noteRecentFile("/nowhere/other.Orv");
    EXPECT_EQ(Settings::recentFiles().size(), 2);

    Settings::forgetRecentFile("/nowhere/gone.Orv");
    Settings::forgetRecentFile("/nowhere/never.Orv");

    EXPECT_EQ(Settings::recentFiles(), QStringList{at("/nowhere/other.Orv")});
}

TEST_F(SettingsTest, TheLastFileCanBeForgotten)
{
    Settings::noteRecentFile("/a.Orv");

    Settings::forgetRecentFile("/a.Orv");

    EXPECT_TRUE(Settings::recentFiles().isEmpty());
}

TEST_F(SettingsTest, TheWindowComesBackByteForByte)
{
    const QByteArray geometry("\x01\xd9\xd0\xcb\0\0\xff,;\"\n", 11);
    Settings::setWindowGeometry(geometry);
    Settings::setWindowState("state");
    Settings::noteRecentFile("/a.Orv");

    EXPECT_EQ(Settings::windowGeometry(), geometry);
    EXPECT_EQ(Settings::windowState(), "state");
}

TEST_F(SettingsTest, AnotherProgramsFilesAreNotForgotten)
{
    Settings::noteRecentFile("/a.Orv");
    store("recentFiles", QStringList{at("/other.Orv"), at("/a.Orv")});

    Settings::noteRecentFile("/b.Orv");

    EXPECT_EQ(Settings::recentFiles(), (QStringList{at("/b.Orv"), at("/other.Orv"), at("/a.Orv")}));
}

TEST_F(SettingsTest, ADamagedFileIsAsGoodAsNone)
{
    QByteArray noise(5000, 0);
    for (int i = 0; i < noise.size(); ++i)
        noise[i] = static_cast<char>(i * 7919 >> 3);
    for (const QByteArray &bytes :
         {QByteArray("not settings at all"), noise,
          QByteArray("[General]\nrecentFiles=@Variant(\\0\\0\\0\\x7f\\xff)\n"),
          QByteArray(
              "[General]\nrecentFiles=@Variant(\\0\\0\\0\\n\\x7f\\xff\\xff\\xff)\n[window]\ngeometry=@Point(1)\n")}) {
        write(bytes);
        expectNothing();
    }

    Settings::noteRecentFile("/b.Orv");
    EXPECT_EQ(Settings::recentFiles(), QStringList{at("/b.Orv")});
}

TEST_F(SettingsTest, AFileOfMoreThan64KibibytesIsAsGoodAsNone)
{
    const QByteArray settings = "[General]\nrecentFiles=/a.Orv\n;";
    write(settings.leftJustified(65'536, 'x'));
    EXPECT_EQ(Settings::recentFiles(), QStringList{"/a.Orv"});
    write(settings.leftJustified(65'537, 'x'));
    expectNothing();
}

TEST_F(SettingsTest, ValuesOfAnotherKindAreAsGoodAsNone)
{
    for (const QVariant &value : {QVariant(5), QVariant(2.5), QVariant("a text"), QVariant(QColor(Qt::red)),
                                  QVariant(QVariantMap{{"a", 1}}), QVariant(QVariantList{1, QColor(Qt::blue)})}) {
        for (const char *key : {"recentFiles", "window/geometry", "window/state"})
            store(key, value);
        expectNothing();
    }
}

TEST_F(SettingsTest, AListFromElsewhereIsKeptInOrder)
{
    QStringList files{"relative.Orv", at("/") + "a/../a.Orv", at("/a.Orv"), ""};
    for (int i = 0; i < 30; ++i)
        files.append(at(QString("/%1.Orv").arg(i)));
    store("recentFiles", files);

    EXPECT_EQ(Settings::recentFiles().size(), 10);
    EXPECT_EQ(Settings::recentFiles().mid(0, 3), (QStringList{at("/a.Orv"), at("/0.Orv"), at("/1.Orv")}));
}

TEST_F(SettingsTest, ValuesNestedWithoutEndAreNotRead)
{
    for (const int depth : {1, 8000, 300'000}) {
        write(nestedLists(depth));
        expectNothing();
    }

    Settings::noteRecentFile("/a.Orv");

    EXPECT_EQ(Settings::recentFiles(), QStringList{at("/a.Orv")});
    EXPECT_LT(QFileInfo(path).size(), 1000);
}

TEST_F(SettingsTest, AFullDiskLeavesTheOldOnes)
{
    Settings::setWindowState("state");
    Settings::noteRecentFile("/a.Orv");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();

    for (const int bytes : {0, 10, static_cast<int>(before.size())}) {
        const FullDisk disk(bytes);
        Settings::noteRecentFile("/shows/another.Orv");
    }

    file.close();
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), before);
    file.close(); // or Windows would replace it for nobody
    Settings::noteRecentFile("/b.Orv");
    EXPECT_EQ(Settings::recentFiles(), (QStringList{at("/b.Orv"), at("/a.Orv")}));
    EXPECT_EQ(Settings::windowState(), "state");
}

TEST_F(SettingsTest, EachOfManyWritesInARowIsSeen)
{
    for (int volts = 200; volts < 260; ++volts) { // of one length
        Settings::setOtherVolts(volts);
        EXPECT_EQ(Settings::otherVolts(), volts);
    }
}

TEST_F(SettingsTest, AClockThatWasSetBackHidesNoChange)
{
    Settings::setOtherVolts(230);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(1), QFileDevice::FileModificationTime));
    file.close();
    EXPECT_EQ(Settings::otherVolts(), 230);

    for (const int volts : {240, 250}) { // of one length
        Settings::setOtherVolts(volts);
        EXPECT_EQ(Settings::otherVolts(), volts);
    }
}

TEST_F(SettingsTest, AFolderInTheirPlaceIsAsGoodAsNone)
{
    ASSERT_TRUE(QDir().mkpath(path));

    expectNothing();

    EXPECT_TRUE(QDir().rmdir(path));
}
