#include "cli/InfoCommand.h"

#include "cli/CommandLineHost.h"
#include "cli/InfoJson.h"
#include "cli/InfoText.h"
#include "cli/Options.h"
#include "facts/ProjectFacts.h"
#include "formats/FileFormat.h"

#include <limits>

namespace {
constexpr Options::Range anyFromOne{1, std::numeric_limits<int>::max()};
constexpr int noCorners = -1;
} // namespace

Result<InfoCommand> InfoCommand::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    const Result<void> parsed = Options::parse(
        parser, {Options::flag("json"), Options::withValue("voltage"), Options::withValue("phases")}, arguments);
    if (!parsed)
        return tl::unexpected(parsed.error());
    const Result<int> volts = Options::number(parser, "voltage", anyFromOne, 0);
    const Result<int> phases = Options::number(parser, "phases", anyFromOne, 0);
    if (!volts || !phases)
        return tl::unexpected(volts ? phases.error() : volts.error());
    const QStringList files = parser.positionalArguments();
    if (files.size() != 1)
        return fail("give one INPUT");
    return FileFormat::toRead(files.first()).map([&](const FileFormat & /*format*/) {
        return InfoCommand{files.first(), parser.isSet("json"), *volts, *phases};
    });
}

Result<QString> InfoCommand::run() const
{
    CommandLineHost host(volts, phases, noCorners);
    const Result<Project> project =
        FileFormat::toRead(input).and_then([&](const FileFormat &format) { return format.read(input, host); });
    return project.map([&](const Project &known) {
        const ProjectFacts facts = ProjectFacts::of(known, volts, phases);
        return isJson ? InfoJson::of(facts) : InfoText::of(facts);
    });
}
