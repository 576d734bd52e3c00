#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QMap>
#include <QString>

#include <span>

/// What reads bytes that others have made. Each is handed any bytes at all, and ends the program where one of its
/// promises is broken.
namespace Fuzz {

struct Target
{
    const char *name;
    void (*run)(const QByteArray &bytes);
};

std::span<const Target> targets();
/// Null: there is none of that name.
const Target *targetNamed(const QString &name);

/// Inputs to begin with, small ones of each kind, by target.
QMap<QString, QByteArrayList> seeds();
/// Words that archives consist of.
QByteArrayList words();

} // namespace Fuzz
