#include "app/Settings.h"
#include "formats/ProjectFile.h"
#include "tests/windows/InspectorFixture.h"
#include "windows/inspector/ColourButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

using InspectorTest = InspectorFixture;

namespace {
struct NumberCase
{
    const char *name;
    const char *property;
    int value;
    const char *undo;
};
} // namespace

TEST_F(InspectorTest, EveryNumberIsTypedArchivedAndUndone)
{
    constexpr NumberCase cases[] = {
        {"Columns", "col", 3, "columns"},
        {"Rows", "row", 4, "rows"},
        {"Panel width", "panelWidth", 96, "panel width"},
        {"Panel height", "panelHeight", 72, "panel height"},
        {"Left", "xpoint", -40, "left"},
        {"Top", "ypoint", 55, "top"},
        {"Frame, width", "boarderWidth", 7, "frame, width"},
        {"Circle and diagonals, width", "circleBWidth", 9, "circle and diagonals, width"},
        {"Corner coordinates, size", "XYFontSize", 33, "corner coordinates, size"},
        {"Name and size at the centre, size", "screenFontSize", 44, "name and size at the centre, size"},
        {"Panel labels, size", "labelFontSize", 21, "panel labels, size"},
        {"Pixels per port", "pixelLimit", 500000, "pixels per port"},
        {"Watts per panel", "powerOnCell", 250, "watts per panel"},
    };
    for (const NumberCase &each : cases) {
        SCOPED_TRACE(each.name);
        const QByteArray before = archive();
        const int steps = window.document().undoStack().index();
        type(control<NumberField>(each.name), QString::number(each.value));
        EXPECT_EQ(shown()->property(each.property).toInt(), each.value);
        EXPECT_NE(archive(), before);
        EXPECT_EQ(undoText(), each.undo);
        EXPECT_EQ(window.document().undoStack().index(), steps + 1); // typing is one step
        undo();
        EXPECT_EQ(archive(), before);
        EXPECT_EQ(control<NumberField>(each.name).value(), shown()->property(each.property).toInt());
    }
}

TEST_F(InspectorTest, EverySwitchIsPressedArchivedAndUndone)
{
    constexpr bool archived = true;
    const std::tuple<const char *, const char *, bool> cases[] = {
        {"Visible", "visible", archived},
        {"Fill", "bgEnable", archived},
        {"Frame", "BoarderEnable", archived},
        {"Circle and diagonals", "CircleEnable", archived},
        {"Corner coordinates", "XYFontEnable", archived},
        {"Name and size at the centre", "screenFontEnable", archived},
        {"Current", "showCurrent", archived},
        {"Panel labels", "drawLabels", archived},
        {"Letters by row", "XYLabelDirection", !archived}, // a file has no place for it
        {"Path", "drawFlowPath", archived},
    };
    for (const auto &[name, property, isArchived] : cases) {
        SCOPED_TRACE(name);
        const QByteArray before = archive();
        const bool wasOn = shown()->property(property).toBool();
        QCheckBox &box = control<QCheckBox>(name);
        EXPECT_EQ(box.isChecked(), wasOn);
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Space);
        EXPECT_EQ(shown()->property(property).toBool(), !wasOn);
        EXPECT_EQ(archive() != before, isArchived);
        undo();
        EXPECT_EQ(archive(), before);
        EXPECT_EQ(box.isChecked(), wasOn);
    }
}

TEST_F(InspectorTest, EveryColourIsChosenWithItsOpacity)
{
    const std::pair<const char *, const char *> cases[] = {
        {"Colour 1", "rectColor"},
        {"Colour 2", "rectColor2"},
        {"Frame, colour", "boarderColor"},
        {"Circle and diagonals, colour", "circleColor"},
        {"Corner coordinates, colour", "xyColor"},
        {"Name and size at the centre, colour", "sfColor"},
        {"Panel labels, colour", "labelColor"},
    };
    for (const auto &[name, property] : cases) {
        SCOPED_TRACE(name);
        const QByteArray before = archive();
        chooseColour(name, QColor(1, 2, 3, 51));
        EXPECT_EQ(shown()->property(property).value<OptionalColour>(), OptionalColour(Colour::fromRgba8(0x33010203)));
        EXPECT_EQ(control<ColourButton>(name).accessibleDescription(), "#33010203");
        EXPECT_NE(archive(), before);
        undo();
        EXPECT_EQ(archive(), before);
    }
}

TEST_F(InspectorTest, OfALongNameTheBeginningIsSeen)
{
    QLineEdit &field = control<QLineEdit>("Name");
    window.document().setValue(QString("MAIN").repeated(100), "arrangedObjects.label");
    window.document().update();
    EXPECT_EQ(field.text().size(), 400);
    EXPECT_EQ(field.cursorPosition(), 0);
}

