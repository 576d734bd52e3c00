#include "tests/faults/Snapshot.h"

#include <QDataStream>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {
QString withoutChance(QString name)
{
    static const QRegularExpression chance("(\\d{8})-[A-Za-z]{6}\\b");
    return name.replace(chance, "\\1");
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}
} // namespace

namespace Snapshots {

Snapshot of(const QString &folder)
{
    Snapshot snapshot;
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QDirIterator next(folder, all, QDirIterator::Subdirectories);
    while (next.hasNext()) {
        const QString path = next.next();
        const QString name = withoutChance(QDir(folder).relativeFilePath(path));
        if (next.fileInfo().isDir())
            snapshot.insert(name + '/', {});
        else
            snapshot.insert(name, bytesOf(path));
    }
    return snapshot;
}

void restore(const Snapshot &snapshot, const QString &folder)
{
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    for (auto entry = snapshot.begin(); entry != snapshot.end(); ++entry) {
        const QString path = folder + '/' + entry.key();
        QDir().mkpath(QFileInfo(path).path());
        if (path.endsWith('/')) // its own path now exists
            continue;
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(*entry) != entry->size())
            qFatal("%s: cannot be written", qUtf8Printable(path));
    }
}

QStringList namesBeyond(const Snapshot &snapshot, const Snapshot &one, const Snapshot &other)
{
    QStringList names;
    for (const QString &name : snapshot.keys()) {
        if (!one.contains(name) && !other.contains(name))
            names.append(name);
    }
    return names;
}

Snapshot without(Snapshot snapshot, const QStringList &names)
{
    for (const QString &name : names)
        snapshot.remove(name);
    return snapshot;
}

QString difference(const Snapshot &is, const Snapshot &expected)
{
    QStringList words;
    for (const QString &name : namesBeyond(is, expected, {}))
        words.append("+" + name);
    for (const QString &name : namesBeyond(expected, is, {}))
        words.append("-" + name);
    for (auto entry = is.begin(); entry != is.end(); ++entry) {
        const auto other = expected.find(entry.key());
        if (other != expected.end() && *other != *entry)
            words.append(QString("~%1 (%2, not %3 bytes)").arg(entry.key()).arg(entry->size()).arg(other->size()));
    }
    return words.join(' ');
}

void save(const Snapshot &snapshot, const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("%s: cannot be written", qUtf8Printable(path));
    QDataStream stream(&file);
    stream << snapshot;
}

Snapshot load(const QString &path)
{
    Snapshot snapshot;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: cannot be read", qUtf8Printable(path));
    QDataStream stream(&file);
    stream >> snapshot;
    return snapshot;
}

} // namespace Snapshots
