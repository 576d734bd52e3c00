#include "app/Settings.h"
#include "app/windows/ColourButton.h"
#include "canvas/LWCanvasImageView.h"
#include "tests/windows/InspectorFixture.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QToolButton>
#include <QToolTip>
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
        {"Columns", "col", 3, "Columns"},
        {"Rows", "row", 4, "Rows"},
        {"Panel width", "panelWidth", 96, "Panel Width"},
        {"Panel height", "panelHeight", 72, "Panel Height"},
        {"Left", "xpoint", -40, "Horizontal Position"},
        {"Top", "ypoint", 55, "Vertical Position"},
        {"Frame size", "boarderWidth", 7, "Frame Width"},
        {"Circle size", "circleBWidth", 9, "Circle Width"},
        {"Coordinates size", "XYFontSize", 33, "Coordinate Size"},
        {"Name and size size", "screenFontSize", 44, "Centre Text Size"},
        {"Panel labels size", "labelFontSize", 21, "Label Size"},
        {"Pixels per port", "pixelLimit", 500000, "Pixels per Port"},
        {"Per panel", "powerOnCell", 250, "Panel Power"},
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
        {"Circle", "CircleEnable", archived},
        {"Coordinates", "XYFontEnable", archived},
        {"Name and size", "screenFontEnable", archived},
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
        {"Frame colour", "boarderColor"},
        {"Circle colour", "circleColor"},
        {"Coordinates colour", "xyColor"},
        {"Name and size colour", "sfColor"},
        {"Panel labels colour", "labelColor"},
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

TEST_F(InspectorTest, ANameIsTyped)
{
    QLineEdit &field = control<QLineEdit>("Name");
    EXPECT_EQ(field.text(), "Layer 0");
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, "Stage left");
    EXPECT_EQ(shown()->label(), "Stage left");
    EXPECT_EQ(undoText(), "Name");
    undo();
    EXPECT_EQ(field.text(), "Layer 0");
}

TEST_F(InspectorTest, APatternIsChosenByItsPicture)
{
    QToolButton &sixth = control<QToolButton>("Data path 6");
    sixth.click();
    EXPECT_EQ(shown()->pattern(), 5);
    EXPECT_TRUE(sixth.isChecked());
    EXPECT_EQ(undoText(), "Data Path Pattern");
    undo();
    EXPECT_EQ(shown()->pattern(), 0);
    EXPECT_TRUE(control<QToolButton>("Data path 1").isChecked());
    EXPECT_FALSE(sixth.isChecked());
}

TEST_F(InspectorTest, SumsAreAllowedAndWrongEntriesKeepTheLastValue)
{
    NumberField &field = control<NumberField>("Panel width");
    type(field, "3840/2");
    EXPECT_EQ(shown()->panelWidth(), 1920);
    type(field, "6*(64+64)");
    EXPECT_EQ(shown()->panelWidth(), 768);
    type(field, "0"); // below the range
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(shown()->panelWidth(), 768);
    type(field, "64*");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(shown()->panelWidth(), 64);
}

TEST_F(InspectorTest, AWrongEntrySaysWhyBesideTheField)
{
    const QString why = "A whole number from 1 to 10,000, or a sum such as 6*128";
    NumberField &field = control<NumberField>("Columns");
    type(field, "0");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QToolTip::text() == why; }));
    EXPECT_EQ(field.text(), "8");

    QToolTip::hideText();
    type(field, "9*");
    QTest::keyClick(&field, Qt::Key_Tab);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QToolTip::text() == why; }));
    EXPECT_EQ(field.text(), "9");
    QToolTip::hideText();
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

TEST_F(InspectorTest, SeveralLayersAreEditedAsOneStepAndMixedValuesLookMixed)
{
    window.document().AddScreen(); // 1 x 1 panels of 80
    list().setSelectionIndexes({0, 1});
    NumberField &columns = control<NumberField>("Columns");
    EXPECT_EQ(columns.text(), "—");
    EXPECT_EQ(control<QCheckBox>("Fill").checkState(), Qt::Checked);
    list().layer(0)->setBgEnable(false);
    inspector().refresh();
    EXPECT_EQ(control<QCheckBox>("Fill").checkState(), Qt::PartiallyChecked);

    const QByteArray before = archive();
    type(columns, "6");
    EXPECT_EQ(list().layer(0)->col(), 6);
    EXPECT_EQ(list().layer(1)->col(), 6);
    EXPECT_EQ(list().layer(0)->screenSizeWidth(), 6 * 128);
    EXPECT_EQ(list().layer(1)->screenSizeWidth(), 6 * 80);
    EXPECT_EQ(columns.value(), 6);
    undo();
    EXPECT_EQ(list().layer(0)->col(), 8);
    EXPECT_EQ(list().layer(1)->col(), 1);
    EXPECT_EQ(columns.text(), "—");
}

