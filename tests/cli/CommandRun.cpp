#include "tests/cli/CommandRun.h"

#include "cli/CommandLine.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

Outcome runCommand(const QStringList &arguments)
{
    Outcome outcome;
    QTextStream out(&outcome.out);
    QTextStream err(&outcome.err);
    outcome.status = static_cast<int>(runCommandLine(arguments, out, err));
    return outcome;
}

QString CommandTest::file(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return path(name);
}

QByteArray CommandTest::bytes(const QString &name) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

QStringList CommandTest::names() const
{
    return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

QString CommandTest::show(const QByteArray &layers) const
{
    return file("show.json", R"({"format": 1, "OutputWidth": 40, "OutputHeight": 30, "layers": [)" + layers + "]}");
}

QByteArray CommandTest::plainWall(const QByteArray &more)
{
    QByteArrayList members{R"("class": "LWScreen")"};
    for (const QByteArray &usual :
         {QByteArray(R"("col": 2)"), QByteArray(R"("row": 1)"), QByteArray(R"("panelWidth": 10)"),
          QByteArray(R"("panelHeight": 10)"), QByteArray(R"("xpoint": 5)"), QByteArray(R"("ypoint": 5)"),
          QByteArray(R"("rectColor": "#ff0000")"), QByteArray(R"("rectColor2": "#0000ff")"),
          QByteArray(R"("BoarderEnable": false)")}) {
        if (!more.contains(usual.first(usual.indexOf(':') + 1)))
            members.append(usual);
    }
    if (!more.isEmpty())
        members.append(more);
    return '{' + members.join(", ") + '}';
}
