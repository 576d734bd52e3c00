#include "windows/WindowPerson.h"

#include "canvas/LWCanvasImageView.h"
#include "show/ManagedObjectContext.h"
#include "tests/windows/WindowFixture.h"

#include <QSignalSpy>

namespace {
/// A store that has changes and cannot be saved.
class FullStore final : public ManagedObjectContext
{
public:
    bool commitEditing() override { return true; }
    bool hasChanges() const override { return true; }
    Result<void> save() override { return fail("The store is <b>full</b>."); }
};

class WindowPersonTest : public WindowFixture
{
protected:
    WindowPerson person{window};
    QSignalSpy failures{&person, &WindowPerson::failureTold};
};
} // namespace

TEST_F(WindowPersonTest, AnAlertSaysWhatItIsGivenAndGoesWithItsButton)
{
    answer([this] { person.alert("Cannot do <i>that</i>.", "It stays."); }, {readingAndPressing("OK")});
    EXPECT_EQ(said, "Cannot do <i>that</i>.\nIt stays.");
}

TEST_F(WindowPersonTest, AQuestionHasTheButtonsThatItIsGiven)
{
    for (const char *button : {"Quit anyway", "Cancel"}) {
        answer(
            [this] {
                person.ask("Quit anyway?", "Changes are lost.", {"Quit anyway", "Cancel"});
            },
            {readingAndPressing(button)});
        EXPECT_EQ(said, "Quit anyway?\nChanges are lost.");
    }
}

TEST_F(WindowPersonTest, WhyChangesCannotBeKeptIsShownAndTheProgramStays)
{
    LWAppDelegate document(person);
    FullStore store;
    document.setManagedObjectContext(&store);
    answer([&] { EXPECT_EQ(document.applicationShouldTerminate(), LWAppDelegate::TerminateReply::Cancel); },
           {readingAndPressing("OK")});
    EXPECT_EQ(said, "The store is <b>full</b>.\n");
}

TEST_F(WindowPersonTest, AnAddressThatNoBrowserOpensIsTold)
{
    person.openWebAddress("https://pages.example/help"); // the tests' desktop has none
    ASSERT_EQ(failures.size(), 1);
    EXPECT_EQ(failures[0][0], "Cannot open https://pages.example/help; open it in a browser.");
}

TEST_F(WindowPersonTest, WithoutACanvasNothingIsLookedAt)
{
    EXPECT_EQ(person.middleOfView(), std::nullopt);
    EXPECT_EQ(person.pixelAt({0, 0}), std::nullopt);
    EXPECT_EQ(person.canvasFrameSize(), QSizeF(0, 0));
    person.setCanvas(&canvas());
    EXPECT_EQ(person.middleOfView(), QPoint(960, 540));
    EXPECT_EQ(person.pixelAt(canvas().frame().topLeft() + QPointF(0.1, 0.1)), QPoint(0, 0));
}
