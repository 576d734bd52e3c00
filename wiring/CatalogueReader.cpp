#include "wiring/CatalogueReader.h"

#include <QJsonDocument>

namespace {
constexpr qint64 mostPixels = 1'000'000'000'000;
constexpr int mostSide = 1 << 20; ///< of a canvas, in pixels
constexpr int mostBits = 16;      ///< of a colour
constexpr int mostHz = 1000;
const QStringList backupPairs{"none", "adjacent", "half", "trunk", "device"};

CapacityCell cellOf(JsonFields &fields)
{
    CapacityCell cell;
    cell.bits = static_cast<int>(fields.wholeGiven("bits", 1, mostBits));
    cell.hz = static_cast<int>(fields.wholeGiven("hz", 1, mostHz));
    cell.pixels = fields.wholeGiven("pixels", 1, mostPixels);
    return cell;
}

/// Bits on the cable by colour depth, whose names are numbers; a bandwidth of its own may stand beside one.
void readLinks(JsonFields &fields, CapacityModel &model)
{
    const qint64 payload = fields.wholeGiven("payloadBps", 1, mostPixels);
    const QJsonObject bitsPerPixel = fields.object("bitsPerPixel");
    JsonFields perPixel(bitsPerPixel, "bitsPerPixel");
    JsonFields ownPayload(fields.object("payloadBpsByBits"), "payloadBpsByBits");
    for (const QString &name : bitsPerPixel.keys()) {
        const QByteArray key = name.toLatin1();
        const int bits = name.toInt();
        if (bits < 1 || bits > mostBits)
            fields.refuse(QString("\"%1\" is no colour depth.").arg(name));
        const auto onCable = static_cast<int>(perPixel.wholeGiven(key.constData(), 1, 1000));
        model.links[bits] = {ownPayload.whole(key.constData(), 1, mostPixels, payload), onCable};
    }
    for (const JsonFields *part : {&perPixel, &ownPayload})
        if (part->error())
            fields.refuse(part->error()->text);
    model.maxHz = static_cast<int>(fields.wholeGiven("maxHz", 1, mostHz));
}

void readLowLatency(JsonFields &fields, PortRules &rules)
{
    using enum PortRules::LowLatency;
    if (!fields.has("lowLatency"))
        return;
    JsonFields lowLatency(fields.object("lowLatency"), "lowLatency");
    static constexpr PortRules::LowLatency kinds[] = {Unsaid, Free, Half, TopAligned};
    rules.lowLatency = kinds[lowLatency.choice("kind", {"unsaid", "none", "half", "top-aligned"}, 0)];
    rules.lowLatencyModels = lowLatency.texts("models");
    const std::vector<qint64> heights = lowLatency.wholes("canvasHeight", 1, mostSide); // least and most
    rules.lowLatencyHeight = heights.empty() ? 0 : static_cast<int>(heights.back());
    if (lowLatency.error())
        fields.refuse(lowLatency.error()->text);
}

BackupPair backupPairOf(JsonFields &fields)
{
    return static_cast<BackupPair>(fields.choice("backupPair", backupPairs, 0));
}

DeviceCap deviceCapOf(JsonFields &fields)
{
    JsonFields cap(fields.object("deviceCap"), "deviceCap");
    DeviceCap found;
    found.kind = static_cast<DeviceCap::Kind>(cap.choice("kind", {"none", "pixels", "canvas", "pixel-rate"}, 0));
    if (found.kind != DeviceCap::Kind::Unsaid)
        found.pixels = cap.wholeGiven("pixels", 1, mostPixels);
    if (cap.error())
        fields.refuse(cap.error()->text);
    return found;
}

/// One shape, [width, height], or a list of them.
/// Of all cards together.
std::map<int, qint64> cardPixelsOf(JsonFields &fields)
{
    JsonFields cards(fields.object("cards"), "cards");
    const qint64 cardCount = cards.whole("slots", 1, 1000, 0);
    const QJsonObject byBits = cards.object("perCardPixels");
    JsonFields card(byBits, "perCardPixels");
    std::map<int, qint64> pixels;
    for (const QString &bits : byBits.keys())
        pixels[bits.toInt()] = cardCount * card.wholeGiven(bits.toUtf8(), 1, mostPixels / 1000);
    for (const auto &error : {cards.error(), card.error()}) {
        if (error)
            fields.refuse(error->text);
    }
    return pixels;
}

std::vector<QSize> canvasesOf(JsonFields &fields)
{
    const QJsonArray given = fields.array("canvas");
    const QJsonArray shapes = given.isEmpty() || given.first().isArray() ? given : QJsonArray{given};
    std::vector<QSize> canvases;
    for (const auto &shape : shapes) {
        JsonFields sides({{"canvas", shape}}, "canvas");
        const std::vector<qint64> found = sides.wholes("canvas", 1, mostSide);
        if (sides.error() || found.size() != 2)
            fields.refuse("\"canvas\" is no list of width and height.");
        else
            canvases.emplace_back(static_cast<int>(found[0]), static_cast<int>(found[1]));
    }
    return canvases;
}
} // namespace

