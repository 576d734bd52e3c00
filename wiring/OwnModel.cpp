#include "wiring/OwnModel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
/// That of the only model; empty: there is not one.
QString nameIn(const QJsonDocument &list)
{
    const QJsonArray models = list.object().value("processors").toArray();
    return models.size() == 1 ? models.first().toObject().value("model").toString() : QString();
}

QJsonObject listOf(const OwnModel::Description &description)
{
    const QString key = "own: " + description.name; // no name that comes with the program
    const QJsonObject source{{"title", "described by hand"}, {"grade", "D"}};
    const QJsonObject capacity{
        {"label", description.name},
        {"kind", "table"},
        {"grade", "D"},
        {"source", key},
        {"published", QJsonArray{QJsonObject{{"bits", 8}, {"hz", 60}, {"pixels", description.pixels}}}}};
    QJsonObject rules{{"rectangle", description.isRectangle}, {"source", QJsonArray{key}}};
    if (description.maxPanelsPerPort > 0)
        rules.insert("maxPanelsPerPort", description.maxPanelsPerPort);
    const QJsonObject model{{"family", OwnModel::family},
                            {"model", description.name},
                            {"ports", description.ports},
                            {"capacityModel", key},
                            {"rules", key},
                            {"grade", "D"},
                            {"source", QJsonArray{key}},
                            {"bits", QJsonArray{8}}};
    return {{"format", "wallwright.processors"},     {"version", 1},
            {"sources", QJsonObject{{key, source}}}, {"capacityModels", QJsonObject{{key, capacity}}},
            {"rules", QJsonObject{{key, rules}}},    {"processors", QJsonArray{model}}};
}
} // namespace

Result<OwnModel> OwnModel::of(const QByteArray &text)
{
    const QJsonDocument list = QJsonDocument::fromJson(text);
    const QString name = nameIn(list);
    Result<ProcessorCatalogue> catalogue = ProcessorCatalogue::read(text, ProcessorCatalogue::builtIn().without(name));
    if (!catalogue)
        return tl::unexpected(catalogue.error());
    if (name.isEmpty())
        return fail("A list of one model was expected.");
    OwnModel own;
    own.m_held = std::make_shared<const Held>(Held{list.toJson(QJsonDocument::Compact), std::move(*catalogue), name});
    return own;
}

Result<OwnModel> OwnModel::of(const Description &description)
{
    return of(QJsonDocument(listOf(description)).toJson());
}

QByteArray OwnModel::text() const
{
    return m_held ? m_held->text : QByteArray();
}

const ProcessorCatalogue &OwnModel::catalogue() const
{
    return m_held ? m_held->catalogue : ProcessorCatalogue::builtIn();
}

const ProcessorModel *OwnModel::model() const
{
    return m_held ? m_held->catalogue.model(m_held->name) : nullptr;
}
