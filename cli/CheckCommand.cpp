#include "cli/CheckCommand.h"

#include "cli/CheckReport.h"
#include "cli/CommandLineHost.h"
#include "cli/Options.h"
#include "facts/ShowChecks.h"
#include "formats/FileFormat.h"
#include "still/LWStill.h"

#include <algorithm>

namespace {
/// So that a file that only begins like a picture is found out.
void loadPictures(const Project &project)
{
    for (const LayerPointer &layer : project.layers) {
        if (const auto *still = qobject_cast<const LWStill *>(layer.get()))
            still->thumbnail();
    }
}
} // namespace

Result<CheckCommand> CheckCommand::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    return Options::parse(parser, {Options::flag("json")}, arguments)
        .and_then([&] { return Options::input(parser); })
        .map([&](const QString &file) {
            return CheckCommand{file, parser.isSet("json")};
        });
}

Result<CheckCommand::Report> CheckCommand::run() const
{
    CommandLineHost host(0, 0, CommandLineHost::noCorners);
    return FileFormat::readProject(input, host).map([&](const Project &project) {
        loadPictures(project);
        const std::vector<Finding> findings = ShowChecks::of(project);
        const QString text =
            isJson ? CheckReport::json(project, findings) : CheckReport::lines(input, project, findings);
        const bool hasErrors = std::any_of(findings.begin(), findings.end(), [](const Finding &finding) {
            return finding.level == Finding::Level::Error;
        });
        return Report{text, hasErrors};
    });
}
