#include "recovery/RecoveryFolder.h"

#include "base/FileBytes.h"
#include "base/StateFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <tuple>
#include <utility>

namespace {
constexpr qint64 mostPathBytes = 64 << 10;
constexpr qint64 mostDigestBytes = 1 << 10;

QString copyPath(const QString &folder)
{
    return folder + "/project.Orv";
}

QString projectPathPath(const QString &folder)
{
    return folder + "/project-path";
}

QString projectDigestPath(const QString &folder)
{
    return folder + "/project-digest";
}

QString lockPath(const QString &folder)
{
    return folder + "/lock";
}

bool isCopyIn(const QString &folder)
{
    const QFileInfo copy(copyPath(folder));
    return copy.isFile() && !copy.isSymLink(); // writing through a link could go over a person's file
}

/// Removes what a copy consists of, and nothing that somebody else has put beside it. The copy goes first: if the
/// program is killed meanwhile, or the system refuses, none is found whose project is not known any more. The lock goes
/// last.
void removeFiles(const QString &folder, System::FileLock &lock)
{
    QDir directory(folder);
    directory.remove("project.Orv");
    if (isCopyIn(folder))
        return;
    const QStringList ours{"project.Orv.*", "project-path", "project-path.*", "project-digest", "project-digest.*"};
    for (const QString &name : directory.entryList(ours, QDir::Files | QDir::System | QDir::Hidden))
        directory.remove(name);
    lock.remove();
    QDir().rmdir(folder);
}

QStringList foldersIn(const QString &folder)
{
    QStringList paths;
    for (const QFileInfo &info : QDir(folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks))
        paths.append(info.filePath());
    return paths;
}

/// Removes the folders of programs that were killed before their copy was written.
void sweep(const QString &folder)
{
    for (const QString &path : foldersIn(folder)) {
        if (isCopyIn(path))
            continue;
        if (!QFileInfo::exists(lockPath(path)))
            QDir().rmdir(path); // only if it is empty
        else if (const auto lock = System::FileLock::take(lockPath(path)))
            removeFiles(path, *lock);
    }
}

/// Goes before the name of a new folder, so that of copies from one tick of the clock the later one is known.
QString nextNumber(const QString &folder)
{
    constexpr qsizetype digits = 8;
    uint highest = 0;
    for (const QString &path : foldersIn(folder))
        highest = std::max(highest, QFileInfo(path).fileName().left(digits).toUInt());
    return QString("%1").arg(highest + 1, digits, 10, QChar(u'0'));
}

Result<void> makePrivate(const QString &folder)
{
    if (!QDir().mkpath(folder))
        return fail(QString("%1: the folder cannot be made; see that no file stands in its way and that the folder "
                            "around it can be written to")
                        .arg(folder));
    if (!System::isOwn(folder) ||
        !QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        return fail(QString("%1: the folder belongs to somebody else; see that it belongs to you").arg(folder));
    return {};
}

/// Empty where there is none, or none that could be one.
CopiedProject projectIn(const QString &folder)
{
    const QString path = QString::fromUtf8(FileBytes::read(projectPathPath(folder), mostPathBytes).value_or(""));
    if (!QDir::isAbsolutePath(path) || path.contains(QChar::Null))
        return {};
    return {path, QByteArray::fromHex(FileBytes::read(projectDigestPath(folder), mostDigestBytes).value_or(""))};
}

Result<void> writeProject(const QString &folder, const CopiedProject &project)
{
    Result<void> written;
    if (!project.digest.isEmpty())
        written = FileBytes::write(projectDigestPath(folder), project.digest.toHex());
    if (written && !project.path.isEmpty())
        written = FileBytes::write(projectPathPath(folder), project.path.toUtf8());
    return written;
}
} // namespace

namespace RecoveryFolder {

QString standardPath()
{
    return StateFolder::path("recovery");
}

std::vector<FoundCopy> found(const QString &folder)
{
    std::vector<FoundCopy> copies;
    if (!System::isOwn(folder))
        return copies;
    for (const QString &path : foldersIn(folder)) {
        if (!isCopyIn(path) || !System::FileLock::take(lockPath(path)))
            continue;
        const QFileInfo copy(copyPath(path));
        copies.push_back({copy.filePath(), copy.lastModified(), projectIn(path)});
    }
    std::sort(copies.begin(), copies.end(), [](const FoundCopy &a, const FoundCopy &b) {
        return std::tie(a.time, a.path) > std::tie(b.time, b.path);
    });
    return copies;
}

} // namespace RecoveryFolder

KeptCopy::KeptCopy(QString folder, std::unique_ptr<System::FileLock> lock)
    : m_folder(std::move(folder)), m_lock(std::move(lock))
{}

Result<KeptCopy> KeptCopy::makeEmpty(const QString &folder)
{
    // Another program's sweep may remove the new folder before it is locked: then once more.
    for (int attempt = 0; attempt < 3; ++attempt) {
        QTemporaryDir made(folder + '/' + nextNumber(folder) + "-XXXXXX");
        made.setAutoRemove(false);
        if (!made.isValid())
            return fail(QString("%1: no folder can be made in it: %2").arg(folder, made.errorString()));
        if (auto lock = System::FileLock::take(lockPath(made.path())))
            return KeptCopy(made.path(), std::move(lock));
        QDir().rmdir(made.path());
    }
    return fail(QString("%1: no file in it can be locked; see that its disk is not full").arg(folder));
}

Result<KeptCopy> KeptCopy::make(const QString &folder, const CopiedProject &project, const QByteArray &bytes)
{
    if (const Result<void> isPrivate = makePrivate(folder); !isPrivate)
        return tl::unexpected(isPrivate.error());
    sweep(folder);
    Result<KeptCopy> copy = makeEmpty(folder);
    if (!copy)
        return copy;

    Result<void> isWritten = writeProject(copy->m_folder, project);
    if (isWritten)
        isWritten = copy->write(bytes);
    if (!isWritten) {
        removeFiles(copy->m_folder, *copy->m_lock);
        return tl::unexpected(isWritten.error());
    }
    System::folderReachesDisk(folder);
    return copy;
}

Result<KeptCopy> KeptCopy::claim(const FoundCopy &copy)
{
    const QString folder = QFileInfo(copy.path).path();
    if (!isCopyIn(folder))
        return fail(QString("%1: there is no such copy any more").arg(copy.path));
    auto lock = System::FileLock::take(lockPath(folder));
    if (!lock)
        return fail(QString("%1: another program has taken this copy; look for it there").arg(copy.path));
    return KeptCopy(folder, std::move(lock));
}

Result<void> KeptCopy::write(const QByteArray &bytes)
{
    if (QFileInfo(copyPath(m_folder)).isSymLink()) // somebody has put it there, and it would be written through
        QFile::remove(copyPath(m_folder));
    return FileBytes::write(copyPath(m_folder), bytes);
}

Result<void> KeptCopy::remove()
{
    removeFiles(m_folder, *m_lock);
    if (isCopyIn(m_folder))
        return fail(QString("%1: cannot be removed; see that its folder can be written to").arg(copyPath(m_folder)));
    return {};
}
