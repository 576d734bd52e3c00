#include "app/KnownFiles.h"

DocumentFile KnownFiles::at(const QString &path, const QByteArray &digest)
{
    std::shared_ptr<QByteArray> &known = m_digests[path];
    if (!known || *known != digest)
        known = std::make_shared<QByteArray>(digest);
    return {path, known};
}
