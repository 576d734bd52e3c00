#include "facts/PlaceChecks.h"

#include "facts/ShowChecks.h"
#include "facts/WallOverlaps.h"
#include "tests/facts/WallFixture.h"

#include <QElapsedTimer>

namespace {
constexpr QSize raster(1920, 1080);

class PlaceChecksTest : public WallFixture
{
protected:
    /// Panels of 100 x 100 at a place.
    LayerPointer add(const QString &name, int left, int top, int columns, int rows)
    {
        const auto made = wall({columns, rows, 100, 100});
        made->setLabel(name);
        made->setXpoint(left);
        made->setYpoint(top);
        made->setPowerOnCell(0);
        made->setVisible(true);
        made->drawInRect();
        layers.push_back(made);
        return made;
    }
    /// "0 walls-overlap: The sentence.", each.
    QStringList found() const
    {
        QStringList lines;
        for (const Finding &finding : PlaceChecks::of(layers, raster))
            lines.append(QString("%1 %2: %3").arg(*finding.layer).arg(finding.check, finding.sentence));
        return lines;
    }

    std::vector<LayerPointer> layers;
};
} // namespace

TEST_F(PlaceChecksTest, WallsSideBySideAreWhereTheyShallBe)
{
    add("MAIN", 0, 0, 3, 3);
    add("SIDE", 300, 0, 3, 3);
    add("LOW", 0, 300, 19, 7);
    EXPECT_EQ(found(), QStringList());
}

TEST_F(PlaceChecksTest, AWallOverOthersNamesTheFirstAndCountsTheRest)
{
    add("MAIN", 250, 250, 3, 3);
    add("LOW", 0, 500, 19, 2);
    add("SIDE", 0, 0, 3, 3);
    EXPECT_EQ(found(), QStringList{"0 walls-overlap: It lies over LOW in 300 × 50 px, and over 1 more wall; move one "
                                   "of them."});
    EXPECT_EQ(PlaceChecks::of(layers, raster)[0].box, (PixelBox{{250, 550}, {500, 550}}));
}

TEST_F(PlaceChecksTest, AWallInTheHoleOfAnotherIsInNobodysWay)
{
    const auto hole = std::static_pointer_cast<LWScreen>(add("MAIN", 0, 0, 5, 3));
    hole->setHiddenBoxes(QStringList{"1,1", "1,2"});
    const LayerPointer inside = add("INSIDE", 100, 100, 2, 1);
    EXPECT_EQ(found(), QStringList());
    inside->setXpoint(101);
    EXPECT_EQ(found(), QStringList{"0 walls-overlap: It lies over INSIDE in 200 × 100 px; move one of them."});
}

