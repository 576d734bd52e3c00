#include "tests/windows/WindowFixture.h"
#include "windows/OutputPreview.h"
#include "windows/OutputView.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

/// The program where three displays are connected, see three-displays.json: the window's, one of 1280 x 1024, and one
/// as large as the output.
class DisplaysTest : public WindowFixture
{
protected:
    static QScreen &display(qsizetype number) { return *QGuiApplication::screens().at(number); }
    void previewOn(const QString &title) { choose({"View", "Preview on display", title}); }
    OutputPreview &preview() { return *window.findChild<OutputPreview *>(); }

    const QString stage = "2: Stage, 1,280 × 1,024";
    const QString wall = "3: Wall, 1,920 × 1,080";
};

TEST_F(DisplaysTest, TheChosenDisplayIsFilled)
{
    previewOn(stage);
    EXPECT_EQ(preview().display(), &display(1));
    EXPECT_TRUE(preview().isFullScreen());
    EXPECT_EQ(preview().screen(), &display(1));
    EXPECT_EQ(preview().geometry(), QRect(1920, 0, 1280, 1024));
    EXPECT_TRUE(shows("The display has 1,280 × 1,024 pixels, the output 1,920 × 1,080; the rest is cut or black."));
}

TEST_F(DisplaysTest, AnotherDisplayTakesItOverTheSameBringsItBack)
{
    previewOn(stage);
    previewOn(wall);
    EXPECT_EQ(preview().display(), &display(2));
    EXPECT_TRUE(preview().isFullScreen());
    EXPECT_EQ(preview().geometry(), QRect(3200, 0, 1920, 1080));
    EXPECT_FALSE(shows("The display has 1,280 × 1,024 pixels, the output 1,920 × 1,080; the rest is cut or black."));
    previewOn(wall);
    EXPECT_EQ(preview().display(), nullptr);
    EXPECT_FALSE(preview().isVisible());
}

TEST_F(DisplaysTest, FromTheSecondDisplayItGoesBackToItsWindow)
{
    choose({"View", "Output preview"});
    const QRect place = preview().geometry();
    previewOn(stage);
    previewOn(wall);
    QTest::keyClick(&preview(), Qt::Key_Escape);
    EXPECT_EQ(preview().geometry(), place);
    EXPECT_TRUE(preview().isVisible());
}

TEST_F(DisplaysTest, F11FillsTheDisplayThatWasChosenLast)
{
    previewOn(wall);
    press(Qt::Key_F11, Qt::NoModifier, {});
    EXPECT_EQ(preview().display(), nullptr);
    press(Qt::Key_F11, Qt::NoModifier, {});
    EXPECT_EQ(preview().display(), &display(2));
}

TEST_F(DisplaysTest, TheMenuMarksTheDisplayThatIsFilled)
{
    previewOn(wall);
    QStringList marked;
    for (QMenu *menu : window.menuBar()->findChildren<QMenu *>()) {
        if (menu->title().remove('&') != "Preview on display")
            continue;
        emit menu->aboutToShow();
        for (const QAction *action : menu->actions()) {
            if (action->isChecked())
                marked += action->text().remove('&');
        }
    }
    EXPECT_EQ(marked, QStringList(wall));
}

TEST_F(DisplaysTest, ADisplayThatGoesTakesThePreviewBackAndOnlyThat)
{
    previewOn(stage);
    previewOn(stage);
    previewOn(wall);
    emit qApp->screenRemoved(&display(1));
    EXPECT_EQ(preview().display(), &display(2));
    emit qApp->screenRemoved(&display(2));
    EXPECT_EQ(preview().display(), nullptr);
    EXPECT_FALSE(preview().isFullScreen());
}

TEST_F(DisplaysTest, ThePreviewFollowsTheDisplaysResolution)
{
    previewOn(wall);
    previewOn(stage);
    const QSignalSpy told(&preview(), &OutputPreview::displayDidChange);
    preview().setGeometry(1920, 0, 640, 480); // as it was before the display changed
    emit display(1).geometryChanged(display(1).geometry());
    EXPECT_EQ(preview().geometry(), QRect(1920, 0, 1280, 1024));
    EXPECT_EQ(told.size(), 1);
    emit display(2).geometryChanged(display(2).geometry()); // no longer of interest
    EXPECT_EQ(preview().geometry(), QRect(1920, 0, 1280, 1024));
    EXPECT_EQ(told.size(), 1);
}

TEST_F(DisplaysTest, AnotherResolutionLeavesItOnTheWholeDisplay)
{
    previewOn(stage);
    preview().showNormal();
    emit display(1).geometryChanged(display(1).geometry());
    EXPECT_TRUE(preview().isFullScreen());
    EXPECT_EQ(preview().geometry(), QRect(1920, 0, 1280, 1024));
}

TEST_F(DisplaysTest, ADisplayThatComesBackIsFilledAgain)
{
    previewOn(wall);
    emit qApp->screenRemoved(&display(2));
    EXPECT_TRUE(preview().isWaiting());
    EXPECT_TRUE(shows("Wall is gone; the output returns to it when it is back."));
    emit qApp->screenAdded(&display(1)); // another one
    EXPECT_EQ(preview().display(), nullptr);
    emit qApp->screenAdded(&display(2));
    EXPECT_EQ(preview().display(), &display(2));
    EXPECT_FALSE(preview().isWaiting());
}

TEST_F(DisplaysTest, F11OrAnotherDisplayEndsTheWaiting)
{
    previewOn(wall);
    emit qApp->screenRemoved(&display(2));
    press(Qt::Key_F11, Qt::NoModifier, {});
    emit qApp->screenAdded(&display(2));
    EXPECT_EQ(preview().display(), nullptr);
    previewOn(wall);
    emit qApp->screenRemoved(&display(2));
    previewOn(stage);
    emit qApp->screenAdded(&display(2));
    EXPECT_EQ(preview().display(), &display(1));
}

TEST_F(DisplaysTest, InThePreviewF11EndsItAndNoOtherShortcutIsTheWindows)
{
    previewOn(wall);
    QTest::keyClick(&preview(), Qt::Key_F11);
    EXPECT_EQ(preview().display(), nullptr);
    previewOn(wall);
    preview().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&preview()));
    QTest::keyClick(&preview(), Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(window.document().allScreensArray().size(), 1U);
    EXPECT_EQ(preview().display(), &display(2));
}

TEST_F(DisplaysTest, ThePreviewOpensBesideTheWindow)
{
    window.setGeometry(40, 60, 700, 600);
    choose({"View", "Output preview"});
    EXPECT_FALSE(preview().geometry().intersects(window.frameGeometry()));
    preview().move(5, 5);
    preview().close();
    choose({"View", "Output preview"});
    EXPECT_EQ(preview().pos(), QPoint(5, 5)); // where the person has put it
}

TEST_F(DisplaysTest, AScaledDisplayIsToldInsteadOfAWrongSize)
{
    EXPECT_EQ(OutputPreview::misfit({1920, 1080}, 1, false, {1920, 1080}), QString());
    EXPECT_EQ(OutputPreview::misfit({1745, 982}, 1.1, false, {1920, 1080}), QString());
    EXPECT_EQ(OutputPreview::misfit({1536, 864}, 1, true, {1920, 1080}),
              "The display has 1,536 × 864 pixels, the output 1,920 × 1,080; the rest is cut or black.");
    const QString scaled = OutputPreview::misfit({1280, 720}, 2, true, {1920, 1080});
    EXPECT_TRUE(scaled.startsWith("The desktop scales this display"));
    EXPECT_FALSE(scaled.contains("2,560"));
}
