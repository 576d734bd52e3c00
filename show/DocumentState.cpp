#include "show/DocumentState.h"

#include "still/LWStill.h"

#include <algorithm>
#include <unordered_map>

bool LayerState::operator==(const LayerState &other) const
{
    return layer == other.layer && (record == other.record || *record == *other.record);
}

LayerState LayerState::of(const LayerPointer &layer, const LayerState *before)
{
    const LayerState now{layer, layer->record()};
    return before && *before == now ? *before : now;
}

void LayerState::apply() const
{
    if (*this == LayerState{layer, layer->record()})
        return;
    const auto still = std::dynamic_pointer_cast<LWStill>(layer);
    const Address shownAddress = still ? still->ImageURL() : Address();
    layer->setRecord(record);
    if (!still) {
        layer->drawInRect();
        takeBackRendering();
    } else {
        if (still->ImageURL() != shownAddress)
            still->loadThumbnail();
        still->followChart();
    }
}

void LayerState::takeBackRendering() const
{
    if (*this != LayerState{layer, layer->record()})
        layer->setRecord(record);
}

namespace {
/// Finds the state of a layer in a list; at once where it has the same row.
class StatesByLayer
{
public:
    explicit StatesByLayer(const std::vector<LayerState> &states) : m_states(states) {}

    const LayerState *find(const LayerPointer &layer, std::size_t row)
    {
        if (row < m_states.size() && m_states[row].layer == layer)
            return &m_states[row];
        if (m_known.empty()) {
            for (const LayerState &state : m_states)
                m_known.emplace(state.layer.get(), &state);
        }
        const auto found = m_known.find(layer.get());
        return found == m_known.end() ? nullptr : found->second;
    }

private:
    const std::vector<LayerState> &m_states;
    std::unordered_map<const Layer *, const LayerState *> m_known;
};
} // namespace

LayerStates LayerStates::of(const std::vector<LayerPointer> &layers, const LayerStates &before)
{
    if (before.isNow(layers))
        return before;
    StatesByLayer known(before.list());
    std::vector<LayerState> states;
    states.reserve(layers.size());
    for (const LayerPointer &layer : layers)
        states.push_back(LayerState::of(layer, known.find(layer, states.size())));
    return LayerStates(std::move(states));
}

const std::vector<LayerState> &LayerStates::list() const
{
    static const std::vector<LayerState> none;
    return m_states ? *m_states : none;
}

bool LayerStates::isNow(const std::vector<LayerPointer> &layers) const
{
    return std::ranges::equal(list(), layers, [](const LayerState &state, const LayerPointer &layer) {
        return state.layer == layer && layer->hasRecord(state.record);
    });
}

bool LayerStates::hasLayersOf(const LayerStates &other) const
{
    return m_states == other.m_states ||
           std::ranges::equal(list(), other.list(), {}, &LayerState::layer, &LayerState::layer);
}
