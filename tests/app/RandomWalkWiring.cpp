#include "tests/app/RandomWalk.h"
#include "tests/wiring/Chance.h"

#include <gtest/gtest.h>

namespace {
/// More processors are only a longer walk.
constexpr std::size_t mostProcessors = 4;
} // namespace

Chance RandomWalk::chance()
{
    return Chance(static_cast<unsigned>(m_values.number(1, 1'000'000)));
}

PortName RandomWalk::randomPort()
{
    const std::vector<PortName> used = PortEdits::portsOf(CableHand::runsOf(wiring().cables()));
    if (!used.empty() && !m_values.oneIn(4))
        return m_values.oneOf(used);
    return {m_values.oneOf<QString>({"A", "B", "C", "GONE"}), m_values.number(0, 12)};
}

void RandomWalk::addOrRemoveProcessor()
{
    if (wiring().processors().size() >= mostProcessors || m_values.oneIn(2))
        return wiring().remove(static_cast<std::size_t>(m_values.number(0, mostProcessors)));
    Chance chance = this->chance();
    const bool isAdded = wiring().add(ShowFixture::randomProcessor(chance, {})).has_value();
    EXPECT_TRUE(isAdded);
}

void RandomWalk::changeProcessor()
{
    Chance chance = this->chance();
    const auto place = static_cast<std::size_t>(m_values.number(0, mostProcessors));
    const QString name = m_values.oneOf<QString>({"A", "B", "C", "Stage \"left\"", ""});
    const int index = stack().index();
    const QByteArray before = archive();
    const bool isChanged = wiring().change(place, ShowFixture::randomProcessor(chance, name)).has_value();
    if (!isChanged) {
        EXPECT_EQ(stack().index(), index);
        expectSame(archive(), before);
    }
}

void RandomWalk::editWiring()
{
    const auto [name, value] = m_values.oneOf<std::pair<QString, QVariant>>({
        {"processor", m_values.oneOf<QString>({"A", "B", "C", "GONE", ""})},
        {"split", m_values.oneOf<QString>({"lines", "panels", "hand"})},
        {"goesOn", m_values.oneIn(2)},
        {"firstPort", m_values.number(0, 9)},
        {"limitFromProcessor", m_values.oneIn(2)},
        {"portColours", m_values.oneIn(2)},
        {"portNames", m_values.oneIn(2)},
        {"panelPlaces", m_values.oneIn(2)},
    });
    m_document->setValue(value, LayerList::keyPathPrefix + name);
}

void RandomWalk::layCable()
{
    const LayerPointer wall = selected();
    if (!wall || wall->kind() != LayerKind::Wall)
        return;
    const auto randomPanel = [&] {
        const int column = m_values.number(0, 9);
        return CableHand::Panel{m_values.oneIn(4) ? m_values.oneOf(layers().layers()) : wall,
                                Cell{column, m_values.number(0, 9)}};
    };
    const CableHand::Keys keys{m_values.oneIn(2), m_values.oneIn(2)};
    CableHand hand;
    const Result<bool> isHeld = hand.take(wiring().cables(), {wall, randomPanel().cell}, keys);
    if (!isHeld || !*isHeld)
        return;
    for (int moves = m_values.number(0, 5); moves > 0; --moves)
        hand.goTo(randomPanel(), keys);
    if (m_values.oneIn(4))
        hand.cancel();
    else if (hand.finish())
        m_document->finishEdit("cable");
}

void RandomWalk::editCables()
{
    const PortName port = randomPort();
    const PortName other = randomPort();
    const int number = m_values.number(0, 12);
    const int kind = m_values.number(0, 7);
    const Result<void> edited = wiring().editCables("cables", [&](const auto &runs) -> Result<PortEdits::ShowRuns> {
        switch (kind) {
        case 0:
            return PortEdits::reverse(runs, port);
        case 1:
            return PortEdits::joinWithNext(runs, port);
        case 2:
            return PortEdits::takePort(runs, port, other);
        case 3:
            return PortEdits::exchange(runs, port, other);
        case 4:
            return PortEdits::renumberFrom(runs, port, number);
        case 5:
            return PortEdits::moveToProcessor(runs, {port}, other.processor);
        case 6:
            return PortEdits::splitHere(runs, {0, {0, number}}, other);
        default:
            return PortEdits::clear(runs, port);
        }
    });
    EXPECT_TRUE(edited || !edited.error().text.isEmpty());
}

void RandomWalk::takeAutomaticCables()
{
    const Result<void> taken = wiring().takeAsLaidByHand(randomRows(layers()));
    EXPECT_TRUE(taken || !taken.error().text.isEmpty());
}

void RandomWalk::keepPorts()
{
    const Result<void> kept = wiring().keepPorts(randomRows(layers()));
    EXPECT_TRUE(kept || !kept.error().text.isEmpty());
}

void RandomWalk::feedPanels()
{
    const Result<void> fed = wiring().feed(m_values.number(-1, layers().rowCount()));
    EXPECT_TRUE(fed || !fed.error().text.isEmpty());
}
