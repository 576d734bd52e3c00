#include "archive/Address.h"

#include "base/System.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

Address Address::fromLocalFile(const QString &path)
{
    return {QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toString(QUrl::FullyEncoded), {}};
}

namespace {
bool isFile(const QUrl &url)
{
    return url.scheme().isEmpty() || url.scheme() == "file";
}

/// The path that an address names on this machine; empty if it is elsewhere.
QString localPath(const QUrl &url)
{
    return url.isValid() && isFile(url) ? System::localFile(url.host(), url.path(QUrl::FullyDecoded)) : QString();
}

QUrl wholeUrl(const Address &address)
{
    QUrl url;
    for (auto base = address.bases.crbegin(); base != address.bases.crend(); ++base)
        url = url.resolved(QUrl(*base));
    return url.resolved(QUrl(address.relative));
}

/// Whether a path begins at a root or, where the system has them, at a drive; what is embedded in the program does not.
bool isWhole(const QString &path)
{
    return path.startsWith(u'/') || (!path.startsWith(u':') && QDir::isAbsolutePath(path));
}

bool isPlainPath(const Address &address)
{
    return address.bases.isEmpty() && isWhole(address.relative) && !address.relative.startsWith("//");
}

/// The text of a path needs no escapes: '#' and '?' are letters of a name like others.
QString plainPath(const QString &text)
{
    return QUrl::fromPercentEncoding(text.toUtf8());
}
} // namespace

bool Address::isElsewhere() const
{
    if (isPlainPath(*this))
        return System::localFile({}, plainPath(relative)).isEmpty();
    const QUrl url = wholeUrl(*this);
    return !isFile(url) || (url.isValid() && !url.path().isEmpty() && localPath(url).isEmpty());
}

QString Address::toLocalFile() const
{
    const QString path = isPlainPath(*this) ? System::localFile({}, plainPath(relative)) : localPath(wholeUrl(*this));
    // Elsewhere a path would depend on the current folder, or name what is embedded in the program.
    return isWhole(path) && !path.contains(QChar(u'\0')) ? path : QString();
}
