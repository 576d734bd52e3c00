#pragma once

#include "show/DocumentState.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>

/// The files that documents were opened from or saved to, each as it was then. All documents of one file that no other
/// program has written between them know the same of it.
class KnownFiles
{
public:
    /// The file when it held what has this digest; empty: what it held is not known.
    DocumentFile at(const QString &path, const QByteArray &digest);

private:
    QHash<QString, std::shared_ptr<QByteArray>> m_digests; ///< as of last time, by path
};
