#include "cli/InfoCommand.h"

#include "cli/CommandLineHost.h"
#include "cli/InfoJson.h"
#include "cli/InfoText.h"
#include "cli/Options.h"
#include "facts/ProjectFacts.h"
#include "formats/FileFormat.h"

Result<InfoCommand> InfoCommand::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    const Result<void> parsed = Options::parse(
        parser, {Options::flag("json"), Options::withValue("voltage"), Options::withValue("phases")}, arguments);
    if (!parsed)
        return tl::unexpected(parsed.error());
    const Result<int> volts = Options::number(parser, "voltage", Options::anyFromOne, 0);
    const Result<int> phases = Options::number(parser, "phases", Options::anyFromOne, 0);
    if (!volts || !phases)
        return tl::unexpected(volts ? phases.error() : volts.error());
    return Options::input(parser).map([&](const QString &file) {
        return InfoCommand{file, parser.isSet("json"), *volts, *phases};
    });
}

Result<QString> InfoCommand::run() const
{
    CommandLineHost host(volts, phases, CommandLineHost::noCorners);
    return FileFormat::readProject(input, host).map([&](const Project &project) {
        const ProjectFacts facts = ProjectFacts::of(project, volts, phases);
        return isJson ? InfoJson::of(facts) : InfoText::of(facts);
    });
}
