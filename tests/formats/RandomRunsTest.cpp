#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "screen/LWScreen.h"
#include "show/LayerArchive.h"
#include "tests/screen/TestHost.h"
#include "tests/wiring/Chance.h"

#include <gtest/gtest.h>

namespace {
#ifdef __SANITIZE_ADDRESS__
constexpr unsigned shows = 100;
#else
constexpr unsigned shows = 1000;
#endif
constexpr int wallsOfShow = 100;

CableRun randomRun(Chance &chance)
{
    CableRun run;
    run.port = {chance.oneOf<const char *>({"A", "B", "FOH \"1\"", "ä"}), chance.from(1, 9'999)};
    run.piece = chance.from(1, 40);
    for (int i = chance.from(1, 12); i > 0; --i)
        run.cells.push_back({chance.from(0, 60), chance.from(0, 34)});
    return run;
}

LayerPointer randomWall(Chance &chance, LayerHost &host)
{
    LayerPointer wall = LWScreen::init(host);
    WallRuns runs;
    for (int i = chance.from(0, 4); i > 0; --i)
        runs.push_back(randomRun(chance));
    wall->setValue("processor", "A");
    wall->setValue("split", chance.oneOf<const char *>({"lines", "panels", "hand"}));
    wall->setValue("firstPort", chance.from(0, 9'999));
    wall->setValue("runs", QVariant::fromValue(CableRuns(runs)));
    return wall;
}

void expectSameCables(const std::vector<LayerPointer> &walls, const std::vector<LayerPointer> &others, unsigned seed)
{
    ASSERT_EQ(others.size(), walls.size()) << "seed " << seed;
    for (std::size_t i = 0; i < walls.size(); ++i) {
        ASSERT_EQ(others[i]->record()->runs, walls[i]->record()->runs) << "seed " << seed << ", wall " << i;
        ASSERT_EQ(others[i]->record()->split, walls[i]->record()->split) << "seed " << seed << ", wall " << i;
    }
}
} // namespace

TEST(RandomRuns, SurviveBothFilesAndCopies)
{
    TestHost host;
    for (unsigned seed = 1; seed <= shows; ++seed) {
        Chance chance(seed);
        Project show{1080, 1920, {}};
        for (int wall = 0; wall < wallsOfShow; ++wall)
            show.layers.push_back(randomWall(chance, host));

        const Result<Project> opened = ProjectFile::decode(ProjectFile::encode(show).value(), host);
        ASSERT_TRUE(opened) << "seed " << seed;
        expectSameCables(show.layers, opened->layers, seed);
        const Result<Project> read = ProjectText::decode(ProjectText::encode(show), "/", host);
        ASSERT_TRUE(read) << "seed " << seed;
        expectSameCables(show.layers, read->layers, seed);
        expectSameCables(show.layers, LayerArchive::copies(show.layers, host).value(), seed);
    }
}