Result<ProcessorCatalogue> ProcessorCatalogue::read(const QByteArray &json, const ProcessorCatalogue &base)
{
    return CatalogueReader(base).read(json);
}

Result<ProcessorCatalogue> CatalogueReader::read(const QByteArray &json)
{
    QJsonParseError parsed;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parsed);
    if (!document.isObject())
        return fail(QString("This is no list of processors: %1.").arg(parsed.errorString()));
    JsonFields file(document.object(), "list of processors");
    if (file.text("format") != "wallwright.processors" || file.whole("version", 1, 1'000'000, 0) != 1)
        return fail("This is no list of processors of version 1.");

    readEach(file.object("sources"), "source", [this](auto &fields, auto &key) { readSource(fields, key); });
    readEach(file.object("capacityModels"), "capacity model",
             [this](auto &fields, auto &id) { readCapacityModel(fields, id); });
    readEach(file.object("rules"), "rules", [this](auto &fields, auto &id) { readRules(fields, id); });
    qsizetype number = 0;
    for (const auto &processor : file.array("processors")) {
        JsonFields fields(processor.toObject(), QString("processor %1").arg(++number));
        readProcessor(fields);
        keepFirst(fields.error());
    }
    keepFirst(file.error());
    if (m_error)
        return tl::unexpected(*m_error);
    return m_catalogue;
}

void CatalogueReader::readEach(const QJsonObject &entries, const QString &what, const ReadEntry &read)
{
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        JsonFields fields(entry.value().toObject(), QString("%1 \"%2\"").arg(what, entry.key()));
        read(fields, entry.key());
        keepFirst(fields.error());
    }
}

void CatalogueReader::readSource(JsonFields &fields, const QString &key)
{
    const FigureSource source{key,
                              fields.name("title"),
                              fields.text("where"),
                              fields.name("grade"),
                              fields.texts("via"),
                              fields.text("says")};
    if (!m_catalogue.m_sources.emplace(key, source).second)
        fields.refuse("it is there already; use another name.");
}

void CatalogueReader::readCapacityModel(JsonFields &fields, const QString &id)
{
    CapacityModel model;
    model.id = id;
    model.label = fields.name("label");
    model.kind = static_cast<CapacityModel::Kind>(fields.choice("kind", {"link", "table", "none"}, 2));
    model.grade = fields.name("grade");
    model.source = fields.name("source");
    model.note = fields.text("note");
    requireKnown(fields, m_catalogue.m_sources, "sources", model.source);
    if (model.kind == CapacityModel::Kind::Link)
        readLinks(fields, model);
    for (const auto &published : fields.array("published")) {
        JsonFields cell(published.toObject(), "published");
        model.published.push_back(cellOf(cell));
        if (cell.error())
            fields.refuse(cell.error()->text);
    }
    if (!m_catalogue.m_capacityModels.emplace(id, model).second)
        fields.refuse("it is there already; use another name.");
}