TEST_F(InspectorTest, EachDigitIsTakenForSeveralLayersToo)
{
    window.document().AddScreen();
    list().setSelectionIndexes({0, 1});
    NumberField &left = control<NumberField>("Left");
    left.setFocus();
    left.selectAll();
    for (const char digit : {'1', '2', '8'})
        QTest::keyClick(&left, digit);
    EXPECT_EQ(list().layer(0)->xpoint(), 128);
    EXPECT_EQ(list().layer(1)->xpoint(), 128);
}

TEST_F(InspectorTest, ATextThatHasNoColourGetsWhiteWhenItIsTurnedOn)
{
    shown()->setLabelColor(std::nullopt);
    inspector().refresh();
    control<QCheckBox>("Panel labels").click();
    EXPECT_EQ(shown()->labelColor(), OptionalColour(NamedColour::white));
    EXPECT_TRUE(shown()->drawLabels());
    undo();
    EXPECT_EQ(shown()->labelColor(), std::nullopt);
    EXPECT_FALSE(shown()->drawLabels());
}

TEST_F(InspectorTest, CaptionsAreTheLayersOwnAndHideWithTheirFlag)
{
    EXPECT_EQ(captionOf("Panel width"), "Panel-V");
    EXPECT_EQ(captionOf("Columns"), "COLS");
    shown()->setLabel2(QString());
    inspector().refresh();
    EXPECT_EQ(captionOf("Panel width"), "Panel width");
    shown()->setLabel2Hidden(true);
    inspector().refresh();
    EXPECT_FALSE(isShown("Panel width"));
    EXPECT_TRUE(isShown("Panel height"));
}

TEST_F(InspectorTest, SummariesTellPanelsPortsAndCurrent)
{
    EXPECT_EQ(summary("Wall"), "8 × 5 panels, 1,024 × 640 px");
    shown()->onImageClick(10, 10);
    window.document().finishEdit("Toggle Panel");
    EXPECT_EQ(summary("Wall"), "8 × 5 panels, 1,024 × 640 px, 1 off");
    click(inspector(), "Switch all on");
    EXPECT_EQ(summary("Wall"), "8 × 5 panels, 1,024 × 640 px");
    EXPECT_EQ(undoText(), "Switch All Panels On");

    EXPECT_EQ(summary("Ports"), "1 port, 655,360 px");
    window.document().setValue(300'000, "arrangedObjects.pixelLimit"); // two rows of 131,072
    EXPECT_EQ(summary("Ports"), "3 ports, 262,144 px each, last 131,072 px");
    EXPECT_EQ(summary("Power"), "72.73 A at 110 V, 1 phase");
    click(window, "208 V");
    EXPECT_EQ(summary("Power"), "38.46 A at 208 V, 1 phase");
}

TEST_F(InspectorTest, TheOutputHasItsSizeAndColours)
{
    type(control<NumberField>("Height"), "720");
    EXPECT_EQ(window.document().OutputHeight(), 720);
    EXPECT_EQ(undoText(), "Output Height");
    chooseFrom("Usual sizes of the output", "3,840 × 2,160");
    EXPECT_EQ(window.document().OutputWidth(), 3840);
    EXPECT_EQ(window.document().OutputHeight(), 2160);
    undo();
    EXPECT_EQ(window.document().OutputHeight(), 720);
}

TEST_F(InspectorTest, TheOutputsWidthIsTypedArchivedAndUndone)
{
    const QByteArray before = archive();
    type(control<NumberField>("Width"), "1280");
    EXPECT_EQ(window.document().OutputWidth(), 1280);
    EXPECT_TRUE(QTest::qWaitFor([&] { return canvas().readOut().output == QSize(1280, 1080); }));
    EXPECT_NE(archive(), before);
    undo();
    EXPECT_EQ(archive(), before);
}

TEST_F(InspectorTest, TheOutputsColoursAreSeenAtOnce)
{
    window.document().timerupdate();
    chooseColour("Background colour", QColor(0, 128, 0));
    EXPECT_EQ(window.document().bgColor(), Colour::fromRgba8(0xff008000));
    window.document().timerupdate();
    chooseColour("Edge colour", QColor(0, 0, 255));
    window.document().timerupdate();
    window.document().update();
    EXPECT_EQ(window.document().img().pixelColor(1500, 900), QColor(0, 128, 0));
    EXPECT_EQ(window.document().img().pixelColor(1919, 900), QColor(0, 0, 255));
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
    EXPECT_EQ(undoText(), "Exchange Colours");
    undo();
    EXPECT_EQ(archive(), before);
}

TEST_F(InspectorTest, AUsualLimitOfAPortIsTaken)
{
    const QByteArray before = archive();
    chooseFrom("Usual limits of a port", "327,680 px");
    EXPECT_EQ(shown()->pixelLimit(), 327'680);
    EXPECT_EQ(control<NumberField>("Pixels per port").value(), 327'680);
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
