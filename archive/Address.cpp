#include "archive/Address.h"

#include "base/System.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>

Address Address::fromLocalFile(const QString &path)
{
    return {QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toString(QUrl::FullyEncoded), {}};
}

namespace {
/// The path that an address names on this machine; empty if it is elsewhere.
QString localPath(const QUrl &url)
{
    const bool isFile = url.scheme().isEmpty() || url.scheme() == "file";
    return url.isValid() && isFile ? System::localFile(url.host(), url.path(QUrl::FullyDecoded)) : QString();
}

/// Whether a path begins at a root or, where the system has them, at a drive; what is embedded in the program does not.
bool isWhole(const QString &path)
{
    return path.startsWith(u'/') || (!path.startsWith(u':') && QDir::isAbsolutePath(path));
}

/// The text of a path needs no escapes: '#' and '?' are letters of a name like others.
QString plainPath(const QString &text)
{
    return QUrl::fromPercentEncoding(text.toUtf8());
}
} // namespace

QString Address::toLocalFile() const
{
    QString path;
    if (bases.isEmpty() && isWhole(relative) && !relative.startsWith("//")) {
        path = System::localFile({}, plainPath(relative));
    } else {
        QUrl url;
        std::for_each(bases.crbegin(), bases.crend(), [&url](const QString &base) { url = url.resolved(QUrl(base)); });
        path = localPath(url.resolved(QUrl(relative)));
    }
    // Elsewhere a path would depend on the current folder, or name what is embedded in the program.
    return isWhole(path) && !path.contains(QChar(u'\0')) ? path : QString();
}
