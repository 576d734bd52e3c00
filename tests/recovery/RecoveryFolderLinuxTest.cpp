// Folders, permissions and watches as Linux has them.

#include "recovery/RecoveryFolder.h"
#include "tests/recovery/RecoveryFixture.h"

#include <array>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
using RecoveryFolderLinuxTest = RecoveryFixture;

unsigned modeOf(const QString &path)
{
    struct stat status
    {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 0777U : 0;
}

/// The XDG_STATE_HOME variable while this lives.
class StateHome
{
public:
    explicit StateHome(const QByteArray &value) : m_before(qgetenv("XDG_STATE_HOME"))
    {
        qputenv("XDG_STATE_HOME", value);
    }
    ~StateHome() { qputenv("XDG_STATE_HOME", m_before); }
    StateHome(const StateHome &) = delete;
    StateHome &operator=(const StateHome &) = delete;

private:
    QByteArray m_before;
};
} // namespace

TEST_F(RecoveryFolderLinuxTest, StandsInThePersonsStateFolder)
{
    EXPECT_EQ((StateHome("/var/me"), RecoveryFolder::standardPath()), "/var/me/wallwright/recovery");
    const QString usual = QDir::homePath() + "/.local/state/wallwright/recovery";
    EXPECT_EQ((StateHome(""), RecoveryFolder::standardPath()), usual);
    EXPECT_EQ((StateHome("relative/state"), RecoveryFolder::standardPath()), usual);
}

TEST_F(RecoveryFolderLinuxTest, NobodyElseLooksInto)
{
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_EQ(chmod(QFile::encodeName(folder).constData(), 0777), 0);

    const FoundCopy copy = leftCopy(641);

    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(modeOf(QFileInfo(copy.path).path()), 0700U);
}

// A program that is killed in between leaves no copy whose project nobody knows.
TEST_F(RecoveryFolderLinuxTest, TheCopyGoesBeforeThePathOfItsProject)
{
    const FoundCopy copy = leftCopy(641, "/show/stage.Orv");
    const int watch = inotify_init1(IN_NONBLOCK);
    ASSERT_GE(inotify_add_watch(watch, QFile::encodeName(QFileInfo(copy.path).path()).constData(), IN_DELETE), 0);

    ASSERT_TRUE(program()->discard(copy).has_value());

    alignas(inotify_event) std::array<char, 4096> told{};
    ASSERT_GT(read(watch, told.data(), told.size()), 0);
    close(watch);
    EXPECT_STREQ(reinterpret_cast<const inotify_event *>(told.data())->name, "project.Orv");
}
