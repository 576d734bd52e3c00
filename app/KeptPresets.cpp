#include "app/KeptPresets.h"

#include "formats/BuiltInPresets.h"

#include <algorithm>
#include <utility>

KeptPresets::Beginning KeptPresets::ofLastTime(LayerHost &host)
{
    Result<std::optional<std::vector<LayerPointer>>> kept = m_store.load(host);
    if (kept && *kept)
        return {std::move(**kept), {}};
    std::vector<LayerPointer> builtIn = BuiltInPresets::make(host);
    m_store.know(builtIn); // another program that begins with them writes no presets of its own
    return {std::move(builtIn), kept ? std::nullopt : std::optional(kept.error())};
}

Result<void> KeptPresets::keep(const LayerStates &presets, LayerHost &host)
{
    std::vector<LayerPointer> layers;
    for (const LayerState &preset : presets)
        layers.push_back(preset.layer);
    const Result<void> kept = presets == m_kept ? Result<void>() : m_store.save(layers, host);
    if (kept) {
        m_kept = presets;
        m_unkept.reset();
        return {};
    }
    const Unkept unkept{presets, "The presets are not kept for the next start: " + kept.error().text};
    if (std::exchange(m_unkept, unkept) == unkept)
        return {};
    return fail(unkept.sentence);
}

Result<void> KeptPresets::keepEdited(const LayerStates &presets, LayerHost &host)
{
    const bool hasFailed = m_unkept && m_unkept->presets == presets;
    return hasFailed ? Result<void>() : keep(presets, host);
}
