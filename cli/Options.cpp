#include "cli/Options.h"

#include "formats/ColourText.h"
#include "formats/FileFormat.h"

#include <algorithm>

namespace {
/// With one dash or two, as it stands in the arguments.
QString asTyped(const QString &option, const QStringList &arguments)
{
    const bool hasOneDash = std::any_of(arguments.begin(), arguments.end(), [&](const QString &argument) {
        return argument.section(u'=', 0, 0) == u'-' + option;
    });
    return (hasOneDash ? "-" : "--") + option;
}
} // namespace

namespace Options {

QCommandLineOption withValue(const QString &name)
{
    return QCommandLineOption(name, QString(), name);
}

QCommandLineOption flag(const QString &name)
{
    return QCommandLineOption(name);
}

Result<void> parse(QCommandLineParser &parser, const QList<QCommandLineOption> &options, const QStringList &arguments)
{
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions(options);
    const QStringList withProgramName = QStringList("wallwright") + arguments;
    if (parser.parse(withProgramName))
        return {};
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty())
        return fail("there is no option " + asTyped(unknown.first(), arguments));
    const QString reason = parser.errorText().remove(u'.');
    return fail(reason.left(1).toLower() + reason.mid(1));
}

Result<QString> input(const QCommandLineParser &parser)
{
    const QStringList files = parser.positionalArguments();
    if (files.size() != 1)
        return fail("give one INPUT");
    return FileFormat::toRead(files.first()).map([&](const FileFormat & /*format*/) { return files.first(); });
}

Result<int> number(const QCommandLineParser &parser, const QString &name, Range range, int otherwise)
{
    if (!parser.isSet(name))
        return otherwise;
    bool isNumber = false;
    const int value = parser.value(name).toInt(&isNumber);
    if (isNumber && value >= range.lowest && value <= range.highest)
        return value;
    return fail(QString("--%1 expects a whole number from %2 to %3, found \"%4\"")
                    .arg(name, QString::number(range.lowest), QString::number(range.highest), parser.value(name)));
}

Result<Colour> colour(const QCommandLineParser &parser, const QString &name, const Colour &otherwise)
{
    if (!parser.isSet(name))
        return otherwise;
    Result<Colour> given = ColourText::decodeText(parser.value(name));
    if (!given)
        return fail(QString("--%1 %2").arg(name, given.error().text));
    return given;
}

} // namespace Options
