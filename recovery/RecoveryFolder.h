#pragma once

#include "base/Result.h"
#include "base/System.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <memory>
#include <vector>

/// The project file whose unsaved changes a copy holds.
struct CopiedProject
{
    QString path;      ///< empty where there was none yet
    QByteArray digest; ///< FileBytes::digest() of it before the changes; empty where it is not known

    bool operator==(const CopiedProject &) const = default;
};

/// A recovery copy whose program does not run any more.
struct FoundCopy
{
    QString path;   ///< of the copy, a project file
    QDateTime time; ///< when it was written last
    CopiedProject project;

    bool operator==(const FoundCopy &) const = default;
};

/// Where recovery copies are kept. Each has a folder of its own in it, of any name, with the copy ("project.Orv"), the
/// path of the project it belongs to ("project-path", UTF-8, where there is one), what tells what that one held
/// ("project-digest", in hexadecimal, where it is known) and a lock that its program holds.
namespace RecoveryFolder {

/// The state folder of the person, System::stateFolder(), and "wallwright/recovery" in it.
QString standardPath();

/// The copies that no running program holds, newest first; none in a folder that is somebody else's. None is opened: a
/// damaged one is among them.
std::vector<FoundCopy> found(const QString &folder);

} // namespace RecoveryFolder

/// A recovery copy on disk, held by this program until this is destroyed; whatever becomes of the program, others find
/// the copy from then on.
class KeptCopy
{
public:
    /// Makes a copy of the bytes of a project in `folder`, which is made where it is missing; nobody else can look into
    /// it. Left-overs of programs that were killed before they had a copy are cleared away.
    /// Error: it cannot be made, locked or written; nothing is left. The message begins with the path.
    [[nodiscard]] static Result<KeptCopy> make(const QString &folder, const CopiedProject &project,
                                               const QByteArray &bytes);
    /// Takes over a found copy. Error: it is gone, or another program has taken it; the message begins with the path.
    [[nodiscard]] static Result<KeptCopy> claim(const FoundCopy &copy);

    /// Replaces the copy. Error: that of FileBytes::write(); the copy is as it was.
    [[nodiscard]] Result<void> write(const QByteArray &bytes);
    /// Removes the copy and all that belongs to it. Error: the copy is still there; the message begins with the path.
    [[nodiscard]] Result<void> remove();

    /// Whether nobody has cleared the copy away.
    bool isThere() const { return m_lock->isThere(); }

private:
    KeptCopy(QString folder, std::unique_ptr<System::FileLock> lock);
    static Result<KeptCopy> makeEmpty(const QString &folder);

    QString m_folder;
    std::unique_ptr<System::FileLock> m_lock; ///< never null, except after a move
};
