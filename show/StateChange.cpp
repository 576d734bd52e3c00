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
} // namespace

StateChange::StateChange(const DocumentState &before, const DocumentState &after)
    : m_before(withoutLists(before)), m_after(withoutLists(after)), m_layers(runsBetween(before.layers, after.layers)),
      m_presets(runsBetween(before.presets, after.presets))
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
    Members membersBefore(before);
    Members membersAfter(after);
    std::size_t unchanged = 0;
    const auto change = [&](const LayerState *was, const LayerState *is) {
        if (runs.empty() || unchanged > 0)
            runs.push_back({std::exchange(unchanged, 0), {}, {}});
        if (was)
            runs.back().before.push_back(*was);
        if (is)
            runs.back().after.push_back(*is);
    };
    auto was = before.begin();
    auto is = after.begin();
    while (was != before.end() || is != after.end()) {
        const bool isBeforeLeft = was != before.end();
        const bool isAfterLeft = is != after.end();
        if (isBeforeLeft && isAfterLeft && *was == *is) {
            ++unchanged;
            ++was, ++is;
        } else if (isBeforeLeft && isAfterLeft && was->layer == is->layer) {
            change(&*was++, &*is++);
        } else if (!isAfterLeft || (isBeforeLeft && !membersAfter.contains(*was))) {
            change(&*was++, nullptr);
        } else if (!isBeforeLeft || !membersBefore.contains(*is)) {
            change(nullptr, &*is++);
        } else if (std::next(was) != before.end() && std::next(was)->layer == is->layer) {
            change(&*was++, nullptr); // it comes later
        } else if (std::next(is) != after.end() && std::next(is)->layer == was->layer) {
            change(nullptr, &*is++); // it came earlier
        } else {
            change(&*was++, &*is++);
        }
    }
    return runs;
}

StateChange::States StateChange::replaced(const States &list, const Runs &runs, States Run::*there, States Run::*here)
{
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
    return result;
}
