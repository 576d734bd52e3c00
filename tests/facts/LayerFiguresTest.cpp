#include "facts/LayerFigures.h"

#include "facts/ProjectFacts.h"
#include "still/LWStill.h"
#include "tests/facts/WallFixture.h"

namespace {
class LayerFiguresTest : public WallFixture
{};
} // namespace

TEST_F(LayerFiguresTest, SumsWallsAndCountsPictures)
{
    const auto first = wall({7, 5, 128, 128}); // 2 rows of 114,688 on a port
    first->setPixelLimit(300'000);
    first->setHiddenBoxes(QStringList{"0,0", "0,0"});
    const auto second = wall({3, 2, 10, 10});
    second->setPixelLimit(299);
    const LayerFigures figures = LayerFigures::of({first, LWStill::initWithimage(host, {}), second});
    EXPECT_EQ(figures.walls, 2);
    EXPECT_EQ(figures.pictures, 1);
    EXPECT_EQ(figures.panels, 41);
    EXPECT_EQ(figures.panelsOff, 1);
    EXPECT_EQ(figures.pixels, 574'040);
    EXPECT_EQ(figures.ports, 4);
    EXPECT_EQ(figures.portsOverLimit, 1);
}

TEST_F(LayerFiguresTest, SumsStayAtTheLargestNumberThereIs)
{
    const auto vast = wall({most, most, most, most});
    const LayerFigures figures = LayerFigures::of({vast, vast, vast});
    EXPECT_EQ(figures.panels, std::numeric_limits<qint64>::max());
    EXPECT_EQ(figures.pixels, std::numeric_limits<qint64>::max());
}

TEST_F(LayerFiguresTest, AShowCountsWithTheGivenSupplyItsOwnOrTheUsualOne)
{
    const auto layer = wall({4, 3, 10, 10});
    layer->setPowerOnCell(100);
    const Project plain{30, 40, {layer}};
    EXPECT_EQ(ProjectFacts::of(plain, 0, 0).volts, 110);
    EXPECT_FLOAT_EQ(ProjectFacts::of(plain, 0, 0).amperes, 1'200.0F / 110);
    const Project kept{30, 40, {layer}, Supply{230, 3}};
    EXPECT_FLOAT_EQ(ProjectFacts::of(kept, 0, 0).amperes, 1'200.0F / 690);
    EXPECT_FLOAT_EQ(ProjectFacts::of(kept, 208, 0).amperes, 1'200.0F / 624);
    EXPECT_FLOAT_EQ(ProjectFacts::of(kept, 208, 0).layers[0].wall->amperes, 1'200.0F / 624);
}
