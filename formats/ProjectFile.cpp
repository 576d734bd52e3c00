#include "formats/ProjectFile.h"

#include "archive/KeyedArchive.h"
#include "base/FileBytes.h"
#include "base/Memory.h"
#include "drawing/Raster.h"
#include "formats/FileKind.h"
#include "formats/ProcessorList.h"
#include "layer/LayerLimits.h"
#include "show/LayerArchive.h"

#include <utility>

namespace {
constexpr std::size_t knownElements = 3;
const QString showKey("wallwright");
const QString voltsKey("voltage");
const QString phasesKey("phases");
const QString processorsKey("processors");

/// The dictionary of the values of the whole show, and what else stands beside the root.
ArchiveEntries besideRoot(const Project &project)
{
    ArchiveObject show({});
    if (project.supply) {
        show.encodeInt32(voltsKey, project.supply->volts);
        show.encodeInt32(phasesKey, project.supply->phases);
    }
    if (!project.processors.empty())
        show.encode(processorsKey, ProcessorList::toArchive(project.processors));
    for (const auto &[key, value] : project.unknown ? project.unknown->ofShow : ArchiveEntries())
        show.encode(key, value);
    ArchiveEntries entries;
    if (!show.entries().empty())
        entries.emplace_back(showKey, ArchiveValue{std::make_shared<const ArchiveObject>(show)});
    if (project.unknown)
        entries.insert(entries.end(), project.unknown->ofTop.begin(), project.unknown->ofTop.end());
    return entries;
}

Result<void> takeSupply(const ArchiveObject &show, Project &project)
{
    if (!show.contains(voltsKey) && !show.contains(phasesKey))
        return {};
    const Result<qint32> volts = show.decodeInt32(voltsKey);
    const Result<qint32> phases = show.decodeInt32(phasesKey);
    if (!volts || !phases)
        return tl::unexpected(volts ? phases.error() : volts.error());
    return ProjectFile::checkSupply(*volts, *phases).map([&](const Supply &supply) { project.supply = supply; });
}

Result<void> takeProcessors(const ArchiveObject &show, Project &project)
{
    if (!show.contains(processorsKey))
        return {};
    return ProcessorList::ofArchive(show.value(processorsKey)).map([&](auto processors) {
        project.processors = std::move(processors);
    });
}

Result<void> takeShow(const ArchiveObject &show, Project &project)
{
    return takeSupply(show, project).and_then([&] { return takeProcessors(show, project); });
}

/// What stands beside the root.
Result<void> takeBesideRoot(const ArchiveEntries &entries, Project &project, UnknownContent &unknown)
{
    for (const auto &[key, value] : entries) {
        if (key != showKey) {
            unknown.ofTop.emplace_back(key, value);
            continue;
        }
        const ArchiveObjectPointer *const show = std::get_if<ArchiveObjectPointer>(&value.storage);
        const Result<void> taken = show ? takeShow(**show, project) : fail("this is no dictionary");
        if (!taken)
            return failWithin('"' + showKey + '"', taken.error());
        unknown.ofShow = (*show)->unknownPart()->entries();
    }
    return {};
}

/// Output height and width, the first two elements of the root.
Result<Project> decodeOutputSize(const std::vector<ArchiveValue> &root)
{
    const Result<qint32> height = root[0].toInt32("the output height");
    if (!height)
        return tl::unexpected(height.error());
    const Result<qint32> width = root[1].toInt32("the output width");
    if (!width)
        return tl::unexpected(width.error());
    return ProjectFile::checkOutputSize(*width, *height).map([&] { return Project{*height, *width, {}}; });
}

/// Preset libraries are lists as well, of layers from the first entry on.
bool isPresetLibrary(const ArchiveValue &root)
{
    const ArchiveList *const list = std::get_if<ArchiveList>(&root.storage);
    return list && !(*list)->empty() && std::holds_alternative<ArchiveObjectPointer>((*list)->front().storage);
}

Result<QByteArray> archiveOf(const Project &project)
{
    std::vector<ArchiveValue> root{
        {qint64{project.outputHeight}}, {qint64{project.outputWidth}}, LayerArchive::encode(project.layers)};
    if (project.unknown)
        root.insert(root.end(), project.unknown->ofRoot.begin(), project.unknown->ofRoot.end());
    return KeyedArchive::writeContents({ArchiveValue::list(std::move(root)), besideRoot(project)});
}

Result<Project> projectIn(const QByteArray &bytes, LayerHost &host)
{
    const QStringList keys = ProcessorList::keys();
    const Result<KeyedArchive::Contents> archive =
        LayerArchive::readContents(bytes, {.classes = {{ProcessorList::className, QSet(keys.begin(), keys.end())}},
                                           .rootEntries = knownElements,
                                           .topDictionary = showKey,
                                           .topKeys = {voltsKey, phasesKey, processorsKey}});
    if (!archive)
        return tl::unexpected(archive.error());
    if (isPresetLibrary(archive->root))
        return fail("this is no project, but a preset library. Open it with Open library in the presets' menu.");
    const Result<ArchiveList> root = archive->root.toList("the root");
    if (!root)
        return tl::unexpected(root.error());
    if ((*root)->size() < knownElements)
        return fail(QString("this is no project: a list of %1, expected output height, output width and layers")
                        .arg((*root)->size()));

    Result<Project> project = decodeOutputSize(**root);
    const Result<ArchiveList> layers = (**root)[2].toList("the layer list");
    if (!project || !layers)
        return tl::unexpected(project ? layers.error() : project.error());
    const Result<std::vector<LayerArchive::ReadLayer>> decoded = LayerArchive::decode(**layers, "layer");
    if (!decoded)
        return tl::unexpected(decoded.error());
    UnknownContent unknown{{(*root)->begin() + knownElements, (*root)->end()}, {}, {}};
    const Result<void> taken = takeBesideRoot(archive->top, *project, unknown);
    if (!taken)
        return tl::unexpected(taken.error());
    if (!unknown.isEmpty())
        project->unknown = std::make_shared<const UnknownContent>(std::move(unknown));
    project->layers = LayerArchive::make(*decoded, host);
    return project;
}

} // namespace

