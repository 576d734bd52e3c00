#include "app/KnownFiles.h"

#include "base/FileBytes.h"

#include <QFileInfo>

DocumentFile KnownFiles::at(const QString &path, const QByteArray &digest)
{
    std::shared_ptr<QByteArray> &known = m_digests[path];
    if (!known || *known != digest)
        known = std::make_shared<QByteArray>(digest);
    return {path, known};
}

DocumentFile KnownFiles::of(const FoundCopy &copy)
{
    const bool isNewer = QFileInfo(copy.projectPath).lastModified() > copy.time;
    return at(copy.projectPath, isNewer ? QByteArray() : FileBytes::digest(copy.projectPath));
}