TEST_F(InspectorTest, ANameIsTyped)
{
    QLineEdit &field = control<QLineEdit>("Name");
    EXPECT_EQ(field.text(), "Layer 0");
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, "Stage left");
    EXPECT_EQ(shown()->label(), "Stage left");
    EXPECT_EQ(undoText(), "name");
    undo();
    EXPECT_EQ(field.text(), "Layer 0");
}

TEST_F(InspectorTest, APatternIsChosenByItsPicture)
{
    QToolButton &sixth = control<QToolButton>("Data path 6");
    sixth.click();
    EXPECT_EQ(shown()->pattern(), 5);
    EXPECT_TRUE(sixth.isChecked());
    EXPECT_EQ(undoText(), "pattern of the path");
    sixth.click(); // stays
    EXPECT_TRUE(sixth.isChecked());
    undo();
    EXPECT_EQ(shown()->pattern(), 0);
    EXPECT_TRUE(control<QToolButton>("Data path 1").isChecked());
    EXPECT_FALSE(sixth.isChecked());
}

TEST_F(InspectorTest, SumsAreAllowedAndWrongEntriesGoBackToTheValueBefore)
{
    NumberField &field = control<NumberField>("Panel width");
    type(field, "3840/2");
    EXPECT_EQ(shown()->panelWidth(), 1920);
    type(field, "6*(64+64)");
    EXPECT_EQ(shown()->panelWidth(), 768);
    QTest::keyClick(&field, Qt::Key_Return);
    type(field, "0"); // below the range
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(shown()->panelWidth(), 768);
    type(field, "64*");
    EXPECT_EQ(shown()->panelWidth(), 64); // as far as it goes
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(shown()->panelWidth(), 768);
}

TEST_F(InspectorTest, UpAndDownStepByOneAndTheWheelOnlyWhereTheCursorIs)
{
    NumberField &field = control<NumberField>("Columns");
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(shown()->col(), 9);
    QTest::keyClick(&field, Qt::Key_Down);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(shown()->col(), 7);

    inspector().setFocus();
    QWheelEvent wheel(QPointF(5, 5), field.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&field, &wheel);
    EXPECT_EQ(shown()->col(), 7);
}

TEST_F(InspectorTest, ATextThatHasNoColourGetsWhiteOnDarkPanelsWhenItIsTurnedOn)
{
    shown()->setRectColor(NamedColour::black);
    shown()->setRectColor2(NamedColour::black);
    shown()->setLabelColor(std::nullopt);
    inspector().refresh();
    control<QCheckBox>("Panel labels").click();
    EXPECT_EQ(shown()->labelColor(), OptionalColour(NamedColour::white));
    EXPECT_TRUE(shown()->drawLabels());
    undo();
    EXPECT_EQ(shown()->labelColor(), std::nullopt);
    EXPECT_FALSE(shown()->drawLabels());
}

TEST_F(InspectorTest, ATextWithoutAColourGetsTheOneThatStandsOffFromBothPanelColours)
{
    constexpr Colour darkBlue{0, 0, 0.5, 1};
    const std::tuple<OptionalColour, OptionalColour, Colour> cases[] = {
        {NamedColour::yellow, NamedColour::white, NamedColour::black},
        {NamedColour::yellow, NamedColour::orange, NamedColour::black},
        {darkBlue, NamedColour::black, NamedColour::white},
        {NamedColour::yellow, darkBlue, NamedColour::black}, // 1.31 on blue, white is 1.07 on yellow
        {std::nullopt, NamedColour::yellow, NamedColour::black},
        {std::nullopt, std::nullopt, NamedColour::white},
        {Colour{1, 1, 1, 0.05}, std::nullopt, NamedColour::white}, // hardly there
    };
    for (const auto &[first, second, text] : cases) {
        SCOPED_TRACE(text.red);
        shown()->setRectColor(first);
        shown()->setRectColor2(second);
        shown()->setXyColor(std::nullopt);
        shown()->setXYFontEnable(false);
        window.document().finishEdit("Setting");
        const int before = window.document().undoStack().index();
        control<QCheckBox>("Corner coordinates").click();
        EXPECT_EQ(shown()->xyColor(), OptionalColour(text));
        EXPECT_EQ(window.document().undoStack().index(), before + 1);
        undo();
        EXPECT_EQ(shown()->xyColor(), std::nullopt);
    }
}

TEST_F(InspectorTest, TheCurrentIsDrawnByAClickAndKeptWithTheLayer)
{
    shown()->setRectColor(NamedColour::white);
    shown()->setRectColor2(NamedColour::white);
    shown()->setSfColor(std::nullopt);
    shown()->setScreenFontEnable(true);
    window.document().finishEdit("Setting");
    window.document().timerupdate();
    const QByteArray before = archive();
    const QImage without = window.document().offscreenRep().copy();
    QCheckBox &box = control<QCheckBox>("Current");
    inspector().ensureWidgetVisible(&box);
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    EXPECT_TRUE(shown()->showCurrent());
    EXPECT_EQ(shown()->sfColor(), OptionalColour(NamedColour::black));
    window.document().timerupdate();
    EXPECT_TRUE(window.document().offscreenRep() != without);
    EXPECT_TRUE(ProjectFile::decode(archive(), window.document())->layers.front()->showCurrent());
    EXPECT_EQ(undoText(), "current");
    undo();
    EXPECT_FALSE(shown()->showCurrent());
    EXPECT_EQ(shown()->sfColor(), std::nullopt);
    EXPECT_EQ(archive(), before);
}

