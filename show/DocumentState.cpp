#include "show/DocumentState.h"

#include "still/LWStill.h"

#include <QMetaProperty>

#include <algorithm>
#include <unordered_map>

namespace {
/// The declared properties that are values of their own: neither the picture that is made from the others nor what
/// lives elsewhere.
std::vector<QMetaProperty> findValueProperties(const QMetaObject &meta)
{
    const int thumbnail = Layer::staticMetaObject.indexOfProperty("thumbnail");
    std::vector<QMetaProperty> properties;
    for (int i = Layer::staticMetaObject.propertyOffset(); i < meta.propertyCount(); ++i) {
        const bool isReference = meta.property(i).metaType().flags().testFlag(QMetaType::PointerToQObject);
        if (i != thumbnail && !isReference)
            properties.push_back(meta.property(i));
    }
    return properties;
}

/// The same for one of the kinds of layer, found once: every edit asks for each layer.
const std::vector<QMetaProperty> &valueProperties(const QMetaObject &meta)
{
    static std::unordered_map<const QMetaObject *, std::vector<QMetaProperty>> known;
    const auto found = known.find(&meta);
    return found == known.end() ? known.emplace(&meta, findValueProperties(meta)).first->second : found->second;
}

QVariantList valuesOf(const Layer &layer)
{
    const std::vector<QMetaProperty> &properties = valueProperties(*layer.metaObject());
    QVariantList values;
    values.reserve(static_cast<qsizetype>(properties.size()));
    for (const QMetaProperty &property : properties)
        values.append(property.read(&layer));
    return values;
}

/// To Qt a text without letters equals none at all; files tell them apart.
bool isSame(const QVariant &one, const QVariant &other)
{
    const bool isText = one.typeId() == QMetaType::QString;
    return one == other && (!isText || one.toString().isNull() == other.toString().isNull());
}

bool areSame(const QVariantList &some, const QVariantList &others)
{
    return std::equal(some.begin(), some.end(), others.begin(), others.end(), isSame);
}

void setValues(Layer &layer, const QVariantList &values)
{
    auto value = values.begin();
    for (const QMetaProperty &property : valueProperties(*layer.metaObject()))
        property.write(&layer, *value++);
}
} // namespace

bool LayerState::operator==(const LayerState &other) const
{
    return layer == other.layer && (values == other.values || areSame(*values, *other.values));
}

LayerState LayerState::of(const LayerPointer &layer, const LayerState *before)
{
    QVariantList values = valuesOf(*layer);
    if (before && areSame(*before->values, values))
        return *before;
    return {layer, std::make_shared<const QVariantList>(std::move(values))};
}

void LayerState::apply() const
{
    if (areSame(valuesOf(*layer), *values))
        return;
    const auto still = std::dynamic_pointer_cast<LWStill>(layer);
    const Address shownAddress = still ? still->ImageURL() : Address();
    setValues(*layer, *values);
    if (!still) {
        layer->drawInRect();
        setValues(*layer, *values); // rendering fills in what is missing
    } else if (still->ImageURL() != shownAddress) {
        still->loadThumbnail();
    }
}

std::vector<LayerState> statesOf(const std::vector<LayerPointer> &layers, const std::vector<LayerState> &before)
{
    std::unordered_map<const Layer *, const LayerState *> known;
    for (const LayerState &state : before)
        known.emplace(state.layer.get(), &state);

    std::vector<LayerState> states;
    states.reserve(layers.size());
    for (const LayerPointer &layer : layers) {
        const auto found = known.find(layer.get());
        states.push_back(LayerState::of(layer, found == known.end() ? nullptr : found->second));
    }
    return states;
}
