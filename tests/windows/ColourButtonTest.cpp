#include "windows/inspector/ColourButton.h"

#include "canvas/LWCanvasImageView.h"
#include "layer/Layer.h"
#include "tests/windows/InspectorFixture.h"
#include "windows/Theme.h"
#include "windows/inspector/ColourPlane.h"

#include <QLineEdit>
#include <QTest>
#include <QToolButton>

/// A person who opens the popover of a colour, looks at some, and closes it.
class ColourButtonTest : public InspectorFixture
{
protected:
    static constexpr Colour blue = Colour{0, 0, 1, 1};

    /// Looks at two colours and presses the key.
    void look(const QString &name, Qt::Key key)
    {
        openColour(name, [this, key](QWidget &popover) {
            for (const QColor colour : {Qt::red, Qt::blue}) {
                typeColour(popover, colour);
                seen.push_back(list().layer(0)->rectColor().value_or(NamedColour::white));
            }
            QTest::keyClick(popover.findChild<QLineEdit *>(), key);
        });
    }
    QUndoStack &stack() { return window.document().undoStack(); }

    std::vector<Colour> seen; ///< of the first layer, while the popover was open
};

TEST_F(ColourButtonTest, ColoursAreSeenWhileThePopoverIsOpenAndChosenAsOneStep)
{
    const QByteArray before = archive();
    const int steps = stack().index();
    look("Colour 1", Qt::Key_Return);
    EXPECT_EQ(seen, (std::vector<Colour>{Colour{1, 0, 0, 1}, blue}));
    EXPECT_EQ(shown()->rectColor(), OptionalColour(blue));
    EXPECT_EQ(stack().index(), steps + 1);
    EXPECT_EQ(undoText(), "colour 1");
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
    look("Colour 1", Qt::Key_Escape);
    EXPECT_EQ(seen.back(), blue);
    EXPECT_EQ(archive(), before);
    EXPECT_EQ(stack().index(), steps);
    EXPECT_EQ(stack().isClean(), wasClean);
    EXPECT_EQ(stack().redoText(), "add screen");
}

TEST_F(ColourButtonTest, CancellingGivesEachOfSeveralLayersItsOwnColourBack)
{
    window.document().AddScreen();
    list().layer(0)->setRectColor(Colour{0, 1, 0, 1});
    window.document().finishEdit("Colour 1");
    list().setSelectionIndexes({0, 1});
    ASSERT_EQ(control<ColourButton>("Colour 1").accessibleDescription(), "several");
    const QByteArray before = archive();
    look("Colour 1", Qt::Key_Escape);
    EXPECT_EQ(seen.back(), blue);
    EXPECT_EQ(archive(), before);
    EXPECT_EQ(control<ColourButton>("Colour 1").accessibleDescription(), "several");
}

TEST_F(ColourButtonTest, CancellingAlsoTakesBackWhereThereWasNoColour)
{
    shown()->setRectColor(std::nullopt);
    window.document().finishEdit("Colour 1");
    ASSERT_EQ(control<ColourButton>("Colour 1").accessibleDescription(), "none");
    look("Colour 1", Qt::Key_Escape);
    EXPECT_EQ(seen.back(), blue);
    EXPECT_EQ(shown()->rectColor(), std::nullopt);
    EXPECT_EQ(control<ColourButton>("Colour 1").accessibleDescription(), "none");
}

TEST_F(ColourButtonTest, APressElsewhereKeepsTheColourAsOneStep)
{
    const int steps = stack().index();
    openColour("Colour 1", [](QWidget &popover) {
        typeColour(popover, Qt::blue);
        QTest::mouseClick(&popover, Qt::LeftButton, {}, QPoint(-20, -20));
    });
    EXPECT_EQ(shown()->rectColor(), OptionalColour(blue));
    EXPECT_EQ(stack().index(), steps + 1);
}

TEST_F(ColourButtonTest, WrongDigitsAreFramedAndChangeNothing)
{
    const OptionalColour before = shown()->rectColor();
    openColour("Colour 1", [](QWidget &popover) {
        auto &digits = *popover.findChild<QLineEdit *>();
        for (const char *wrong : {"ff80", "ff80zz", "red", ""}) {
            digits.selectAll();
            QTest::keyClick(&digits, Qt::Key_Delete);
            QTest::keyClicks(&digits, wrong);
            EXPECT_EQ(digits.grab().toImage().pixelColor(0, digits.height() / 2), Theme::danger) << wrong;
        }
        QTest::keyClick(&digits, Qt::Key_Return);
    });
    EXPECT_EQ(shown()->rectColor(), before);
}

TEST_F(ColourButtonTest, TheColoursOfTheShowAreOffered)
{
    window.document().AddScreen();
    list().layer(1)->setRectColor(OptionalColour(Colour::fromRgba8(0xff12ab34)));
    window.document().finishEdit("Setting");
    list().setSelectionIndex(0);
    openColour("Colour 2", [](QWidget &popover) {
        for (QToolButton *button : popover.findChildren<QToolButton *>()) {
            if (button->accessibleName() == "#12ab34")
                button->click();
        }
        EXPECT_EQ(popover.findChild<QLineEdit *>()->text(), "#12ab34");
        QTest::keyClick(&popover, Qt::Key_Return);
    });
    EXPECT_EQ(shown()->rectColor2(), OptionalColour(Colour::fromRgba8(0xff12ab34)));
}

TEST_F(ColourButtonTest, AnyColourIsPointedAt)
{
    openColour("Colour 1", [](QWidget &popover) {
        auto &plane = *popover.findChild<ColourPlane *>();
        QTest::mouseClick(&plane, Qt::LeftButton, {}, QPoint(plane.width() - 1, 0));  // full and bright
        QTest::mouseClick(&plane, Qt::LeftButton, {}, QPoint(0, 144));                // red
        QTest::mouseClick(&plane, Qt::LeftButton, {}, QPoint(0, plane.height() - 4)); // seen through
        EXPECT_EQ(popover.findChild<QLineEdit *>()->text(), "#00ff0000");
        QTest::keyClick(&popover, Qt::Key_Return);
    });
    EXPECT_EQ(shown()->rectColor(), OptionalColour(Colour::fromRgba8(0x00ff0000)));
}

TEST_F(ColourButtonTest, ThePopoverStaysBesideTheCanvas)
{
    openColour("Colour 1", [this](QWidget &popover) {
        const QPoint canvasEnd = canvas().mapToGlobal(QPoint(canvas().width(), 0));
        EXPECT_GE(popover.geometry().left(), canvasEnd.x());
        QTest::keyClick(&popover, Qt::Key_Escape);
    });
}

TEST_F(ColourButtonTest, CancellingGivesTheOutputItsColourBack)
{
    const Colour before = window.document().bgColor();
    look("Background colour", Qt::Key_Escape);
    EXPECT_EQ(window.document().bgColor(), before);
    look("Background colour", Qt::Key_Return);
    EXPECT_EQ(window.document().bgColor(), blue);
}

TEST_F(ColourButtonTest, AColourThatIsLeftAsItIsIsNotChosen)
{
    const OptionalColour fine = Colour{0.3001, 0.5003, 0.1, 1}; // finer than the popover's
    shown()->setRectColor(fine);
    window.document().finishEdit("Setting");
    const int steps = stack().index();
    openColour("Colour 1", [](QWidget &popover) { QTest::keyClick(&popover, Qt::Key_Return); });
    EXPECT_EQ(shown()->rectColor(), fine);
    EXPECT_EQ(stack().index(), steps);
}
