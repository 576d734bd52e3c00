#include "archive/Address.h"

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
    const bool isHere = url.host().isEmpty() || url.host() == "localhost";
    return url.isValid() && isFile && isHere ? url.path(QUrl::FullyDecoded) : QString();
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
    if (bases.isEmpty() && relative.startsWith(u'/') && !relative.startsWith("//")) {
        path = plainPath(relative);
    } else {
        QUrl url;
        std::for_each(bases.crbegin(), bases.crend(), [&url](const QString &base) { url = url.resolved(QUrl(base)); });
        path = localPath(url.resolved(QUrl(relative)));
    }
    // Elsewhere a path would depend on the current folder, or name what is embedded in the program.
    return path.startsWith(u'/') && !path.contains(QChar(u'\0')) ? path : QString();
}
