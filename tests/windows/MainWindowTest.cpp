#include "canvas/LWCanvasImageView.h"
#include "tests/windows/WindowFixture.h"
#include "windows/LayerTable.h"
#include "windows/Theme.h"
#include "windows/inspector/Inspector.h"

#include <QIcon>
#include <QLabel>
#include <QRadioButton>
#include <QTest>

using MainWindowTest = WindowFixture;

TEST_F(MainWindowTest, ItOpensWithTheFirstWall)
{
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(title(), "Untitled — Wallwright");
    EXPECT_EQ(table().model()->rowCount(), 1);
    EXPECT_EQ(table().currentIndex().data().toString(), "Layer 0");
    EXPECT_TRUE(shows("Total Power: 72.73Amp"));
    EXPECT_TRUE(shows("1,920 × 1,080 px"));
}

TEST_F(MainWindowTest, TheFirstWallIsSeenAtTheTopLeftOfABlackOutput)
{
    const QImage picture = seen();
    const QRect place = placeOfOutput();
    const auto seenAt = [&](int x, int y) {
        return picture.pixelColor(place.left() + x * place.width() / 1920, place.top() + y * place.height() / 1080);
    };

    EXPECT_EQ(seenAt(100, 540), QColor(255, 0, 0)); // the bottom left panel
    EXPECT_EQ(seenAt(230, 540), QColor(170, 170, 170));
    EXPECT_EQ(seenAt(64, 100), QColor(255, 0, 0));
    EXPECT_EQ(seenAt(1100, 100), QColor(0, 0, 0));
    EXPECT_EQ(seenAt(100, 700), QColor(0, 0, 0));
}

TEST_F(MainWindowTest, ThePowerLineFollowsVoltageAndPhases)
{
    click(window, "208 V");
    EXPECT_TRUE(shows("Total Power: 38.46Amp"));
    click(window, "3 phases");
    EXPECT_TRUE(shows("Total Power: 12.82Amp"));
    click(window, "110 V");
    EXPECT_TRUE(shows("Total Power: 24.24Amp"));
    click(window, "1 phase");
    EXPECT_TRUE(shows("Total Power: 72.73Amp"));
}

TEST_F(MainWindowTest, VoltageAndPhasesAreChosenWithTheKeyboardToo)
{
    for (QWidget *control : inspector().findChildren<QWidget *>()) {
        if (control->accessibleName() == "Edge colour") // the last one before
            control->setFocus();
    }
    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::keyClick(window.focusWidget(), Qt::Key_Right);
    EXPECT_EQ(window.document().voltageCalc(), 208);
    QTest::keyClick(&window, Qt::Key_Tab); // to the volts of another supply
    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::keyClick(window.focusWidget(), Qt::Key_Right);
    EXPECT_EQ(window.document().phaseCalc(), 3);
    EXPECT_TRUE(shows("Total Power: 12.82Amp"));
}

TEST_F(MainWindowTest, AnEditIsSeenAtOnce)
{
    window.document().timerupdate();
    window.document().setValue(QVariant::fromValue(OptionalColour(Colour{0, 0, 1, 1})), "arrangedObjects.rectColor");

    const QRect place = placeOfOutput();
    EXPECT_EQ(seen().pixelColor(place.left() + 52, place.top() + 280), QColor(0, 0, 255));
}

TEST_F(MainWindowTest, NothingIsCutOffInSmallAndLargeWindows)
{
    for (const QSize size : {QSize(800, 500), QSize(1280, 780), QSize(2560, 1440)}) {
        resizeTo(size);
        QList<QWidget *> parts{&table(), &canvas()};
        for (QRadioButton *button : window.findChildren<QRadioButton *>())
            parts.append(button);
        for (QLabel *label : window.findChildren<QLabel *>()) {
            const bool mayBeCut = label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
            if (label->isVisible() && !mayBeCut && !inspector().isAncestorOf(label)) // that one scrolls
                parts.append(label);
        }
        for (const QWidget *part : parts) {
            const QRect place(part->mapTo(&window, QPoint()), part->size());
            EXPECT_TRUE(window.rect().contains(place)) << qPrintable(part->accessibleName());
            EXPECT_GE(part->width(), part->minimumSizeHint().width());
            EXPECT_GE(part->height(), part->minimumSizeHint().height());
        }
        EXPECT_GT(placeOfOutput().width(), size.width() / 5);
    }
}

TEST_F(MainWindowTest, ChoicesHaveWhiteTitlesAndTheFillShowsTheChosenOne)
{
    click(window, "208 V");
    table().setFocus();
    for (QRadioButton *button : window.findChildren<QRadioButton *>()) {
        const QImage look = button->grab().toImage();
        const QPoint beside(4, button->height() / 2);
        EXPECT_EQ(look.pixelColor(beside), button->isChecked() ? Theme::chosen : Theme::panel)
            << qPrintable(button->text());
        EXPECT_EQ(look.pixelColor(0, beside.y()), Theme::line) << qPrintable(button->text());
        int white = 0;
        for (int y = 0; y < look.height(); ++y) {
            for (int x = 0; x < look.width(); ++x)
                white += look.pixelColor(x, y) == QColor(Qt::white) ? 1 : 0;
        }
        EXPECT_GT(white, 5) << qPrintable(button->text());
    }
}

TEST_F(MainWindowTest, TheIconShowsTheSerpentine)
{
    const QImage icon = window.windowIcon().pixmap(64).toImage();
    ASSERT_EQ(icon.size(), QSize(64, 64) * icon.devicePixelRatio());
    EXPECT_EQ(icon.scaled(64, 64).pixelColor(32, 32), Theme::accent);
    EXPECT_EQ(icon.scaled(64, 64).pixelColor(0, 0).alpha(), 0);
}

TEST_F(MainWindowTest, ControlQClosesTheWindow)
{
    pressControl(Qt::Key_Q, {});
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowTest, TabGoesThroughTheRegionsAsTheyAreRead)
{
    QStringList names;
    table().setFocus();
    for (int i = 0; i < 200 && (names.isEmpty() || window.focusWidget() != &table()); ++i) {
        names.append(window.focusWidget()->accessibleName());
        QTest::keyClick(&window, Qt::Key_Tab);
    }
    const QStringList starts = {"Layers", "Search presets", "Preset library", "Presets"};
    EXPECT_EQ(names.mid(0, 4), starts);
    const QStringList landmarks = {"Presets", "Canvas", "Name", "Edge colour", "Zoom", "Add layer", "Delete layer"};
    for (qsizetype i = 1; i < landmarks.size(); ++i)
        EXPECT_LT(names.indexOf(landmarks[i - 1]), names.indexOf(landmarks[i])) << qPrintable(landmarks[i]);
}

TEST_F(MainWindowTest, EveryControlHasANameAndATip)
{
    for (const QRadioButton *button : window.findChildren<QRadioButton *>()) {
        EXPECT_FALSE(button->text().isEmpty());
        EXPECT_FALSE(button->toolTip().isEmpty());
    }
    EXPECT_EQ(table().accessibleName(), "Layers");
    EXPECT_EQ(canvas().accessibleName(), "Canvas");
}
