#include "show/StateChange.h"

#include <iterator>
#include <unordered_set>
#include <utility>

namespace {
using States = std::vector<LayerState>;

DocumentState withoutLists(DocumentState state)
{
    state.layers = {};
    state.presets = {};
    return state;
}

/// The layers of a list, gathered when they are first asked for: most edits leave the list as it is.
class Members
{
public:
    explicit Members(const States &list) : m_list(list) {}

    bool contains(const LayerState &state)
    {
        if (m_layers.empty()) {
            for (const LayerState &member : m_list)
                m_layers.insert(member.layer.get());
        }
        return m_layers.contains(state.layer.get());
    }

private:
    const States &m_list;
    std::unordered_set<const Layer *> m_layers;
};

/// Walks through two lists at once, so that what is in both meets where it can.
class Walk
{
public:
    Walk(const States &before, const States &after)
        : m_was(before.begin()), m_wasEnd(before.end()), m_is(after.begin()), m_isEnd(after.end()),
          m_membersBefore(before), m_membersAfter(after)
    {}

    struct Rows
    {
        const LayerState *was; ///< null: the row was inserted
        const LayerState *is;  ///< null: it was removed
    };

    bool isDone() const { return m_was == m_wasEnd && m_is == m_isEnd; }
    Rows next()
    {
        const bool isRemoved = m_is == m_isEnd || (m_was != m_wasEnd && leaves());
        const bool isInserted = !isRemoved && (m_was == m_wasEnd || comes());
        return {isInserted ? nullptr : &*m_was++, isRemoved ? nullptr : &*m_is++};
    }

private:
    using Place = States::const_iterator;

    bool isSameLayer() const { return m_was->layer == m_is->layer; }
    static bool isNext(Place place, Place end, const LayerState &state)
    {
        return std::next(place) != end && std::next(place)->layer == state.layer;
    }
    /// Whether the row is gone, or comes later.
    bool leaves()
    {
        return !isSameLayer() && (!m_membersAfter.contains(*m_was) ||
                                  (m_membersBefore.contains(*m_is) && isNext(m_was, m_wasEnd, *m_is)));
    }
    /// Whether the row is new, or came later before.
    bool comes() { return !isSameLayer() && (!m_membersBefore.contains(*m_is) || isNext(m_is, m_isEnd, *m_was)); }

    Place m_was;
    Place m_wasEnd;
    Place m_is;
    Place m_isEnd;
    Members m_membersBefore;
    Members m_membersAfter;
};
} // namespace

StateChange::StateChange(const DocumentState &before, const DocumentState &after)
    : m_before(withoutLists(before)), m_after(withoutLists(after)),
      m_layers(runsBetween(before.layers.list(), after.layers.list())),
      m_presets(runsBetween(before.presets.list(), after.presets.list()))
{}

DocumentState StateChange::before(const DocumentState &after) const
{
    DocumentState state = m_before;
    state.layers = replaced(after.layers, m_layers, &Run::after, &Run::before);
    state.presets = replaced(after.presets, m_presets, &Run::after, &Run::before);
    return state;
}

DocumentState StateChange::after(const DocumentState &before) const
{
    DocumentState state = m_after;
    state.layers = replaced(before.layers, m_layers, &Run::before, &Run::after);
    state.presets = replaced(before.presets, m_presets, &Run::before, &Run::after);
    return state;
}

StateChange::Runs StateChange::runsBetween(const States &before, const States &after)
{
    Runs runs;
    Walk walk(before, after);
    std::size_t unchanged = 0;
    while (!walk.isDone()) {
        const auto [was, is] = walk.next();
        if (was && is && *was == *is) {
            ++unchanged;
            continue;
        }
        if (runs.empty() || unchanged > 0)
            runs.push_back({std::exchange(unchanged, 0), {}, {}});
        if (was)
            runs.back().before.push_back(*was);
        if (is)
            runs.back().after.push_back(*is);
    }
    return runs;
}

LayerStates StateChange::replaced(const LayerStates &list, const Runs &runs, States Run::*there, States Run::*here)
{
    if (runs.empty())
        return list;
    States result;
    result.reserve(list.size());
    auto row = list.begin();
    for (const Run &run : runs) {
        const auto end = row + static_cast<std::ptrdiff_t>(run.unchanged);
        result.insert(result.end(), row, end);
        result.insert(result.end(), (run.*here).begin(), (run.*here).end());
        row = end + std::ssize(run.*there);
    }
    result.insert(result.end(), row, list.end());
    return LayerStates(std::move(result));
}
