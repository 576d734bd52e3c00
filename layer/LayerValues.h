#pragma once

#include "layer/LayerRecord.h"

#include <QByteArrayView>
#include <QLatin1StringView>
#include <QMetaType>
#include <QVariant>

#include <optional>
#include <span>
#include <vector>

/// The form in which an archive holds a value.
enum class StoredAs
{
    Integer32, ///< flags as 0 or 1, 64-bit integers by their low 32 bits, reals truncated toward zero
    Boolean,
    Colour,
    Text,
    Words, ///< texts without blanks, as one text with blanks between
    Runs,  ///< a list of objects of the class LWCableRun
    TextList,
    Address,
};

/// The kinds of layer, and which of them a value belongs to.
enum class LayerKind
{
    Wall = 1,
    Still = 2,
    Any = Wall | Still,
};

/// Whether `kinds` holds that one.
constexpr bool isOf(LayerKind kinds, LayerKind one)
{
    return (static_cast<int>(kinds) & static_cast<int>(one)) != 0;
}

/// What a number field takes, and the unit behind it.
struct NumberRange
{
    int lowest;
    int highest;
    const char *unit = "";
};

/// How a value came after the first version: files hold it only where it is not 0, false or nil, so that a file which
/// uses none is the file of that version.
struct Addition
{
    const char *key; ///< in archives; in texts it goes by the property's name
    StoredAs form;
    LayerKind kind; ///< of layers whose files hold it
    bool isCopied;  ///< copies of them take it over
};

/// One value of a layer, for all that treats every value alike.
struct LayerValue
{
    /// Who gives it.
    enum class Writer
    {
        Person,
        Rendering,  ///< drawInRect(), always or where nothing was given
        Inspection, ///< each composition, for the layer before the inspector
    };

    const char *name; ///< of the property
    QMetaType type;
    QVariant (*get)(const LayerRecord &record);
    void (*set)(LayerRecord &record, const QVariant &value); ///< of a value of `type`
    bool (*isGiven)(const LayerRecord &record);              ///< the record has another one than 0, false or nil
    /// As people call it after "Undo", "panel width", and capitalised before a control; empty: nobody edits it.
    QLatin1StringView words;
    LayerKind kind = LayerKind::Any;
    std::optional<NumberRange> range = {};
    bool isWatched = false; ///< an edit of it is rendered and composed
    Writer writer = Writer::Person;
    std::optional<Addition> addition = {};
    QStringList choices = {}; ///< the only texts that are taken, the first by itself; none: any

    /// Gives the record the value, as the value's own type. Returns false, and changes nothing, where it is none, or
    /// none of the choices; an invalid one is 0, false, nil or the first choice.
    bool assign(LayerRecord &record, QVariant value) const;
    /// "Panel width"
    QString caption() const;
};

namespace LayerValues {

/// All values, in the order of the record.
std::span<const LayerValue> all();
/// The value that layers of a kind have under a name; null where there is none.
const LayerValue *find(QByteArrayView name, LayerKind kind = LayerKind::Any);

/// The names of the additions that copies of a kind take over.
std::vector<const char *> copiedAdditions(LayerKind kind);

/// The record without the additions that no copy takes over.
LayerRecordPointer asCopy(const LayerRecordPointer &record);

} // namespace LayerValues
