#include "app/FileBytes.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>

#include <cerrno>

namespace FileBytes {

Result<QByteArray> read(const QString &path, qint64 mostBytes)
{
    const QFileInfo info(path);
    if (!info.exists())
        return fail(QString("%1: there is no such file").arg(path));
    if (!info.isFile())
        return fail(QString("%1: this is a folder or a device, not a file").arg(path));
    if (info.size() > mostBytes)
        return fail(
            QString("%1: the file has %2; more than %3 is not read")
                .arg(path, QLocale::c().formattedDataSize(info.size()), QLocale::c().formattedDataSize(mostBytes)));

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(QString("%1: cannot be read: %2").arg(path, file.errorString()));
    const QByteArray bytes = file.read(info.size());
    if (file.error() != QFileDevice::NoError || bytes.size() != info.size())
        return fail(QString("%1: cannot be read to its end: %2").arg(path, file.errorString()));
    return bytes;
}

Result<void> write(const QString &path, const QByteArray &bytes)
{
    const QFileInfo existing(path);
    if (existing.exists() && !existing.isFile()) // committing would put a file in the place of a device
        return fail(QString("%1: cannot be written: this is a folder or a device, not a file").arg(path));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fail(QString("%1: cannot be written: %2").arg(path, file.errorString()));
    // QSaveFile keeps no reason of a failed write; the system does.
    errno = 0;
    const bool isComplete = file.write(bytes) == bytes.size() && file.flush() && file.commit();
    if (!isComplete)
        return fail(QString("%1: cannot be written: %2").arg(path, qt_error_string(errno)));
    return {};
}

QString withExtension(const QString &path, const QString &extension)
{
    return QFileInfo(path).suffix() == extension ? path : path + u'.' + extension;
}

} // namespace FileBytes
