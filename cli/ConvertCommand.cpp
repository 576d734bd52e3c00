#include "cli/ConvertCommand.h"

#include "cli/CommandLineHost.h"
#include "cli/Options.h"
#include "facts/ShowCables.h"
#include "facts/UnknownValues.h"
#include "formats/FileFormat.h"
#include "formats/PSDExport.h"
#include "layer/PowerCalculator.h"
#include "still/LWStill.h"

#include <algorithm>

namespace {
bool usesSettings(const QString &output)
{
    const Result<FileFormat> format = FileFormat::toWrite(output);
    return format && format->usesSettings;
}

Result<void> takeFiles(ConvertCommand &command, const QStringList &files)
{
    if (files.size() < 2)
        return fail("give one INPUT and at least one OUTPUT");
    command.input = files.first();
    command.outputs = files.mid(1);
    if (const auto format = FileFormat::toRead(command.input); !format)
        return tl::unexpected(format.error());
    for (const QString &output : command.outputs) {
        if (const auto format = FileFormat::toWrite(output); !format)
            return tl::unexpected(format.error());
    }
    return {};
}

Result<void> checkSettingsAreUsed(const ConvertCommand &command, const QCommandLineParser &parser)
{
    if (std::any_of(command.outputs.begin(), command.outputs.end(), usesSettings))
        return {};
    for (const char *name : {"layer", "background", "edge"}) {
        if (parser.isSet(name))
            return fail(QString("--%1 concerns .png outputs, and there is none").arg(name));
    }
    return {};
}

Result<void> takeNumber(int &target, const QCommandLineParser &parser, const QString &name, Options::Range range)
{
    return Options::number(parser, name, range, 0).map([&](int given) { target = given; });
}

Result<void> takeColour(Colour &target, const QCommandLineParser &parser, const QString &name)
{
    return Options::colour(parser, name, target).map([&](const Colour &given) { target = given; });
}

Result<void> takeSettings(ConvertCommand &command, const QCommandLineParser &parser)
{
    int layer = 0;
    Result<void> taken = takeNumber(layer, parser, "layer", Options::anyFromNought);
    if (parser.isSet("layer"))
        command.picture.layer = layer;
    return taken.and_then([&] {
                    return takeNumber(command.corners, parser, "corners", {0, 2});
                })
        .and_then([&] { return takeNumber(command.volts, parser, "voltage", Options::anyFromOne); })
        .and_then([&] { return takeNumber(command.phases, parser, "phases", Options::anyFromOne); })
        .and_then([&] { return takeColour(command.picture.background, parser, "background"); })
        .and_then([&] { return takeColour(command.picture.edge, parser, "edge"); });
}

/// Stills whose file is gone leave a gap that nobody would notice; walls that cannot be drawn log it themselves.
void tellMissingPictures(const Project &project, bool hiddenToo, const QString &path,
                         const ConvertCommand::Teller &notice)
{
    for (int i = 0; i < std::ssize(project.layers); ++i) {
        const Layer &layer = *project.layers[static_cast<std::size_t>(i)];
        if (!(layer.visible() || hiddenToo) || !qobject_cast<const LWStill *>(&layer))
            continue;
        if (const auto reason = PictureOutput::reasonForNoPicture(project, i))
            notice(path + ": " + *reason);
    }
}

void tellDifferences(const ConvertCommand &command, const Project &project, const ConvertCommand::Teller &notice)
{
    bool showsAllLayers = false;
    bool isAnyLayered = false;
    for (const QString &output : command.outputs) {
        const Result<FileFormat> format = FileFormat::toWrite(output);
        showsAllLayers |= format && format->isPicture && !(command.picture.layer && format->usesSettings);
        isAnyLayered |= format && format->isLayered;
        for (const QString &sentence : format && format->isLayered ? PSDExport::resized(project) : QStringList())
            notice(output + ": " + sentence);
        if (format && format->leavesOut && format->leavesOut(project))
            notice(output + ": " + UnknownValues::leftOut(command.input) + '.');
    }
    if (showsAllLayers)
        tellMissingPictures(project, isAnyLayered, command.input, notice);
}
} // namespace

Result<ConvertCommand> ConvertCommand::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    const Result<void> parsed =
        Options::parse(parser,
                       {Options::withValue("layer"), Options::withValue("corners"), Options::withValue("voltage"),
                        Options::withValue("phases"), Options::withValue("background"), Options::withValue("edge")},
                       arguments);
    ConvertCommand command;
    return parsed.and_then([&] { return takeSettings(command, parser); })
        .and_then([&] { return takeFiles(command, parser.positionalArguments()); })
        .and_then([&] { return checkSettingsAreUsed(command, parser); })
        .map([&] { return command; });
}

Result<void> ConvertCommand::run(const Teller &written, const Teller &notice) const
{
    // Layers take the host's values over while they are read, so it comes first.
    CommandLineHost host(volts, phases, corners);
    const Result<Project> project = FileFormat::readProject(input, host);
    if (!project)
        return tl::unexpected(project.error());
    if (project->supply) {
        host.setVoltageCalc(volts == 0 ? project->supply->volts : volts);
        host.setPhaseCalc(phases == 0 ? project->supply->phases : phases);
        PowerCalculator::renderCurrents(project->layers);
    }

    ShowCables::show(project->layers, ShowPorts::of(*project));
    for (const QString &output : outputs) {
        Result<void> done = FileFormat::toWrite(output).and_then(
            [&](const FileFormat &format) { return format.write(output, *project, picture); });
        if (!done)
            return done;
        written(output);
    }
    tellDifferences(*this, *project, notice);
    return {};
}
