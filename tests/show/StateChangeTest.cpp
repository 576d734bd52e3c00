#include "show/StateChange.h"

#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {
/// States of a document with walls.
class StateChanges : public ::testing::Test
{
protected:
    LayerState wall() { return LayerState::of(std::make_shared<LWScreen>(host), nullptr); }
    /// The same layer with another width.
    static LayerState wider(const LayerState &state)
    {
        state.layer->setPanelWidth(state.layer->panelWidth() + 1);
        return LayerState::of(state.layer, nullptr);
    }
    DocumentState walls(int count)
    {
        std::vector<LayerState> states;
        for (int i = 0; i < count; ++i)
            states.push_back(wall());
        DocumentState state;
        state.layers = LayerStates(std::move(states));
        return state;
    }
    static void expectBothWays(const DocumentState &before, const DocumentState &after)
    {
        const StateChange change(before, after);
        EXPECT_TRUE(change.before(after).looksLike(before));
        EXPECT_TRUE(change.after(before).looksLike(after));
    }
    /// Some rows leave, some come, some change places, some their values.
    LayerStates shuffled(const LayerStates &states)
    {
        std::vector<LayerState> list = states.list();
        const auto row = [&] { return list.begin() + static_cast<std::ptrdiff_t>(random() % list.size()); };
        for (auto edits = random() % 6; edits > 0; --edits) {
            const unsigned kind = list.empty() ? 1 : static_cast<unsigned>(random() % 4);
            if (kind == 0)
                list.erase(row());
            else if (kind == 1)
                list.insert(list.empty() ? list.begin() : row(), wall());
            else if (kind == 2)
                std::iter_swap(row(), row());
            else if (const auto changed = row(); true)
                *changed = wider(*changed);
        }
        return LayerStates(std::move(list));
    }

    TestHost host;
    std::mt19937 random{7};
};
} // namespace

TEST_F(StateChanges, LeadFromEachStateToTheOther)
{
    for (int round = 0; round < 2'000; ++round) {
        DocumentState before = walls(static_cast<int>(random() % 8));
        DocumentState after = before;
        after.volts = 230;
        after.selection = {1};
        after.output = QSize(17, 4);
        after.layers = shuffled(after.layers);
        after.presets = shuffled(after.presets);
        expectBothWays(before, after);
    }
}

TEST_F(StateChanges, KeepOnlyTheRecordsOfWhatDiffers)
{
    DocumentState before = walls(3);
    DocumentState after = before;
    std::vector<LayerState> layers = before.layers.list();
    layers[1] = wider(layers[1]);
    after.layers = LayerStates(std::move(layers));
    const auto unchanged = before.layers[2].record;
    const long held = unchanged.use_count();
    const StateChange change(before, after);
    EXPECT_EQ(unchanged.use_count(), held);
    EXPECT_EQ(before.layers[1].record.use_count(), 2); // in `before` and in the change
}

TEST_F(StateChanges, ARowThatMovesKeepsNoOther)
{
    const DocumentState before = walls(50);
    DocumentState after = before;
    std::vector<LayerState> layers = before.layers.list();
    std::rotate(layers.begin(), layers.begin() + 1, layers.end());
    after.layers = LayerStates(std::move(layers));
    const long held = before.layers[20].record.use_count();
    const StateChange change(before, after);
    EXPECT_EQ(before.layers[20].record.use_count(), held);
    EXPECT_TRUE(change.before(after).looksLike(before));
    EXPECT_TRUE(change.after(before).looksLike(after));
    const StateChange back(after, before);
    EXPECT_EQ(before.layers[20].record.use_count(), held);
    EXPECT_TRUE(back.after(after).looksLike(before));
}

TEST_F(StateChanges, ARecordIsSharedWhereNothingHasChanged)
{
    const LayerState state = wall();
    EXPECT_EQ(LayerState::of(state.layer, &state).record, state.record);
    const LayerRecordPointer first = state.record;
    state.layer->setPanelWidth(state.layer->panelWidth());
    EXPECT_EQ(state.layer->record(), first);

    state.layer->setPanelWidth(5);
    EXPECT_NE(state.layer->record(), first);
    EXPECT_EQ(first->panelWidth, 0);
    state.layer->setPanelWidth(0);
    EXPECT_EQ(LayerState::of(state.layer, &state).record, first); // the same as before
}

TEST_F(StateChanges, NoNameIsNotTheEmptyName)
{
    const LayerState none = wall();
    none.layer->setLabel("");
    EXPECT_FALSE(LayerState::of(none.layer, &none) == none);
    EXPECT_FALSE(none.layer->label().isNull());
    none.layer->setLabel(QString());
    EXPECT_TRUE(none.layer->label().isNull());
    EXPECT_TRUE(LayerState::of(none.layer, &none) == none);
}

TEST_F(StateChanges, AListIsSharedWhereNothingHasChanged)
{
    const DocumentState before = walls(3);
    std::vector<LayerPointer> layers;
    for (const LayerState &state : before.layers)
        layers.push_back(state.layer);
    EXPECT_EQ(&LayerStates::of(layers, before.layers).list(), &before.layers.list());

    layers[1]->setPanelWidth(5);
    const LayerStates now = LayerStates::of(layers, before.layers);
    EXPECT_NE(&now.list(), &before.layers.list());
    EXPECT_FALSE(now == before.layers);
    EXPECT_EQ(now[2].record, before.layers[2].record);
    EXPECT_TRUE(now.hasLayersOf(before.layers));

    layers.pop_back();
    EXPECT_FALSE(LayerStates::of(layers, before.layers).hasLayersOf(before.layers));
}

TEST_F(StateChanges, OneOfAnotherValueSharesTheList)
{
    const DocumentState before = walls(3);
    DocumentState after = before;
    after.output = QSize(7, 5);
    const StateChange change(before, after);
    EXPECT_EQ(&change.before(after).layers.list(), &after.layers.list());
}
