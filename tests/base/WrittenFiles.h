#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QFile>
#include <QString>

/// What a test of files looks at afterwards.
inline QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

template <typename Value>
QString reasonOf(const Result<Value> &result)
{
    return result ? QString("done") : result.error().text;
}
