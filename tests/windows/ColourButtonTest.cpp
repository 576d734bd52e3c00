#include "app/windows/ColourButton.h"

#include "layer/Layer.h"
#include "tests/windows/InspectorFixture.h"

#include <QColorDialog>
#include <QTest>

/// A person who opens the dialog of a colour, looks at some, and closes it.
class ColourButtonTest : public InspectorFixture
{
protected:
    static constexpr Colour blue = Colour{0, 0, 1, 1};

    /// Looks at two colours and presses the button.
    Answer lookingAndPressing(const QString &button)
    {
        return [this, button](QWidget &dialog) {
            auto &colours = dynamic_cast<QColorDialog &>(dialog);
            for (const QColor colour : {Qt::red, Qt::blue}) {
                colours.setCurrentColor(colour);
                seen.push_back(list().layer(0)->rectColor().value_or(NamedColour::white));
            }
            click(dialog, button);
        };
    }
    void look(const QString &name, const QString &button) { openColour(name, lookingAndPressing(button)); }
    QUndoStack &stack() { return window.document().undoStack(); }

    std::vector<Colour> seen; ///< of the first layer, while the dialog was open
};

TEST_F(ColourButtonTest, ColoursAreSeenWhileTheDialogIsOpenAndChosenAsOneStep)
{
    const QByteArray before = archive();
    const int steps = stack().index();
    look("Colour 1", "OK");
    EXPECT_EQ(seen, (std::vector<Colour>{Colour{1, 0, 0, 1}, blue}));
    EXPECT_EQ(shown()->rectColor(), OptionalColour(blue));
    EXPECT_EQ(stack().index(), steps + 1);
    EXPECT_EQ(undoText(), "Colour 1");
    undo();
    EXPECT_EQ(archive(), before);
}

TEST_F(ColourButtonTest, CancellingLeavesTheDocumentAndItsHistoryAsTheyWere)
{
    window.document().AddScreen();
    undo();
    ASSERT_TRUE(stack().canRedo());
    const QByteArray before = archive();
    const int steps = stack().index();
    const bool wasClean = stack().isClean();
    look("Colour 1", "Cancel");
    EXPECT_EQ(seen.back(), blue);
    EXPECT_EQ(archive(), before);
    EXPECT_EQ(stack().index(), steps);
    EXPECT_EQ(stack().isClean(), wasClean);
    EXPECT_EQ(stack().redoText(), "Add Screen");
}

TEST_F(ColourButtonTest, CancellingGivesEachOfSeveralLayersItsOwnColourBack)
{
    window.document().AddScreen();
    list().layer(0)->setRectColor(Colour{0, 1, 0, 1});
    window.document().finishEdit("Colour 1");
    list().setSelectionIndexes({0, 1});
    ASSERT_EQ(control<ColourButton>("Colour 1").accessibleDescription(), "several");
    const QByteArray before = archive();
    look("Colour 1", "Cancel");
    EXPECT_EQ(seen.back(), blue);
    EXPECT_EQ(archive(), before);
    EXPECT_EQ(control<ColourButton>("Colour 1").accessibleDescription(), "several");
}

TEST_F(ColourButtonTest, CancellingAlsoTakesBackWhereThereWasNoColour)
{
    shown()->setRectColor(std::nullopt);
    window.document().finishEdit("Colour 1");
    ASSERT_EQ(control<ColourButton>("Colour 1").accessibleDescription(), "none");
    look("Colour 1", "Cancel");
    EXPECT_EQ(seen.back(), blue);
    EXPECT_EQ(shown()->rectColor(), std::nullopt);
    EXPECT_EQ(control<ColourButton>("Colour 1").accessibleDescription(), "none");
}

TEST_F(ColourButtonTest, ClosingTheDialogCancels)
{
    const QByteArray before = archive();
    openColour("Colour 1", [](QWidget &dialog) {
        dynamic_cast<QColorDialog &>(dialog).setCurrentColor(Qt::blue);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(archive(), before);
}

TEST_F(ColourButtonTest, CancellingGivesTheOutputItsColourBack)
{
    const Colour before = window.document().bgColor();
    look("Background colour", "Cancel");
    EXPECT_EQ(window.document().bgColor(), before);
    look("Background colour", "OK");
    EXPECT_EQ(window.document().bgColor(), blue);
}

TEST_F(ColourButtonTest, AColourThatIsLeftAsItIsIsNotChosen)
{
    const OptionalColour fine = Colour{0.3001, 0.5003, 0.1, 1}; // finer than the dialog's
    shown()->setRectColor(fine);
    window.document().finishEdit("Setting");
    const int steps = stack().index();
    openColour("Colour 1", [](QWidget &dialog) { click(dialog, "OK"); });
    EXPECT_EQ(shown()->rectColor(), fine);
    EXPECT_EQ(stack().index(), steps);
}
