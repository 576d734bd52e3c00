#include "formats/ProjectText.h"

#include "base/FileBytes.h"
#include "base/Memory.h"
#include "facts/UnknownValues.h"
#include "formats/FileKind.h"
#include "formats/JsonCheck.h"
#include "formats/JsonParts.h"
#include "formats/JsonValues.h"
#include "formats/ProcessorList.h"
#include "formats/ProjectFile.h"
#include "formats/PropertyText.h"
#include "layer/LayerLimits.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include <algorithm>
#include <limits>

namespace {
constexpr int firstFormat = 1;
constexpr int formatWithAdditions = 2;
constexpr int newOutputWidth = 1920;
constexpr int newOutputHeight = 1080;
const QString voltsName("voltage");
const QString phasesName("phases");
const QString processorsName("processors");
const QString layersName("layers");

/// The lines of one layer. By hand, since QJsonObject would sort the names.
QByteArray layerText(const Layer &layer)
{
    QByteArray text = "    {\n      \"class\": " + JsonValues::text(layer.className());
    const LayerRecordPointer record = layer.record();
    for (const ArchiveField &field : layer.keptFields()) {
        if (!field.isWritten(*record))
            continue;
        const QByteArray value = PropertyText::text(field.value().get(*record), "      ");
        text += QByteArray(",\n      \"") + field.property + "\": " + value;
    }
    for (const QByteArray &unknown : layer.unknownNames())
        text += ",\n      " + unknown;
    return text + "\n    }";
}

bool hasAdditions(const Layer &layer)
{
    const LayerRecordPointer record = layer.record();
    return std::ranges::any_of(layer.keptFields(),
                               [&](const ArchiveField &field) { return field.isAddition && field.isWritten(*record); });
}

/// The lowest that holds the project: what no addition is written in, older versions read too. What is unknown is
/// known to the format that it came in; a layer may have brought it from another show.
int formatOf(const Project &project)
{
    if (UnknownValues::areOfText(project))
        return std::max(project.unknown ? project.unknown->textFormat : 0, formatWithAdditions + 1);
    const bool isPlain =
        !project.supply && project.processors.empty() &&
        std::ranges::none_of(project.layers, [](const LayerPointer &layer) { return hasAdditions(*layer); });
    return isPlain ? firstFormat : formatWithAdditions;
}

/// What a text is read with.
struct Surroundings
{
    const QString &folder;
    LayerHost &host;
    int format;
};

/// An object of a text.
struct Given
{
    QJsonObject object;
    QByteArrayView newer; ///< how it stands there, in a format of which we do not know all names; else empty
};

QStringList namesOf(const Layer &layer, int format)
{
    QStringList names{"class"};
    for (const ArchiveField &field : layer.keptFields()) {
        if (!field.isAddition || format >= formatWithAdditions)
            names.append(field.property);
    }
    return names;
}

Error notAmong(const QStringList &choices, const QVariant &found)
{
    return {QString("expected one of \"%1\", found \"%2\"")
                .arg(choices.join("\", \""), JsonValues::excerpt(found.toString()))};
}

/// Cables as they stand there. Other values have no names in them.
QByteArrayView newerRuns(const Given &layer, const QByteArray &property)
{
    return property == "runs" ? JsonParts::valueOf(layer.newer, "runs") : QByteArrayView();
}

/// Sets the given properties of a layer that holds the values of a new one.
Result<void> setProperties(Layer &layer, const Given &layerGiven, const Surroundings &around)
{
    const Result<QByteArrayList> unknown =
        JsonParts::unknownNames(layerGiven.object, layerGiven.newer, namesOf(layer, around.format));
    if (!unknown)
        return tl::unexpected(unknown.error());
    layer.setUnknownNames(*unknown);
    for (const ArchiveField &field : layer.keptFields()) {
        const QJsonValue given = layerGiven.object.value(QLatin1StringView(field.property));
        if (given.isUndefined())
            continue;
        const Result<QVariant> value =
            PropertyText::decode(given, field.value().type, around.folder, newerRuns(layerGiven, field.property));
        if (!value)
            return failWithin(field.property, value.error());
        if (!layer.setValue(field.property, *value))
            return failWithin(field.property, notAmong(field.value().choices, *value));
    }
    return {};
}

Result<LayerPointer> decodeScreen(const Given &given, const Surroundings &around)
{
    const auto screen = LWScreen::init(around.host);
    const Result<void> isSet = setProperties(*screen, given, around);
    if (!isSet)
        return tl::unexpected(isSet.error());
    screen->drawInRect();
    return screen;
}

Result<LayerPointer> decodeStill(const Given &given, const Surroundings &around)
{
    const auto still = std::make_shared<LWStill>(around.host);
    still->setVisible(true);
    const Result<void> isSet = setProperties(*still, given, around);
    if (!isSet)
        return tl::unexpected(isSet.error());

    const bool hasSize = given.object.contains("panelWidth") && given.object.contains("panelHeight");
    if (still->chart() && !hasSize)
        return fail("chart: expected panelWidth and panelHeight beside it");
    still->followChart();
    still->loadThumbnail();
    if (!given.object.contains("panelWidth"))
        still->setPanelWidth(still->thumbnail().width());
    if (!given.object.contains("panelHeight"))
        still->setPanelHeight(still->thumbnail().height());
    if (!given.object.contains("screenSizeWidth"))
        still->setScreenSizeWidth(still->panelWidth());
    if (!given.object.contains("screenSizeHeight"))
        still->setScreenSizeHeight(still->panelHeight());
    return still;
}

Result<LayerPointer> decodeLayer(const QJsonValue &value, QByteArrayView newer, const Surroundings &around)
{
    if (!value.isObject())
        return JsonValues::failExpecting("an object", value);
    const Given given{value.toObject(), newer};
    const QJsonValue className = given.object.value("class");
    if (className == "LWScreen")
        return decodeScreen(given, around);
    if (className == "LWStill")
        return decodeStill(given, around);
    const QString found =
        className.isString() ? "\"" + JsonValues::excerpt(className.toString()) + "\"" : JsonValues::kind(className);
    return fail(QString("class: expected \"LWScreen\" or \"LWStill\", found %1").arg(found));
}

/// A failure inside a layer: `layers[3].rectColor: ...`, or `layers[3]: ...` for the layer as a whole.
tl::unexpected<Error> failInLayer(qsizetype index, const QJsonValue &layer, const Error &error)
{
    const QString place = QString("layers[%1]").arg(index);
    return layer.isObject() ? fail(place + "." + error.text) : failWithin(place, error);
}

Result<int> decodeInt(const QJsonValue &value)
{
    using Limits = std::numeric_limits<int>;
    return PropertyText::decodeInteger(value, Limits::min(), Limits::max()).map([](qint64 number) {
        return static_cast<int>(number);
    });
}

Result<int> decodeNumber(const QJsonObject &root, const QString &name, int ofNewDocument)
{
    if (!root.contains(name))
        return ofNewDocument;
    Result<int> number = decodeInt(root.value(name));
    if (!number)
        return failWithin(name, number.error());
    return number;
}

Result<int> decodeFormat(const QJsonObject &root)
{
    Result<int> format = decodeInt(root.value("format"));
    if (!format)
        return failWithin("format", format.error());
    if (*format < firstFormat)
        return fail(QString("format: expected %1 or more, found %2").arg(firstFormat).arg(*format));
    return format;
}

/// The supply that is given, whole or by one of its two names.
Result<std::optional<Supply>> decodeSupply(const QJsonObject &root)
{
    if (!root.contains(voltsName) && !root.contains(phasesName))
        return std::optional<Supply>();
    const Result<int> volts = decodeNumber(root, voltsName, Supply().volts);
    const Result<int> phases = decodeNumber(root, phasesName, Supply().phases);
    if (!volts || !phases)
        return tl::unexpected(volts ? phases.error() : volts.error());
    return ProjectFile::checkSupply(*volts, *phases).map([](const Supply &supply) { return std::optional(supply); });
}

Result<ProcessorList::Processors> decodeProcessors(const Given &root)
{
    if (!root.object.contains(processorsName))
        return ProcessorList::Processors();
    return ProcessorList::ofText(root.object.value(processorsName), JsonParts::valueOf(root.newer, processorsName));
}

/// The document without its layers.
Result<Project> decodeHead(const Given &given, int format)
{
    const QJsonObject &root = given.object;
    QStringList names{"format", "OutputWidth", "OutputHeight", layersName};
    if (format >= formatWithAdditions)
        names += {voltsName, phasesName, processorsName};
    const Result<QByteArrayList> unknown = JsonParts::unknownNames(root, given.newer, names);
    if (!unknown)
        return tl::unexpected(unknown.error());
    const Result<std::optional<Supply>> supply = decodeSupply(root);
    if (!supply)
        return tl::unexpected(supply.error());
    const Result<ProcessorList::Processors> processors = decodeProcessors(given);
    if (!processors)
        return failWithin(processorsName, processors.error());
    const Result<int> width = decodeNumber(root, "OutputWidth", newOutputWidth);
    const Result<int> height = decodeNumber(root, "OutputHeight", newOutputHeight);
    if (!width || !height)
        return tl::unexpected(width ? height.error() : width.error());
    return ProjectFile::checkOutputSize(*width, *height).map([&] {
        Project project{*height, *width, {}, *supply, *processors};
        if (!unknown->isEmpty())
            project.unknown =
                std::make_shared<UnknownContent>(UnknownContent{.ofText = *unknown, .textFormat = format});
        return project;
    });
}

/// What is unknown of parts alone needs its format, too.
void noteFormat(Project &project, int format)
{
    if (!project.unknown && UnknownValues::areOfText(project))
        project.unknown = std::make_shared<UnknownContent>(UnknownContent{.textFormat = format});
}

/// Error: a layer cannot be read; its place comes first.
Result<void> decodeLayers(Project &project, const QJsonArray &list, const Given &root, const Surroundings &around)
{
    const std::vector<JsonParts::Part> texts = JsonParts::of(JsonParts::valueOf(root.newer, layersName));
    for (const auto &value : list) {
        Result<LayerPointer> layer = decodeLayer(value, JsonParts::valueAt(texts, project.layers.size()), around);
        if (!layer)
            return failInLayer(std::ssize(project.layers), value, layer.error());
        project.layers.push_back(std::move(*layer));
    }
    noteFormat(project, around.format);
    return {};
}

Result<QJsonObject> parse(const QByteArray &json)
{
    if (const Result<void> checked = JsonCheck::check(json); !checked)
        return tl::unexpected(checked.error());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return fail(JsonCheck::place(json, error.offset) + ": this is no JSON: " + error.errorString());
    if (!document.isObject())
        return fail("expected an object with \"format\" and \"layers\", found a list");
    return document.object();
}
} // namespace

