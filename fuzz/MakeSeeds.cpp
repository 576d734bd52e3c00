#include "base/FileBytes.h"
#include "fuzz/Targets.h"

#include <QDir>
#include <QGuiApplication>

namespace {
/// As libFuzzer's dictionaries have it.
QByteArray quoted(const QByteArray &word)
{
    return '"' + QByteArray(word).replace('\\', "\\\\").replace('"', "\\\"") + "\"\n";
}

bool put(const QString &path, const QByteArray &bytes)
{
    const Result<void> written = FileBytes::write(path, bytes);
    if (!written)
        qCritical("%s", qUtf8Printable(written.error().text));
    return written.has_value();
}
} // namespace

/// Writes the seeds of each target into a folder of its name in the folder that is given, and the words beside.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QString folder = QCoreApplication::arguments().at(1);
    QByteArray dictionary;
    for (const QByteArray &word : Fuzz::words())
        dictionary += quoted(word);
    QDir().mkpath(folder);
    bool isDone = put(folder + "/archive.dict", dictionary);
    const QMap<QString, QByteArrayList> seeds = Fuzz::seeds();
    for (auto target = seeds.begin(); target != seeds.end(); ++target) {
        QDir().mkpath(folder + '/' + target.key());
        for (qsizetype i = 0; i < target->size(); ++i)
            isDone &= put(QString("%1/%2/seed-%3").arg(folder, target.key()).arg(i), target->at(i));
    }
    return isDone ? 0 : 1;
}
