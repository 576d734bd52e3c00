#include "tests/app/UndoFixture.h"

#include <QSignalSpy>

namespace {
/// Edits that are taken back before they have become steps to go back and forth between.
class UndoTrial : public UndoFixture
{
protected:
    void type(int columns) { edit("col", columns); }
    void tryColour(const Colour &colour) { edit("rectColor", QVariant::fromValue(OptionalColour(colour))); }
    OptionalColour colour() { return document.allScreensArray().front()->rectColor(); }
    void expectLook(const Look &expected)
    {
        waitForRedraws();
        expectSame(look(), expected, "taken back, and redrawn");
    }
};
} // namespace

TEST_F(UndoTrial, TypingThatIsTakenBackLeavesNoStep)
{
    waitForRedraws();
    const Look before = look();
    type(1);
    type(12);
    document.takeBackTyping();
    expectLook(before);
    EXPECT_EQ(stack.count(), 0);
    EXPECT_TRUE(stack.isClean());
    document.takeBackTyping(); // there is no more
    expectLook(before);
}

TEST_F(UndoTrial, TypingThatHasEndedIsNotTakenBack)
{
    type(12);
    document.endTyping();
    document.takeBackTyping();
    EXPECT_EQ(document.allScreensArray().front()->col(), 12);

    type(13);
    stack.undo();
    document.takeBackTyping();
    EXPECT_EQ(document.allScreensArray().front()->col(), 12);
    EXPECT_TRUE(stack.canRedo());
}

TEST_F(UndoTrial, TypingElsewhereThatChangesNothingEndsIt)
{
    type(12);
    edit("row", document.allScreensArray().front()->row());
    document.takeBackTyping();
    EXPECT_EQ(document.allScreensArray().front()->col(), 12);
    EXPECT_EQ(stack.count(), 1);
}

TEST_F(UndoTrial, WhatIsTriedAndKeptIsOneStep)
{
    expectUndone("colour 1", [&] {
        document.beginTrial();
        tryColour({0, 1, 0, 1});
        waitForRedraws();
        tryColour({0, 0, 1, 1});
        EXPECT_EQ(stack.count(), 0);
        document.keepTrial();
    });
}

TEST_F(UndoTrial, WhatIsTriedAndDroppedLeavesStepsAndSignalsAsTheyWere)
{
    document.AddScreen();
    stack.undo();
    waitForRedraws();
    const Look before = look();
    const QSignalSpy indexes(&stack, &QUndoStack::indexChanged);

    document.beginTrial();
    tryColour({0, 1, 0, 1});
    waitForRedraws();
    tryColour({0, 0, 1, 1});
    EXPECT_EQ(colour(), OptionalColour(Colour{0, 0, 1, 1}));
    document.dropTrial();

    expectLook(before);
    EXPECT_EQ(indexes.size(), 0);
    EXPECT_EQ(stack.redoText(), "add screen");
    tryColour({0, 1, 0, 1}); // is a step again
    EXPECT_EQ(stack.undoText(), "colour 1");
}

TEST_F(UndoTrial, ATrialWithoutAChangeIsNoStep)
{
    document.beginTrial();
    document.keepTrial();
    document.beginTrial();
    tryColour(colour().value_or(NamedColour::white));
    document.keepTrial();
    EXPECT_EQ(stack.count(), 0);
}