namespace ProjectFile {

Result<void> checkOutputSize(qint64 width, qint64 height)
{
    if (Raster::canHold(width, height))
        return {};
    return fail(QString("the output is %1 x %2 pixels; each side must be 1 to %3 and the whole at most %4 pixels")
                    .arg(width)
                    .arg(height)
                    .arg(Raster::longestSide)
                    .arg(Raster::mostPixels));
}

Result<Supply> checkSupply(qint64 volts, qint64 phases)
{
    if (const std::optional<Supply> supply = Supply::of(volts, phases))
        return *supply;
    return fail(QString("the supply is %1 V on %2 phases; it must be 1 to %3 V on 1 or 3")
                    .arg(volts)
                    .arg(phases)
                    .arg(Supply::mostVolts));
}

Result<void> check(const Project &project)
{
    const Result<void> areHeld = ProcessorList::checkCount(std::ssize(project.processors));
    if (!areHeld)
        return failWithin("the list of processors", areHeld.error());
    return checkOutputSize(project.outputWidth, project.outputHeight).and_then([&] {
        return LayerLimits::check(project.layers);
    });
}

Result<QByteArray> encode(const Project &project)
{
    return check(project).and_then([&] { return Memory::orError([&] { return archiveOf(project); }); });
}

Result<Project> decode(const QByteArray &bytes, LayerHost &host)
{
    return Memory::orError([&] { return projectIn(bytes, host); });
}

Result<Project> read(const QString &path, LayerHost &host)
{
    const Result<QByteArray> bytes = FileBytes::read(path, LayerArchive::mostBytes);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<Project> project = FileKind::checkArchive(*bytes, "project").and_then([&] { return decode(*bytes, host); });
    if (!project)
        return failWithin(path, project.error());
    return project;
}

Result<void> write(const QString &path, const Project &project)
{
    const Result<QByteArray> bytes = encode(project);
    if (!bytes)
        return failWithin(path, bytes.error());
    return FileBytes::write(path, *bytes);
}

} // namespace ProjectFile
