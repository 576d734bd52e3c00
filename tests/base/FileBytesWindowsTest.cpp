// Files that are held, long paths and the names of devices as Windows has them.

#include "base/FileBytes.h"
#include "base/System.h"
#include "tests/base/WrittenFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <windows.h>

namespace {
/// Has a file open as a program has that lets others read it.
class HeldFile
{
public:
    explicit HeldFile(const QString &path)
        : m_handle(CreateFileW(QDir::toNativeSeparators(path).toStdWString().c_str(), GENERIC_READ, FILE_SHARE_READ,
                               nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
        EXPECT_NE(m_handle, INVALID_HANDLE_VALUE);
    }
    ~HeldFile() { CloseHandle(m_handle); }
    HeldFile(const HeldFile &) = delete;
    HeldFile &operator=(const HeldFile &) = delete;

private:
    HANDLE m_handle;
};
} // namespace

TEST(FileBytesWindows, AFileThatAnotherProgramHoldsIsToldAndStays)
{
    for (const QString &name : {QString("show.Orv"), QString(250, u'n')}) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(name);
        ASSERT_TRUE(FileBytes::write(path, "the old show"));
        const HeldFile held(path);

        const Result<void> written = FileBytes::write(path, "new");

        ASSERT_FALSE(written);
        EXPECT_EQ(written.error().text, path + ": cannot be written: another program has the file open; close it "
                                               "there and try again");
        EXPECT_EQ(contents(path), "the old show");
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{name});
    }
}

TEST(FileBytesWindows, NamesThatNoOtherProgramCouldOpenAreRefused)
{
    const QTemporaryDir folder;
    const auto told = [&](const QString &name) {
        const QString path = folder.path() + '/' + name;
        const Result<void> written = FileBytes::write(path, "show");
        return written ? "written" : written.error().text.mid(path.size() + 2);
    };
    const QString begin = "cannot be written: ";
    EXPECT_EQ(told("Friday 20:00"), begin + "a name here has none of < > : \" | ? *; choose another one");
    EXPECT_EQ(told("show?.Orv"), told("Friday 20:00"));
    for (const char *device : {"con.Orv", "NUL", "Com1.tar.Orv"})
        EXPECT_EQ(told(device), begin + "a device here has this name; choose another one") << device;
    for (const char *end : {"show.", "show "})
        EXPECT_EQ(told(end), begin + "a name here does not end with a point or a space; choose another one") << end;
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    for (const char *name : {"concert.Orv", "com.Orv", "B\u00FChne links.Orv", ".Orv"})
        EXPECT_EQ(told(QString::fromUtf8(name)), "written") << name;
}

TEST(FileBytesWindows, AReadOnlyFileIsToldAndStays)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    ASSERT_TRUE(FileBytes::write(path, "the old show"));
    ASSERT_TRUE(SetFileAttributesW(path.toStdWString().c_str(), FILE_ATTRIBUTE_READONLY));

    EXPECT_EQ(FileBytes::write(path, "new").error().text, path + ": cannot be written: the file is read-only");
    EXPECT_EQ(contents(path), "the old show");
    SetFileAttributesW(path.toStdWString().c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(FileBytesWindows, PathsBeyond260LettersInAnyScript)
{
    const QTemporaryDir folder;
    QString deep = folder.path();
    while (deep.size() < 700)
        deep += QString::fromUtf8("/Bühne 舞台 🎪 ") + QString(40, u'w');
    ASSERT_TRUE(QDir().mkpath(deep));
    const QString path = deep + "/Größe.Orv";

    ASSERT_TRUE(FileBytes::write(path, "first"));
    ASSERT_TRUE(FileBytes::write(path, "second"));

    EXPECT_EQ(contents(path), "second");
    EXPECT_EQ(contents(QDir::toNativeSeparators(path)), "second");
    EXPECT_EQ(FileBytes::read(deep, 10).error().text, deep + ": this is a folder or a device, not a file");
    EXPECT_EQ(FileBytes::read(path + "x", 10).error().text, path + "x: there is no such file");
    EXPECT_EQ(QDir(deep).entryList(QDir::Files), QStringList{"Größe.Orv"});
}

TEST(FileBytesWindows, AShareOrADriveThatIsNotThereIsMissing)
{
    for (const char *text : {"//no-such-server/share/show.Orv", "\\\\no-such-server\\share\\show.Orv", "Q:/show.Orv"}) {
        const QString path(text);
        EXPECT_EQ(FileBytes::read(path, 10).error().text, QDir::fromNativeSeparators(path) + ": there is no such file");
    }
}

TEST(SystemWindows, ALockIsHeldOnceAndRemovesItsFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("lock");
    auto lock = System::FileLock::take(path);
    ASSERT_NE(lock, nullptr);
    EXPECT_TRUE(lock->isThere());
    EXPECT_EQ(System::FileLock::take(path), nullptr);
    EXPECT_FALSE(QFile::remove(path));

    lock.reset();
    lock = System::FileLock::take(path);
    ASSERT_NE(lock, nullptr);
    lock->remove();

    EXPECT_FALSE(lock->isThere());
    EXPECT_TRUE(QDir().rmdir(folder.path()));
}
