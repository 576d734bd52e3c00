#include "facts/Load.h"

#include "tests/facts/WallFixture.h"

namespace {
class LoadTest : public WallFixture
{
protected:
    LayerPointer load(int columns, int rows, int watts)
    {
        const auto made = wall({columns, rows, 10, 10});
        made->setPowerOnCell(watts);
        return made;
    }
};
} // namespace

TEST_F(LoadTest, SumsTheWattsOfAllLayers)
{
    const Load sum = Load::of({load(4, 3, 100), load(2, 1, 50)});
    EXPECT_EQ(sum.watts, 1'300);
    EXPECT_TRUE(sum.isCounted);
    EXPECT_FLOAT_EQ(sum.amperes(208, 3), 1'300.0F / 624.0F);
    EXPECT_EQ(sum.amperes(0, 1), 0.0F);
    EXPECT_EQ(Load::of(*load(4, 3, 100)).watts, 1'200);
}

TEST_F(LoadTest, SaysWhereThirtyTwoBitsCannotCountTheWatts)
{
    EXPECT_TRUE(Load::of(*load(1, 1, most)).isCounted);
    EXPECT_FALSE(Load::of({load(1, 1, most), load(1, 1, 1)}).isCounted);
    const Load wrapped = Load::of(*load(65'536, 65'536, 1));
    EXPECT_EQ(wrapped.watts, 0);
    EXPECT_FALSE(wrapped.isCounted);
    EXPECT_FALSE(Load::of(*load(most, most, most)).isCounted);
}