void CatalogueReader::readRules(JsonFields &fields, const QString &id)
{
    PortRules rules;
    rules.id = id;
    rules.rectangle = fields.flag("rectangle");
    rules.minLoadWidth = fields.whole("minLoadWidth", 0, mostSide, 0);
    rules.maxPortWidth = fields.whole("maxPortWidth", 1, mostSide, 0);
    rules.maxPortHeight = fields.whole("maxPortHeight", 1, mostSide, 0);
    readLowLatency(fields, rules);
    rules.maxPanelsPerPort = static_cast<int>(fields.whole("maxPanelsPerPort", 1, 1'000'000, 0));
    rules.maxPanelsPerLoop = static_cast<int>(fields.whole("maxPanelsPerLoop", 1, 1'000'000, 0));
    rules.backupPair = backupPairOf(fields);
    rules.backup = fields.text("backup");
    rules.sources = fields.texts("source");
    for (const QString &source : rules.sources)
        requireKnown(fields, m_catalogue.m_sources, "sources", source);
    if (!m_catalogue.m_rules.emplace(id, rules).second)
        fields.refuse("they are there already; use another name.");
}

void CatalogueReader::readProcessor(JsonFields &fields)
{
    ProcessorModel model;
    model.family = fields.name("family");
    model.model = fields.name("model");
    model.form = fields.text("form");
    model.ports = static_cast<int>(fields.whole("ports", 1, 10'000, 0));
    model.portKind = fields.text("portKind");
    model.capacityModel = fields.name("capacityModel");
    model.rules = fields.name("rules");
    if (fields.has("backupPair"))
        model.backupPair = backupPairOf(fields);
    model.distribution = fields.text("distribution");
    model.grade = fields.name("grade");
    model.sources = fields.texts("source");
    model.note = fields.text("note");
    for (const qint64 bits : fields.wholes("bits", 1, mostBits))
        model.bits.push_back(static_cast<int>(bits));
    readCards(fields, model);
    readShape(fields, model);
    readFigures(fields, model);
    requireKnown(fields, m_catalogue.m_capacityModels, "capacity models", model.capacityModel);
    requireKnown(fields, m_catalogue.m_rules, "rules", model.rules);
    for (const QString &source : model.sources)
        requireKnown(fields, m_catalogue.m_sources, "sources", source);
    if (m_catalogue.model(model.model))
        fields.refuse(QString("there is a \"%1\" already; use another name.").arg(model.model));
    m_catalogue.m_models.push_back(model);
}

void CatalogueReader::readCards(JsonFields &fields, ProcessorModel &model)
{
    const QJsonObject cards = fields.object("cardModels");
    for (auto card = cards.begin(); card != cards.end(); ++card) {
        model.cards.emplace_back(card.key(), card.value().toString());
        requireKnown(fields, m_catalogue.m_capacityModels, "capacity models", card.value().toString());
    }
}

void CatalogueReader::readShape(JsonFields &fields, ProcessorModel &model)
{
    model.deviceCap = deviceCapOf(fields);
    model.cardPixels = cardPixelsOf(fields);
    model.canvases = canvasesOf(fields);
    model.maxWidth = static_cast<int>(fields.whole("maxWidth", 1, mostSide, 0));
    model.maxHeight = static_cast<int>(fields.whole("maxHeight", 1, mostSide, 0));
}

void CatalogueReader::readFigures(JsonFields &fields, ProcessorModel &model)
{
    for (const auto &figure : fields.array("perPort")) {
        JsonFields cell(figure.toObject(), "perPort");
        model.perPort.push_back({cellOf(cell), cell.name("kind")});
        if (cell.error())
            fields.refuse(cell.error()->text);
    }
}

template <typename Entries>
void CatalogueReader::requireKnown(JsonFields &fields, const Entries &entries, const QString &what, const QString &id)
{
    if (entries.find(id) == entries.end())
        fields.refuse(QString("\"%2\" is none of the %1; name one that is there.").arg(what, id));
}

void CatalogueReader::keepFirst(const std::optional<Error> &error)
{
    if (!m_error)
        m_error = error;
}
