#pragma once

#include "tests/wiring/ShowFixture.h"

#include <initializer_list>
#include <random>

/// What a test leaves to chance: the same for the same seed.
class Chance
{
public:
    explicit Chance(unsigned seed) : m_engine(seed) {}

    int from(int least, int most)
    {
        return least + static_cast<int>(m_engine() % static_cast<unsigned>(most - least + 1));
    }
    bool once(int in) { return from(1, in) == 1; }
    template <typename T>
    T oneOf(std::initializer_list<T> values)
    {
        return *(values.begin() + from(0, static_cast<int>(values.size()) - 1));
    }

private:
    std::minstd_rand m_engine;
};

namespace ShowFixture {

inline ProcessorSettings randomProcessor(Chance &chance, const QString &name)
{
    ProcessorSettings settings =
        processor(chance.oneOf({"MX40 Pro", "VX1000", "Tessera S8", "HELIOS 8K", "MX30", "S20", "X8m", "CX40 Pro"}), 8,
                  chance.oneOf({24.0, 50.0, 59.94, 60.0, 100.0, 120.0}), name);
    if (settings.model == "HELIOS 8K")
        settings.bits = 12;
    settings.lowLatency = chance.once(4);
    settings.headroom = chance.once(3) ? chance.from(0, 40) : 0;
    settings.capacity = chance.once(3) ? chance.from(1, 60'000) : 0;
    settings.streams = chance.once(5) ? 2 : 1;
    settings.rectangleWhereUnsaid = chance.once(2);
    settings.backup = chance.once(4) ? ProcessorSettings::Backup::Loop : ProcessorSettings::Backup::None;
    return settings;
}

inline WallToWire randomWall(Chance &chance)
{
    const int columns = chance.from(1, 9);
    const int rows = chance.from(1, 9);
    WallToWire random = wall(columns, rows, chance.from(1, 160), chance.from(1, 160));
    random.pattern = chance.from(0, 7);
    random.shape.left = chance.from(-50, 900);
    random.shape.top = chance.from(-50, 900);
    std::vector<Cell> off;
    for (int count = chance.once(2) ? chance.from(0, 12) : 0; count > 0; --count) {
        const int column = chance.from(0, columns - 1);
        off.push_back({column, chance.from(0, rows - 1)});
    }
    random.shape.off = CellSet(off);
    return random;
}

} // namespace ShowFixture
