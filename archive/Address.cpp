#include "archive/Address.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>

Address Address::fromLocalFile(const QString &path)
{
    return {QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toString(QUrl::FullyEncoded), {}};
}

QString Address::toLocalFile() const
{
    if (isNil())
        return {};
    QUrl url;
    std::for_each(bases.crbegin(), bases.crend(), [&url](const QString &base) { url = url.resolved(QUrl(base)); });
    url = url.resolved(QUrl(relative));
    const bool isFile = url.scheme().isEmpty() || url.scheme() == "file";
    const bool isHere = url.host().isEmpty() || url.host() == "localhost";
    const QString path = url.path(QUrl::FullyDecoded);
    if (!url.isValid() || !isFile || !isHere || path.contains(QChar(u'\0')))
        return {};
    return path;
}