TEST_F(InspectorTest, ATextKeepsTheColourThatItHas)
{
    shown()->setRectColor(NamedColour::yellow);
    shown()->setLabelColor(OptionalColour(NamedColour::white));
    shown()->setDrawLabels(false);
    inspector().refresh();
    control<QCheckBox>("Panel labels").click();
    EXPECT_EQ(shown()->labelColor(), OptionalColour(NamedColour::white));
}

TEST_F(InspectorTest, CaptionsAreTheLayersOwnAndHideWithTheirFlag)
{
    EXPECT_EQ(captionOf("Panel width"), "Panel-H");
    EXPECT_EQ(captionOf("Panel height"), "Panel-V");
    EXPECT_EQ(captionOf("Columns"), "COLS");
    shown()->setLabel1(QString());
    inspector().refresh();
    EXPECT_EQ(captionOf("Panel width"), "Panel width");
    shown()->setLabel1Hidden(true);
    inspector().refresh();
    EXPECT_FALSE(isShown("Panel width"));
    EXPECT_TRUE(isShown("Panel height"));
}

TEST_F(InspectorTest, WhereTheLayerHasNoCaptionTheRowsSpeakForThemselves)
{
    shown()->setLabel7(QString());
    shown()->setLabel8(QString());
    inspector().refresh();
    const std::pair<const char *, const char *> captions[] = {{"Circle and diagonals", "Circle"},
                                                              {"Corner coordinates", "Coordinates"},
                                                              {"Name and size at the centre", "Name and size"},
                                                              {"Watts per panel", "Watts per panel"}};
    for (const auto &[name, caption] : captions) {
        EXPECT_EQ(captionOf(name), caption);
        EXPECT_EQ(control<QWidget>(name).toolTip(), name);
    }
}

TEST_F(InspectorTest, ColoursAreExchanged)
{
    const QByteArray before = archive();
    const OptionalColour first = shown()->rectColor();
    const OptionalColour second = shown()->rectColor2();
    ASSERT_NE(first, second);
    click(inspector(), "Exchange");
    EXPECT_EQ(shown()->rectColor(), second);
    EXPECT_EQ(shown()->rectColor2(), first);
    EXPECT_EQ(undoText(), "exchange colours");
    undo();
    EXPECT_EQ(archive(), before);
}

TEST_F(InspectorTest, AUsualLimitOfAPortIsTaken)
{
    const QByteArray before = archive();
    chooseFrom("Usual limits of a port", "524,288 px");
    const QByteArray first = archive();
    chooseFrom("Usual limits of a port", "327,680 px");
    EXPECT_EQ(shown()->pixelLimit(), 327'680);
    EXPECT_EQ(control<NumberField>("Pixels per port").value(), 327'680);
    undo();
    EXPECT_EQ(archive(), first); // each choice is a step
    undo();
    EXPECT_EQ(archive(), before);
}

TEST_F(InspectorTest, TheChoiceOfCornersIsTheDocuments)
{
    inspector().findChild<QComboBox *>()->setFocus();
    QTest::keyClick(inspector().findChild<QComboBox *>(), Qt::Key_Down);
    EXPECT_EQ(window.document().popupIndex(), 1);
}

TEST_F(InspectorTest, FoldedGroupsStayFolded)
{
    for (QToolButton *head : inspector().findChildren<QToolButton *>("groupHead")) {
        if (head->text() == "Wall")
            head->click();
    }
    EXPECT_FALSE(isShown("Columns"));
    MainWindow next;
    next.start();
    next.makeLateParts();
    EXPECT_EQ(Settings::foldedGroups(), QStringList("Wall"));
    for (const QWidget *found : next.findChildren<QWidget *>()) {
        if (found->accessibleName() == "Columns") {
            EXPECT_FALSE(found->isVisibleTo(&next));
        }
    }
    Settings::setFoldedGroups({});
}

TEST_F(InspectorTest, EveryControlHasANameAndATip)
{
    for (const QWidget *each : inspector().findChildren<QWidget *>()) {
        const bool isControl = qobject_cast<const QAbstractButton *>(each) || qobject_cast<const NumberField *>(each) ||
                               qobject_cast<const QComboBox *>(each);
        if (!isControl)
            continue;
        const auto *button = qobject_cast<const QAbstractButton *>(each);
        const bool hasText = button && !button->text().isEmpty() && button->text() != "…";
        EXPECT_TRUE(hasText || !each->accessibleName().isEmpty()) << each->metaObject()->className();
        EXPECT_FALSE(each->toolTip().isEmpty()) << qPrintable(each->accessibleName());
    }
}