/// A hole as large as a hundred million panels is no reason to ask each of them.
TEST_F(PlaceChecksTest, AHugeWallInAHoleIsFoundAtOnce)
{
    const auto fine = [&](int left) {
        const auto made = wall({9'000, 9'000, 1, 1});
        made->setXpoint(left);
        made->setScreenSizeWidth(9'000);
        made->setScreenSizeHeight(9'000);
        made->setVisible(true);
        layers.push_back(made);
    };
    const auto hole = std::static_pointer_cast<LWScreen>(wall({2, 1, 9'500, 16'000}));
    hole->setScreenSizeWidth(19'000);
    hole->setScreenSizeHeight(16'000);
    hole->setHiddenBoxes(QStringList{"0,0"});
    hole->setVisible(true);
    layers.push_back(hole);
    fine(0);
    fine(500);
    fine(501);
    QElapsedTimer timer;
    timer.start();
    const std::vector<WallOverlap> overlaps = WallOverlaps::of({layers[0], layers[1]}, {20'000, 20'000}).overlaps;
    const std::vector<WallOverlap> beside = WallOverlaps::of({layers[0], layers[2]}, {20'000, 20'000}).overlaps;
    const std::vector<WallOverlap> over = WallOverlaps::of({layers[0], layers[3]}, {20'000, 20'000}).overlaps;
    EXPECT_LT(timer.elapsed(), 500);
    EXPECT_EQ(overlaps.size() + beside.size(), 0U);
    EXPECT_EQ(over.size(), 1U);
}

TEST_F(PlaceChecksTest, BackgroundsAndHiddenWallsAreInNobodysWay)
{
    add("MAIN", 100, 100, 3, 3);
    add("SIDE", 200, 200, 3, 3)->setVisible(false);
    const auto background = wall({16, 9, 120, 120});
    background->setLabel("BACK");
    background->setPowerOnCell(0);
    background->drawInRect();
    layers.push_back(background);
    EXPECT_EQ(found(), QStringList());
}

TEST_F(PlaceChecksTest, AWallBeyondTheOutputSaysHowFar)
{
    add("LEFT", -30, 0, 3, 3);
    add("RIGHT", 1700, 300, 3, 3);
    add("LARGE", 400, 400, 1, 11);
    add("GONE", 1920, 0, 3, 3); // wholly, which another check tells
    EXPECT_EQ(found(),
              (QStringList{"0 wall-partly-outside: It goes 30 px beyond the left edge of the output of 1,920 × 1,080 "
                           "px; change its left and top.",
                           "1 wall-partly-outside: It goes 80 px beyond the right edge of the output of 1,920 × 1,080 "
                           "px; change its left and top.",
                           "2 wall-larger-than-output: It has 100 × 1,100 px, more than the output of 1,920 × 1,080 "
                           "px; make the output larger or the wall smaller."}));
}

TEST_F(PlaceChecksTest, OfALongNameTheFirst1024LettersAreTold)
{
    const QString told(1024, 'n');
    add(told + "MORE", 0, 0, 3, 3);
    add(told + "MORE", 300, 0, 3, 3);
    EXPECT_EQ(found(), QStringList{"1 wall-name-twice: Another wall is called " + told +
                                   ", too; give one of them another name."});
}

TEST_F(PlaceChecksTest, ANameIsOfOneWall)
{
    add("MAIN", 0, 0, 3, 3);
    add("", 300, 0, 3, 3);
    add("", 600, 0, 3, 3);
    add("MAIN", 900, 0, 3, 3)->setVisible(false);
    EXPECT_EQ(found(),
              QStringList{"3 wall-name-twice: Another wall is called MAIN, too; give one of them another name."});
}

TEST_F(PlaceChecksTest, WattsAreMissedOnceAWallHasSome)
{
    add("MAIN", 0, 0, 3, 3)->setPowerOnCell(200);
    add("SIDE", 300, 0, 3, 3);
    EXPECT_EQ(found(), QStringList{"1 wall-without-watts: Its panels have no watts, and those of other walls have; "
                                   "type the watts per panel."});
    EXPECT_EQ(PlaceChecks::of(layers, raster)[0].level, Finding::Level::Note);
}

TEST_F(PlaceChecksTest, WhatSomebodyMeansIsListedAndCountsAsNothing)
{
    const LayerPointer main = add("MAIN", 0, 0, 3, 3);
    add("SIDE", 200, 0, 3, 3);
    const auto level = [&] { return ShowChecks::of({1080, 1920, layers}).at(0).level; };
    EXPECT_EQ(level(), Finding::Level::Warning);
    EXPECT_TRUE(main->setValue("meant", QVariant::fromValue(std::optional(QStringList{"walls-overlap"}))));
    EXPECT_EQ(level(), Finding::Level::Meant);
    EXPECT_STREQ(ShowChecks::of({1080, 1920, layers}).at(0).check, "walls-overlap");
    main->setValue("meant", QVariant::fromValue(std::optional(QStringList{"walls"})));
    EXPECT_EQ(level(), Finding::Level::Warning);
}

TEST_F(PlaceChecksTest, FiveThousandWallsAreHeldAgainstEachOtherAtOnce)
{
    for (int i = 0; i < 5'000; ++i) {
        const auto made = wall({1, 1, 4, 4});
        made->setXpoint(i % 400 * 4);
        made->setYpoint(i / 400 * 4);
        made->setScreenSizeWidth(4);
        made->setScreenSizeHeight(4);
        made->setVisible(true);
        layers.push_back(made);
    }
    layers[4'999]->setYpoint(0);
    QElapsedTimer timer;
    timer.start();
    const auto [overlaps, isWhole] = WallOverlaps::of(layers, raster);
    EXPECT_LT(timer.elapsed(), 500);
    EXPECT_TRUE(isWhole);
    ASSERT_EQ(overlaps.size(), 1U);
    EXPECT_EQ(overlaps[0].upper, 199);
    EXPECT_EQ(overlaps[0].lower, 4'999);
}

TEST_F(PlaceChecksTest, StackedWallsAreHeldAgainstEachOtherUpToAPointThatIsTold)
{
    // 2,000 walls lie over one another 1,999,000 times, 3,000 of them 4,498,500 times.
    const auto one = add("ONE", 0, 0, 1, 1);
    layers.assign(2'000, one);
    const auto [overlaps, isWhole] = WallOverlaps::of(layers, raster);
    EXPECT_TRUE(isWhole);
    ASSERT_EQ(overlaps.size(), 1'999U);
    EXPECT_EQ(overlaps[0].more, 1'998);

    layers.assign(3'000, one);
    EXPECT_FALSE(WallOverlaps::of(layers, raster).isWhole);
    const std::vector<Finding> findings = PlaceChecks::of(layers, raster);
    const auto untold = std::ranges::find_if(
        findings, [](const Finding &finding) { return !finding.layer && finding.check == QString("walls-overlap"); });
    ASSERT_NE(untold, findings.end());
    EXPECT_EQ(untold->sentence, "Too many walls lie beside and over one another to find all of those; move the walls "
                                "that are told, and more will be.");
}

TEST_F(PlaceChecksTest, PanelsThatAreOffCountAmongWhatIsHeldAgainstEachOther)
{
    const auto holed = std::static_pointer_cast<LWScreen>(add("HOLED", 0, 0, 80, 80));
    QStringList off;
    for (int column = 0; column < 50; ++column) {
        for (int row = 0; row < 80; ++row)
            off.append(QString("%1,%2").arg(column).arg(row));
    }
    holed->setHiddenBoxes(off);
    layers.assign(40, holed); // 780 pairs of 8,000 panels that are off
    EXPECT_TRUE(WallOverlaps::of(layers, {20'000, 20'000}).isWhole);
    layers.assign(60, holed); // 1,770 pairs
    EXPECT_FALSE(WallOverlaps::of(layers, {20'000, 20'000}).isWhole);
}
