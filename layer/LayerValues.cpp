#include "layer/LayerValues.h"

#include <QHash>

#include <algorithm>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

namespace {
using Writer = LayerValue::Writer;

/// A value as properties have it, and as the record has it.
template <typename Value>
struct Form
{
    using Given = Value;
    static const Value &given(const Value &value) { return value; }
    static const Value &kept(const Value &value) { return value; }
};

/// No text is a null one.
template <>
struct Form<std::optional<QString>>
{
    using Given = QString;
    static QString given(const std::optional<QString> &text) { return text.value_or(QString()); }
    static std::optional<QString> kept(const QString &text)
    {
        return text.isNull() ? std::nullopt : std::optional(text);
    }
};

/// Keys are texts.
template <>
struct Form<std::optional<PanelKeys>>
{
    using Given = std::optional<QStringList>;
    static Given given(const std::optional<PanelKeys> &keys) { return keys ? Given(keys->texts()) : std::nullopt; }
    static std::optional<PanelKeys> kept(const Given &texts)
    {
        return texts ? std::optional<PanelKeys>(*texts) : std::nullopt;
    }
};

const QStringList &splitNames()
{
    static const QStringList names{"lines", "panels", "hand"};
    return names;
}

/// Named.
template <>
struct Form<CableSplit>
{
    using Given = QString;
    static QString given(CableSplit split) { return splitNames().at(static_cast<int>(split)); }
    static CableSplit kept(const QString &name)
    {
        return static_cast<CableSplit>(std::max(qsizetype{0}, splitNames().indexOf(name)));
    }
};

template <auto member>
using FormOf = Form<std::remove_cvref_t<decltype(std::declval<LayerRecord>().*member)>>;

template <auto member>
QVariant get(const LayerRecord &record)
{
    return QVariant::fromValue(FormOf<member>::given(record.*member));
}

template <auto member>
void set(LayerRecord &record, const QVariant &value)
{
    record.*member = FormOf<member>::kept(value.value<typename FormOf<member>::Given>());
}

/// By the record itself: to Qt a text without letters equals none.
template <auto member>
bool isGiven(const LayerRecord &record)
{
    static const LayerRecord plain;
    return record.*member != plain.*member;
}

/// A row of the table, to be completed by what follows.
class Row : public LayerValue
{
public:
    constexpr Row &&watched() &&
    {
        isWatched = true;
        return std::move(*this);
    }
    constexpr Row &&of(LayerKind only) &&
    {
        kind = only;
        return std::move(*this);
    }
    constexpr Row &&in(int lowest, int highest, const char *unit = "") &&
    {
        range = NumberRange{lowest, highest, unit};
        return std::move(*this);
    }
    constexpr Row &&by(Writer other) &&
    {
        writer = other;
        return std::move(*this);
    }
    Row &&oneOf(const QStringList &texts) &&
    {
        choices = texts;
        return std::move(*this);
    }
    constexpr Row &&added(const Addition &how) &&
    {
        addition = how;
        return std::move(*this);
    }
};

template <auto member>
Row row(const char *name, const char *words = "")
{
    return Row{{name, QMetaType::fromType<typename FormOf<member>::Given>(), get<member>, set<member>, isGiven<member>,
                QLatin1StringView(words)}};
}

constexpr int mostPanels = 10'000;
constexpr int longestPanel = 16'384;
constexpr int furthest = 100'000;
constexpr int widestLine = 512;
constexpr int largestText = 1'000;
constexpr int mostWatts = 100'000;
constexpr int mostPorts = 9'999;

#define ROW(member, ...) row<&LayerRecord::member>(#member __VA_OPT__(, ) __VA_ARGS__)

const std::vector<LayerValue> &rows() // NOLINT(readability-function-size): a table
{
    static const std::vector<LayerValue> rows{
        ROW(panelWidth, "panel width").in(1, longestPanel, "px").watched(),
        ROW(panelHeight, "panel height").in(1, longestPanel, "px").watched(),
        ROW(col, "columns").in(1, mostPanels).watched(),
        ROW(row, "rows").in(1, mostPanels).watched(),
        ROW(screenSizeWidth).by(Writer::Rendering),
        ROW(screenSizeHeight).by(Writer::Rendering),
        ROW(xpoint, "left").in(-furthest, furthest, "px").watched(),
        ROW(ypoint, "top").in(-furthest, furthest, "px").watched(),

        ROW(visible, "visibility").watched(),
        ROW(label, "name").watched(),
        ROW(bgEnable, "fill").watched(),
        ROW(rectColor, "colour 1").watched(),
        ROW(rectColor2, "colour 2").watched(),
        ROW(BoarderEnable, "frame").watched(),
        ROW(boarderColor, "frame, colour").watched(),
        ROW(boarderWidth, "frame, width").in(0, widestLine, "px").watched(),
        ROW(CircleEnable, "circle and diagonals").watched(),
        ROW(circleColor, "circle and diagonals, colour").watched(),
        ROW(circleBWidth, "circle and diagonals, width").in(0, widestLine, "px").watched(),
        ROW(XYFontEnable, "corner coordinates").watched(),
        ROW(xyColor, "corner coordinates, colour").watched(),
        ROW(XYFontSize, "corner coordinates, size").in(1, largestText, "pt").watched(),
        ROW(screenFontEnable, "name and size at the centre").watched(),
        ROW(sfColor, "name and size at the centre, colour").watched(),
        ROW(screenFontSize, "name and size at the centre, size").in(1, largestText, "pt").watched(),
        ROW(showPower, "power text").watched().by(Writer::Inspection),
        ROW(showCurrent, "current").watched().added({"showcurrent", StoredAs::Boolean, LayerKind::Wall, true}),
        ROW(showPowerl).by(Writer::Inspection),

        ROW(drawLabels, "panel labels").watched(),
        ROW(XYLabelDirection, "letters by row").watched(),
        ROW(labelColor, "panel labels, colour").watched(),
        ROW(labelFontSize, "panel labels, size").in(1, largestText, "pt").watched().by(Writer::Rendering),
        ROW(drawFlowPath, "path").watched(),
        ROW(pattern, "pattern of the path"),
        ROW(pixelLimit, "pixels per port").in(0, std::numeric_limits<int>::max(), "px").watched(),
        ROW(powerOnCell, "watts per panel").in(0, mostWatts, "W").watched(),

        ROW(aspectRatio, "keep ratio").watched(),
        ROW(aspectValue),
        ROW(aspectHidden).by(Writer::Inspection),
        ROW(labelGroupRightHidden),
        ROW(label1),
        ROW(label2),
        ROW(label3),
        ROW(label4),
        ROW(label5),
        ROW(label6),
        ROW(label7),
        ROW(label8),
        ROW(label1Hidden),
        ROW(label2Hidden),
        ROW(label3Hidden),
        ROW(label4Hidden),
        ROW(label5Hidden),
        ROW(label6Hidden),
        ROW(label7Hidden),
        ROW(label8Hidden),

        ROW(hiddenBoxes, "panels off").of(LayerKind::Wall),
        ROW(PositionArray).of(LayerKind::Wall),
        ROW(label9Hidden).of(LayerKind::Wall),
        ROW(drawBackground).of(LayerKind::Wall),
        ROW(drawBorder).of(LayerKind::Wall),
        ROW(columnCount).of(LayerKind::Wall),
        ROW(rowCount).of(LayerKind::Wall),
        ROW(width).of(LayerKind::Wall),
        ROW(height).of(LayerKind::Wall),

        ROW(ImageURL, "picture").of(LayerKind::Still),

        ROW(id).added({"id", StoredAs::Text, LayerKind::Any, false}),
        ROW(chart, "chart").watched().of(LayerKind::Still).added({"chart", StoredAs::Text, LayerKind::Still, true}),
        ROW(processor, "processor")
            .watched()
            .of(LayerKind::Wall)
            .added({"processor", StoredAs::Text, LayerKind::Wall, true}),
        ROW(firstPort, "first port")
            .in(0, mostPorts)
            .watched()
            .of(LayerKind::Wall)
            .added({"firstPort", StoredAs::Integer32, LayerKind::Wall, false}),
        ROW(goesOn, "going on with the port before")
            .watched()
            .of(LayerKind::Wall)
            .added({"goesOn", StoredAs::Boolean, LayerKind::Wall, true}),
        ROW(split, "way of splitting")
            .watched()
            .of(LayerKind::Wall)
            .oneOf(splitNames())
            .added({"split", StoredAs::Text, LayerKind::Wall, true}),
        ROW(limitFromProcessor, "limit from the processor")
            .watched()
            .of(LayerKind::Wall)
            .added({"limitFromProcessor", StoredAs::Boolean, LayerKind::Wall, true}),
        ROW(runs, "cables").watched().of(LayerKind::Wall).added({"runs", StoredAs::Runs, LayerKind::Wall, true}),
        ROW(meant, "what is meant").added({"meant", StoredAs::Words, LayerKind::Any, false}),
        ROW(portColours, "colours of ports")
            .watched()
            .of(LayerKind::Wall)
            .added({"portColours", StoredAs::Boolean, LayerKind::Wall, true}),
        ROW(portNames, "names of ports")
            .watched()
            .of(LayerKind::Wall)
            .added({"portNames", StoredAs::Boolean, LayerKind::Wall, true}),
        ROW(portName, "name of a port")
            .watched()
            .of(LayerKind::Wall)
            .added({"portName", StoredAs::Text, LayerKind::Wall, true}),
        ROW(panelPlaces, "places on the port")
            .watched()
            .of(LayerKind::Wall)
            .added({"panelPlaces", StoredAs::Boolean, LayerKind::Wall, true}),
    };
    return rows;
}
} // namespace