namespace ProjectText {

QByteArray encode(const Project &project)
{
    QByteArray text = "{\n  \"format\": " + QByteArray::number(formatOf(project));
    text += ",\n  \"OutputWidth\": " + QByteArray::number(project.outputWidth);
    text += ",\n  \"OutputHeight\": " + QByteArray::number(project.outputHeight);
    if (project.supply) {
        text += ",\n  \"voltage\": " + QByteArray::number(project.supply->volts);
        text += ",\n  \"phases\": " + QByteArray::number(project.supply->phases);
    }
    if (!project.processors.empty())
        text += ",\n  \"processors\": " + ProcessorList::toText(project.processors);
    for (const QByteArray &unknown : project.unknown ? project.unknown->ofText : QByteArrayList())
        text += ",\n  " + unknown;
    text += ",\n  \"layers\": [";
    const char *separator = "\n";
    for (const LayerPointer &layer : project.layers) {
        text += separator + layerText(*layer);
        separator = ",\n";
    }
    return text + (project.layers.empty() ? "]\n}\n" : "\n  ]\n}\n");
}

Result<Project> decode(const QByteArray &json, const QString &folder, LayerHost &host)
{
    const Result<QJsonObject> object = parse(json);
    if (!object)
        return tl::unexpected(object.error());
    const Result<int> format = decodeFormat(*object);
    if (!format)
        return tl::unexpected(format.error());
    const Given root{*object, *format > formatWithAdditions ? QByteArrayView(json) : QByteArrayView()};
    Result<Project> project = decodeHead(root, *format);
    if (!project)
        return project;
    const QJsonValue layers = root.object.value(layersName);
    if (!layers.isArray())
        return failWithin(layersName, JsonValues::failExpecting("a list of layers", layers).value());
    const QJsonArray list = layers.toArray();
    if (const Result<void> isKept = LayerLimits::checkCount(list.size()); !isKept)
        return failWithin(layersName, isKept.error());
    if (const Result<void> decoded = decodeLayers(*project, list, root, {folder, host, *format}); !decoded)
        return tl::unexpected(decoded.error());
    if (const Result<void> areHeld = LayerLimits::check(project->layers); !areHeld)
        return failWithin(layersName, areHeld.error());
    return project;
}

Result<Project> read(const QString &path, LayerHost &host)
{
    const Result<QByteArray> json = FileBytes::read(path, mostBytes);
    if (!json)
        return tl::unexpected(json.error());
    const QString folder = QFileInfo(path).absolutePath();
    Result<Project> project = FileKind::checkText(*json).and_then(
        [&] { return Memory::orError([&] { return decode(*json, folder, host); }); });
    if (!project)
        return failWithin(path, project.error());
    return project;
}

Result<void> write(const QString &path, const Project &project)
{
    const Result<QByteArray> text = ProjectFile::check(project).and_then(
        [&] { return Memory::orError([&]() -> Result<QByteArray> { return encode(project); }); });
    if (!text)
        return failWithin(path, text.error());
    if (text->size() > mostBytes) // it could not be read again, and must not replace a file
        return fail(
            QString("%1: as JSON this project has %2, and more than %3 is not read; save it as a project file")
                .arg(path, QLocale::c().formattedDataSize(text->size()), QLocale::c().formattedDataSize(mostBytes)));
    return FileBytes::write(path, *text);
}

} // namespace ProjectText
