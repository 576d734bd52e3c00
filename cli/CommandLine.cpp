#include "cli/CommandLine.h"

#include "cli/ChartCommand.h"
#include "cli/CheckCommand.h"
#include "cli/ConvertCommand.h"
#include "cli/Help.h"
#include "cli/InfoCommand.h"
#include "cli/VisibleText.h"
#include "formats/FileFormat.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {
struct Verb
{
    const char *name;
    QString (*help)();
    ExitStatus (*run)(const QStringList &arguments, QTextStream &out, QTextStream &err);
};

ExitStatus misused(QTextStream &err, const QString &program, const QString &what)
{
    err << VisibleText::asOneLine(QString("%1: %2; \"%1 --help\" tells more").arg(program, what)) << '\n';
    return ExitStatus::Misused;
}

ExitStatus failed(QTextStream &err, const Error &error)
{
    err << VisibleText::asOneLine(error.text) << '\n';
    return ExitStatus::Failed;
}

ExitStatus runConvert(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    const Result<ConvertCommand> command = ConvertCommand::parse(arguments);
    if (!command)
        return misused(err, "wallwright convert", command.error().text);
    const auto written = [&](const QString &path) { out << path << Qt::endl; };
    const auto notice = [&](const QString &sentence) { err << VisibleText::asOneLine(sentence) << '\n'; };
    const Result<void> done = command->run(written, notice);
    return done ? ExitStatus::Done : failed(err, done.error());
}

ExitStatus runInfo(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    const Result<InfoCommand> command = InfoCommand::parse(arguments);
    if (!command)
        return misused(err, "wallwright info", command.error().text);
    const Result<QString> text = command->run();
    if (!text)
        return failed(err, text.error());
    out << *text;
    return ExitStatus::Done;
}

ExitStatus runCheck(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    const Result<CheckCommand> command = CheckCommand::parse(arguments);
    if (!command)
        return misused(err, "wallwright check", command.error().text);
    const Result<CheckCommand::Report> report = command->run();
    if (!report)
        return failed(err, report.error());
    out << report->text;
    return report->hasErrors ? ExitStatus::Failed : ExitStatus::Done;
}

ExitStatus runChart(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    const Result<ChartCommand> command = ChartCommand::parse(arguments);
    if (!command)
        return misused(err, "wallwright chart", command.error().text);
    if (!command->chart) {
        out << ChartCommand::list();
        return ExitStatus::Done;
    }
    const auto notice = [&](const QString &sentence) { err << VisibleText::asOneLine(sentence) << '\n'; };
    const Result<void> done = command->run(notice);
    if (!done)
        return failed(err, done.error());
    out << command->output << '\n';
    return ExitStatus::Done;
}

constexpr std::array verbs{
    Verb{"convert", &Help::convert, &runConvert},
    Verb{"info", &Help::info, &runInfo},
    Verb{"check", &Help::check, &runCheck},
    Verb{"chart", &Help::chart, &runChart},
};

const Verb *verbNamed(const QString &name)
{
    const auto *const verb = std::find_if(verbs.begin(), verbs.end(),
                                          [&](const Verb &known) { return name == QLatin1StringView(known.name); });
    return verb == verbs.end() ? nullptr : verb;
}

/// Whether help is asked for, in front of a "--", behind which all is file names.
bool asksForHelp(const QStringList &arguments)
{
    const QStringList options = arguments.mid(0, arguments.indexOf("--"));
    return options.contains("--help") || options.contains("-h");
}

ExitStatus runWithoutVerb(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    const QString first = arguments.value(0);
    if (first == "--version" || first == "-v") {
        if (arguments.size() > 1)
            return misused(err, "wallwright", QString("%1 stands alone").arg(first));
        out << "wallwright " WALLWRIGHT_VERSION "\n";
        return ExitStatus::Done;
    }
    if (first.startsWith(u'-'))
        return misused(err, "wallwright", QString("there is no option %1").arg(first));
    if (arguments.size() > 1 && QFileInfo::exists(first))
        return misused(err, "wallwright", "one file can be opened at a time");
    if (namesMissingFile(arguments))
        return failed(err, {first + ": there is no such file"});
    return misused(err, "wallwright", QString("\"%1\" is neither a command nor a file").arg(first));
}

ExitStatus run(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    const Verb *verb = verbNamed(arguments.value(0));
    if (asksForHelp(arguments) || arguments.isEmpty()) {
        const Verb *asked = verb ? verb : verbNamed(arguments.value(1)); // "--help convert"
        out << (asked ? asked->help() : Help::general());
        return ExitStatus::Done;
    }
    return verb ? verb->run(arguments.mid(1), out, err) : runWithoutVerb(arguments, out, err);
}
} // namespace

bool asksForWindow(const QStringList &arguments)
{
    if (arguments.isEmpty())
        return true;
    const QString &file = arguments.first();
    return arguments.size() == 1 && !verbNamed(file) && !file.startsWith(u'-') && QFileInfo::exists(file);
}

bool namesMissingFile(const QStringList &arguments)
{
    const QString name = arguments.value(0);
    const bool looksLikeFile = QDir::fromNativeSeparators(name).contains(u'/') || FileFormat::toRead(name);
    return arguments.size() == 1 && looksLikeFile && !name.startsWith(u'-') && !QFileInfo::exists(name);
}

Result<QStringList> argumentsOf(const QByteArrayList &values)
{
    QStringList arguments;
    for (const QByteArray &value : values) {
        const QString argument = QString::fromUtf8(value);
        if (argument.toUtf8() != value)
            return fail(QString("wallwright: argument %1, \"%2\", is not written in UTF-8; rename the file")
                            .arg(QString::number(arguments.size() + 1), VisibleText::asOneLine(argument)));
        arguments.append(argument);
    }
    return arguments;
}

ExitStatus runCommandLine(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    const ExitStatus status = run(arguments, out, err);
    out.flush();
    if (out.status() != QTextStream::Ok && status == ExitStatus::Done) {
        err << "standard output: cannot be written\n";
        err.flush();
        return ExitStatus::Failed;
    }
    err.flush();
    return status;
}