bool LayerValue::assign(LayerRecord &record, QVariant value) const
{
    if (!value.isValid())
        value = QVariant(type);
    else if (value.metaType() != type && !value.convert(type))
        return false;
    if (!choices.isEmpty() && value.toString().isNull())
        value = choices.first();
    if (!choices.isEmpty() && !choices.contains(value.toString()))
        return false;
    set(record, value);
    return true;
}

QString LayerValue::caption() const
{
    return words.isEmpty() ? QString() : QString(words.first(1)).toUpper() + words.sliced(1);
}

namespace LayerValues {

std::span<const LayerValue> all()
{
    return rows();
}

const LayerValue *find(QByteArrayView name, LayerKind kind)
{
    static const QHash<QByteArrayView, const LayerValue *> byName = [] {
        QHash<QByteArrayView, const LayerValue *> index;
        for (const LayerValue &value : rows())
            index.insert(value.name, &value);
        return index;
    }();
    const LayerValue *found = byName.value(name);
    return found && isOf(found->kind, kind) ? found : nullptr;
}

std::vector<const char *> copiedAdditions(LayerKind kind)
{
    std::vector<const char *> names;
    for (const LayerValue &value : rows()) {
        if (value.addition && value.addition->isCopied && isOf(value.addition->kind, kind))
            names.push_back(value.name);
    }
    return names;
}

LayerRecordPointer asCopy(const LayerRecordPointer &record)
{
    LayerRecord copy = *record;
    for (const LayerValue &value : rows()) {
        if (value.addition && !value.addition->isCopied)
            value.assign(copy, {});
    }
    return copy == *record ? record : std::make_shared<LayerRecord>(std::move(copy));
}

} // namespace LayerValues
