#include "formats/ProjectFile.h"
#include "tests/app/UndoFixture.h"

namespace {
/// The supply that the current is worked out for. The wall of the start draws 40 x 200 W.
class SupplyOfShow : public UndoFixture
{
protected:
    QString saved(const QString &name)
    {
        person.savePanelAnswer = folder.filePath(name);
        document.saveProject();
        return document.projectPath();
    }
    std::optional<Supply> supplyInFile(const QString &path) { return ProjectFile::read(path, document)->supply; }
    std::pair<qint64, qint64> counted() const { return {document.voltageCalc(), document.phaseCalc()}; }
    using Pair = std::pair<qint64, qint64>;
};
} // namespace

TEST_F(SupplyOfShow, ChoosingIsOneStepEach)
{
    expectUndone("voltage", [&] { document.voltageSelect(208); });
    expectUndone("phases", [&] { document.phaseSelect(3); });
    stack.redo();

    EXPECT_EQ(document.powerResult(), "Total Power: 24.24Amp"); // at 110 V, 3 phases
    document.voltageSelect(208);
    const int steps = stack.index();
    document.voltageSelect(208);
    EXPECT_EQ(stack.index(), steps);
    EXPECT_EQ(document.powerResult(), "Total Power: 12.82Amp");
    stack.undo();
    EXPECT_EQ(document.powerResult(), "Total Power: 24.24Amp");
}

TEST_F(SupplyOfShow, GoesWithTheShowOnlyWhereItWasChosen)
{
    EXPECT_EQ(supplyInFile(saved("plain")), std::nullopt);

    document.voltageSelect(208);
    document.phaseSelect(3);
    EXPECT_EQ(supplyInFile(saved("chosen")), (Supply{208, 3}));
}

TEST_F(SupplyOfShow, AShowWithAChoiceWinsOverTheOneRemembered)
{
    const QString plain = saved("plain");
    document.voltageSelect(208);
    document.phaseSelect(3);
    const QString chosen = saved("chosen");
    EXPECT_EQ(person.supply, (Supply{208, 3}));

    person.supply = Supply{230, 1};
    document.openProjectPre(chosen);
    EXPECT_EQ(counted(), Pair(208, 3));
    EXPECT_EQ(person.supply, (Supply{230, 1})); // opening chooses nothing
    document.openProjectPre(plain);
    EXPECT_EQ(counted(), Pair(230, 1));
    EXPECT_EQ(document.project().supply, std::nullopt);
    stack.undo();
    EXPECT_EQ(counted(), Pair(208, 3));
    EXPECT_EQ(document.project().supply, (Supply{208, 3}));
}

TEST_F(SupplyOfShow, NothingChosenAnywhereIs110VoltsOnOnePhase)
{
    const QString plain = saved("plain");
    document.voltageSelect(208);
    person.supply.reset();

    document.openProjectPre(plain);
    EXPECT_EQ(counted(), Pair(110, 1));
}

TEST_F(SupplyOfShow, TheOneRememberedCountsFromTheStart)
{
    person.supply = Supply{230, 3};
    LWAppDelegate another(person);
    another.applicationDidFinishLaunching();

    EXPECT_EQ(another.powerResult(), "Total Power: 11.59Amp");
    EXPECT_EQ(another.project().supply, std::nullopt);
}

TEST_F(SupplyOfShow, UndoingAChoiceTakesItBackFromWhatIsRemembered)
{
    document.voltageSelect(208);
    document.voltageSelect(230);
    stack.undo();
    EXPECT_EQ(person.supply, (Supply{208, 1}));
    stack.undo();
    EXPECT_EQ(person.supply, (Supply{110, 1}));
    EXPECT_EQ(document.project().supply, std::nullopt);
}

TEST_F(SupplyOfShow, IsKeptByARecoveryCopy)
{
    const QString copies = folder.filePath("copies");
    {
        LWAppDelegate lost(person, copies);
        lost.applicationDidFinishLaunching();
        lost.voltageSelect(208);
        lost.phaseSelect(3);
    }
    person.supply = Supply{115, 1};
    LWAppDelegate next(person, copies);
    next.applicationDidFinishLaunching();
    EXPECT_EQ(next.voltageCalc(), 115);
    ASSERT_EQ(next.recoverable().size(), 1U);

    next.recover(next.recoverable()[0]);
    EXPECT_EQ(next.project().supply, (Supply{208, 3}));
    EXPECT_EQ(next.powerResult(), "Total Power: 12.82Amp");
}

TEST_F(SupplyOfShow, WallsThatShowTheirCurrentFollowItSelectedOrNot)
{
    edit("sfColor", QVariant::fromValue(OptionalColour(NamedColour::white)));
    edit("screenFontEnable", true);
    edit("showCurrent", true);
    document.AddScreen(); // takes the selection
    const LayerPointer wall = document.allScreensArray().front();
    const QImage at110 = wall->thumbnail().copy();
    const QString path = saved("show");

    document.voltageSelect(208);
    const QImage at208 = wall->thumbnail().copy();
    EXPECT_NE(at208, at110);
    stack.undo();
    EXPECT_EQ(wall->thumbnail(), at110);

    person.supply = Supply{208, 1};
    document.openProjectPre(path);
    EXPECT_EQ(document.allScreensArray().front()->thumbnail(), at208);
}

TEST_F(SupplyOfShow, AFileWithAnImpossibleSupplyIsRefused)
{
    Project project{90, 160, {selected()}, Supply{1001, 2}};
    EXPECT_EQ(ProjectFile::decode(ProjectFile::encode(project).value(), document).error().text,
              "\"wallwright\": the supply is 1001 V on 2 phases; it must be 1 to 1000 V on 1 or 3");
    project.supply = Supply{1000, 3};
    EXPECT_TRUE(ProjectFile::decode(ProjectFile::encode(project).value(), document).has_value());
}

TEST_F(SupplyOfShow, CurrentStaysWhenTheOutputIsComposed)
{
    expectUndone("current", [&] { edit("showCurrent", true); });
    stack.redo();
    compose();
    EXPECT_TRUE(selected()->showCurrent());
    EXPECT_FALSE(selected()->showPower());

    document.openProjectPre(saved("show"));
    EXPECT_TRUE(selected()->showCurrent());
    EXPECT_TRUE(selected()->copyWithZone()->showCurrent());
    EXPECT_TRUE(document.createCopyOfLayerThroughArch(selected())->showCurrent());
}
