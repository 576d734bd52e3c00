#include "show/EditNames.h"

#include "layer/LayerValues.h"
#include "show/LayerList.h"

#include <algorithm>
#include <array>

namespace {
struct NamedValue
{
    QLatin1StringView value;
    QLatin1StringView name;
};

/// Values of the show, and what is edited of layers under another name than theirs.
constexpr std::array names{
    NamedValue{QLatin1StringView("OutputWidth"), QLatin1StringView("output width")},
    NamedValue{QLatin1StringView("OutputHeight"), QLatin1StringView("output height")},
    NamedValue{QLatin1StringView("voltageCalc"), QLatin1StringView("voltage")},
    NamedValue{QLatin1StringView("phaseCalc"), QLatin1StringView("phases")},
    NamedValue{QLatin1StringView("updatePattern"), QLatin1StringView("pattern of the path")},
};
} // namespace

QString EditNames::ofKeyPath(const QString &keyPath)
{
    const QByteArray ofLayer = LayerList::nameIn(keyPath);
    const LayerValue *const row = LayerValues::find(ofLayer);
    if (row && !row->words.isEmpty())
        return row->words;
    const QString value = ofLayer.isEmpty() ? keyPath : QString(ofLayer);
    const auto *const named =
        std::find_if(names.begin(), names.end(), [&](const NamedValue &known) { return known.value == value; });
    return named == names.end() ? value : QString(named->name);
}
