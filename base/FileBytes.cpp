#include "base/FileBytes.h"

#include "base/Memory.h"
#include "base/System.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>
#include <QUuid>

#include <cerrno>

namespace {
constexpr qsizetype pieceLength = qsizetype{8} << 20;

tl::unexpected<Error> failedWrite(const QString &path, const QFileDevice &file)
{
    return fail(QString("%1: cannot be written: %2").arg(path, System::reasonAgainstWriting(file)));
}

tl::unexpected<Error> failedReplacing(const QString &path, const QFileDevice &file)
{
    tl::unexpected<Error> failed = failedWrite(path, file); // before another question changes the reason
    if (!System::isHeld(path))
        return failed;
    return fail(
        QString("%1: cannot be written: another program has the file open; close it there and try again").arg(path));
}

bool append(QSaveFile &file, QByteArrayView bytes)
{
    errno = 0;
    return file.write(bytes.data(), bytes.size()) == bytes.size() && file.flush();
}

/// QSaveFile puts seven letters behind the name, more than a name of nearly 255 bytes bears: such a file is completed
/// beside the old one, under a name of its own.
QString placeToCollect(const QString &path)
{
    constexpr qsizetype longestName = 255 - 7;
    const QFileInfo place(QFileInfo(path).isSymLink() ? QFileInfo(path).symLinkTarget() : path);
    if (QFile::encodeName(place.fileName()).size() <= longestName)
        return path;
    return place.path() + "/.wallwright-" + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

/// Puts the complete file at `from` into the place of `path`, in one step, where it is not there already.
Result<void> moveTo(const QString &path, const QString &from)
{
    if (from == path)
        return {};
    const QFileInfo existing(path);
    if (existing.exists())
        QFile::setPermissions(from, existing.permissions());
    const QString place = existing.isSymLink() ? existing.symLinkTarget() : path;
    if (System::replace(place, from))
        return {};
    const tl::unexpected<Error> failed = failedReplacing(path, QFile());
    QFile::remove(from);
    return failed;
}

/// Why no file can be put there, whatever is in it; empty where nothing is known against it.
QString faultOfPlace(const QString &path)
{
    const QFileInfo existing(path);
    if (existing.exists() && !existing.isFile()) // committing would put a file in the place of a device
        return "this is a folder or a device, not a file";
    if (existing.exists() && !existing.isWritable())
        return "the file is read-only";
    return System::faultOfName(existing.fileName());
}
} // namespace

namespace FileBytes {

Result<void> openToRead(QFile &file)
{
    const QString path = file.fileName();
    switch (System::openToRead(file)) {
    case System::Opened::File:
        break;
    case System::Opened::Missing:
        return fail(QString("%1: there is no such file").arg(path));
    case System::Opened::Other:
        return fail(QString("%1: this is a folder or a device, not a file").arg(path));
    case System::Opened::Refused:
        return fail(QString("%1: cannot be read: %2").arg(path, qt_error_string()));
    }
    return {};
}

Result<QByteArray> read(const QString &path, qint64 mostBytes)
{
    QFile file(path);
    if (const Result<void> isOpen = openToRead(file); !isOpen)
        return tl::unexpected(isOpen.error());
    const qint64 size = file.size();
    if (size > mostBytes)
        return fail(QString("%1: the file has %2; more than %3 is not read")
                        .arg(path, QLocale::c().formattedDataSize(size), QLocale::c().formattedDataSize(mostBytes)));
    Result<QByteArray> bytes = Memory::orError([&]() -> Result<QByteArray> { return file.read(size); });
    if (!bytes)
        return failWithin(path, bytes.error());
    if (file.error() != QFileDevice::NoError || bytes->size() != size)
        return fail(QString("%1: cannot be read to its end: %2").arg(path, file.errorString()));
    return bytes;
}

QByteArray digest(const QString &path, qint64 mostBytes)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const bool isRead = openToRead(file) && file.size() <= mostBytes && hash.addData(&file);
    return isRead ? hash.result() : QByteArray();
}

QByteArray digestOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

Result<void> write(const QString &path, const QByteArray &bytes)
{
    return write(path, bytes, {}).map([](Outcome) {});
}

Result<Outcome> write(const QString &path, const QByteArray &bytes, const Progress &progress)
{
    if (const QString fault = faultOfPlace(path); !fault.isEmpty())
        return fail(path + ": cannot be written: " + fault);
    QSaveFile file(placeToCollect(path));
    if (!file.open(QIODevice::WriteOnly))
        return fail(QString("%1: cannot be written: %2").arg(path, file.errorString()));

    const qsizetype length = progress ? pieceLength : bytes.size();
    for (qsizetype done = 0; done < bytes.size(); done += length) {
        if (progress && !progress(static_cast<double>(done) / static_cast<double>(bytes.size())))
            return Outcome::Cancelled;
        const QByteArrayView piece = QByteArrayView(bytes).sliced(done, qMin(length, bytes.size() - done));
        if (!append(file, piece) || (progress && !System::reachesDisk(file.handle())))
            return failedWrite(path, file);
    }
    // QSaveFile asks for this too before it puts the file into its place, and goes on whatever the answer is.
    if (!System::reachesDisk(file.handle()))
        return failedWrite(path, file);
    errno = 0;
    if (!file.commit())
        return failedReplacing(path, file);
    if (const Result<void> isThere = moveTo(path, file.fileName()); !isThere)
        return tl::unexpected(isThere.error());
    System::folderReachesDisk(QFileInfo(path).canonicalPath()); // that of the file, where `path` is a link to it
    return Outcome::Written;
}

QString withExtension(const QString &path, const QString &extension)
{
    return QFileInfo(path).suffix() == extension ? path : path + u'.' + extension;
}

} // namespace FileBytes
