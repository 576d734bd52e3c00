#include "app/ProjectText.h"

#include "app/FileBytes.h"
#include "app/FileKind.h"
#include "app/JsonCheck.h"
#include "app/JsonValues.h"
#include "app/LayerLimits.h"
#include "app/PropertyText.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaProperty>

#include <limits>

namespace {
constexpr int formatNumber = 1;
constexpr int newOutputWidth = 1920;
constexpr int newOutputHeight = 1080;

/// The lines of one layer. By hand, since QJsonObject would sort the names.
QByteArray layerText(const Layer &layer)
{
    QByteArray text = "    {\n      \"class\": " + JsonValues::text(layer.className());
    for (const ArchiveField &field : layer.keptFields()) {
        const QJsonValue value = PropertyText::encode(layer.property(field.property));
        text += QByteArray(",\n      \"") + field.property + "\": " + JsonValues::text(value);
    }
    return text + "\n    }";
}

Result<void> checkNames(const QJsonObject &object, const QStringList &known)
{
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (!known.contains(entry.key()))
            return fail(QString("%1: unknown name").arg(JsonValues::excerpt(entry.key())));
    }
    return {};
}

QStringList namesOf(const Layer &layer)
{
    QStringList names{"class"};
    for (const ArchiveField &field : layer.keptFields())
        names.append(field.property);
    return names;
}

/// Sets the given properties of a layer that holds the values of a new one.
Result<void> setProperties(Layer &layer, const QJsonObject &object, const QString &folder)
{
    const Result<void> known = checkNames(object, namesOf(layer));
    if (!known)
        return known;
    for (const ArchiveField &field : layer.keptFields()) {
        const QJsonValue given = object.value(QLatin1StringView(field.property));
        if (given.isUndefined())
            continue;
        const QMetaObject *meta = layer.metaObject();
        const QMetaProperty property = meta->property(meta->indexOfProperty(field.property));
        const Result<QVariant> value = PropertyText::decode(given, property.metaType(), folder);
        if (!value)
            return failWithin(field.property, value.error());
        property.write(&layer, *value);
    }
    return {};
}

Result<LayerPointer> decodeScreen(const QJsonObject &object, const QString &folder, LayerHost &host)
{
    const auto screen = LWScreen::init(host);
    const Result<void> isSet = setProperties(*screen, object, folder);
    if (!isSet)
        return tl::unexpected(isSet.error());
    screen->drawInRect();
    return screen;
}

Result<LayerPointer> decodeStill(const QJsonObject &object, const QString &folder, LayerHost &host)
{
    const auto still = std::make_shared<LWStill>(host);
    still->setVisible(true);
    const Result<void> isSet = setProperties(*still, object, folder);
    if (!isSet)
        return tl::unexpected(isSet.error());

    still->loadThumbnail();
    if (!object.contains("panelWidth"))
        still->setPanelWidth(still->thumbnail().width());
    if (!object.contains("panelHeight"))
        still->setPanelHeight(still->thumbnail().height());
    if (!object.contains("screenSizeWidth"))
        still->setScreenSizeWidth(still->panelWidth());
    if (!object.contains("screenSizeHeight"))
        still->setScreenSizeHeight(still->panelHeight());
    return still;
}

Result<LayerPointer> decodeLayer(const QJsonValue &value, const QString &folder, LayerHost &host)
{
    if (!value.isObject())
        return JsonValues::failExpecting("an object", value);
    const QJsonObject object = value.toObject();
    const QJsonValue className = object.value("class");
    if (className == "LWScreen")
        return decodeScreen(object, folder, host);
    if (className == "LWStill")
        return decodeStill(object, folder, host);
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

Result<int> decodeSide(const QJsonObject &root, const QString &name, int ofNewDocument)
{
    if (!root.contains(name))
        return ofNewDocument;
    const Result<int> side = decodeInt(root.value(name));
    if (!side)
        return failWithin(name, side.error());
    return side;
}

/// The document without its layers.
Result<Project> decodeHead(const QJsonObject &root)
{
    const Result<void> known = checkNames(root, {"format", "OutputWidth", "OutputHeight", "layers"});
    if (!known)
        return tl::unexpected(known.error());
    const Result<int> format = decodeInt(root.value("format"));
    if (!format)
        return failWithin("format", format.error());
    if (*format != formatNumber)
        return fail(QString("format: expected %1, found %2").arg(formatNumber).arg(*format));
    const Result<int> width = decodeSide(root, "OutputWidth", newOutputWidth);
    const Result<int> height = decodeSide(root, "OutputHeight", newOutputHeight);
    if (!width || !height)
        return tl::unexpected(width ? height.error() : width.error());
    return ProjectFile::checkOutputSize(*width, *height).map([&] { return Project{*height, *width, {}}; });
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
    QByteArray text = "{\n  \"format\": " + QByteArray::number(formatNumber);
    text += ",\n  \"OutputWidth\": " + QByteArray::number(project.outputWidth);
    text += ",\n  \"OutputHeight\": " + QByteArray::number(project.outputHeight);
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
    const Result<QJsonObject> root = parse(json);
    if (!root)
        return tl::unexpected(root.error());
    Result<Project> project = decodeHead(*root);
    if (!project)
        return project;
    const QJsonValue layers = root->value("layers");
    if (!layers.isArray())
        return failWithin("layers", JsonValues::failExpecting("a list of layers", layers).value());
    const QJsonArray list = layers.toArray();
    if (const Result<void> isKept = LayerLimits::checkCount(list.size()); !isKept)
        return failWithin("layers", isKept.error());
    for (const QJsonValue &value : list) {
        Result<LayerPointer> layer = decodeLayer(value, folder, host);
        if (!layer)
            return failInLayer(std::ssize(project->layers), value, layer.error());
        project->layers.push_back(std::move(*layer));
    }
    const Result<void> areHeld = LayerLimits::check(project->layers);
    if (!areHeld)
        return failWithin("layers", areHeld.error());
    return project;
}

Result<Project> read(const QString &path, LayerHost &host)
{
    const Result<QByteArray> json = FileBytes::read(path, mostBytes);
    if (!json)
        return tl::unexpected(json.error());
    const QString folder = QFileInfo(path).absolutePath();
    Result<Project> project = FileKind::checkText(*json).and_then([&] { return decode(*json, folder, host); });
    if (!project)
        return failWithin(path, project.error());
    return project;
}

Result<void> write(const QString &path, const Project &project)
{
    const Result<void> isReadable = ProjectFile::check(project);
    if (!isReadable)
        return failWithin(path, isReadable.error());
    return FileBytes::write(path, encode(project));
}

} // namespace ProjectText
