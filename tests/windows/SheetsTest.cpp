#include "tests/windows/WindowFixture.h"
#include "windows/HelpWindow.h"
#include "windows/OutputPreview.h"
#include "windows/OutputView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTest>

class SheetsTest : public WindowFixture
{
protected:
    int layers() { return window.document().arraycontroller().rowCount(); }
    static QWidget *helpWindow()
    {
        for (QWidget *shown : QApplication::topLevelWidgets()) {
            if (qobject_cast<HelpWindow *>(shown))
                return shown;
        }
        return nullptr;
    }
    OutputPreview *preview() { return window.findChild<OutputPreview *>(); }
    QImage previewed()
    {
        return preview()->findChild<OutputView *>()->grab().toImage().convertToFormat(
            QImage::Format_ARGB32_Premultiplied);
    }
};

TEST_F(SheetsTest, TheAddSheetAddsAScreenOrNothing)
{
    window.document().add();
    QWidget *sheet = QApplication::activeModalWidget();
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->windowTitle(), "Add layer");
    click(*sheet, "Cancel");
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(layers(), 1);

    window.document().add();
    click(*sheet, "Screen");
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(layers(), 2);
}

TEST_F(SheetsTest, ThePictureOfTheAddSheetIsAskedForAndMayBeCancelled)
{
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::green);
    ASSERT_TRUE(picture.save(path("plate.png")));
    window.document().add();
    QWidget *sheet = QApplication::activeModalWidget();
    const Answer cancel = [](QWidget &panel) {
        EXPECT_EQ(panel.windowTitle(), "Add image");
        panel.close();
    };
    answer([&] { sheet->findChild<QAbstractButton *>("addImage")->click(); }, {cancel});
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(layers(), 1);
    answer([&] { sheet->findChild<QAbstractButton *>("addImage")->click(); }, {entering(path("plate.png"))});
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(layers(), 2);
    EXPECT_EQ(window.document().arraycontroller().selectedLayer()->panelWidth(), 20);
}

TEST_F(SheetsTest, AboutAndHelpOpenAndClose)
{
    choose({"Help", "About Wallwright"});
    QWidget *sheet = QApplication::activeModalWidget();
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->windowTitle(), "About Wallwright");
    ASSERT_NE(sheet->focusWidget(), nullptr);
    EXPECT_EQ(sheet->focusWidget()->objectName(), "close");
    for (const char *page : {"home", "software"})
        EXPECT_EQ(sheet->findChild<QWidget *>(page)->isVisible(), LWAppDelegate::hasWebPages());
    click(*sheet, "Close");
    EXPECT_FALSE(sheet->isVisible());

    choose({"Help", "First steps"});
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    QWidget *help = helpWindow();
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    window.document().AddScreen(); // nothing is blocked
    window.document().closeHelp();
    EXPECT_FALSE(help->isVisible());
    window.document().openHelp();
    EXPECT_EQ(helpWindow(), help);
    EXPECT_TRUE(help->isVisible());
    QTest::keyClick(help, Qt::Key_Escape);
    EXPECT_FALSE(help->isVisible());
}

TEST_F(SheetsTest, ThePagesOfTheMakerAreOfferedWhereTheBuildHasThem)
{
    for (const QAction *menu : window.menuBar()->actions()) {
        for (const QAction *action : menu->menu()->actions())
            EXPECT_FALSE(action->text().contains("web") && !LWAppDelegate::hasWebPages());
    }
}

TEST_F(SheetsTest, ThePreviewShowsTheOutputAndFollowsIt)
{
    choose({"View", "Output preview"});
    ASSERT_NE(preview(), nullptr);
    EXPECT_TRUE(preview()->isVisible());
    EXPECT_EQ(preview()->windowTitle(), "Output preview");
    EXPECT_EQ(preview()->size(), QSize(533, 360)); // no wider than two thirds of a display of 800 x 800

    window.document().timerupdate();
    window.document().setValue(QVariant::fromValue(OptionalColour(Colour{0, 0, 1, 1})), "arrangedObjects.rectColor");
    const QImage picture = previewed();
    EXPECT_EQ(picture.pixelColor(12 + 100 * (picture.width() - 24) / 1920, picture.height() / 2), QColor(0, 0, 255));
}

TEST_F(SheetsTest, ThePreviewStandsBesideTheWindowWhereThereIsRoom)
{
    const auto placeBeside = [this](const QPoint &corner, int width) {
        QWidget other;
        other.setGeometry(QRect(corner, QSize(width, 100)));
        other.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&other));
        OutputPreview preview(window.desk().shown(), &other);
        preview.showInWindow();
        const QRect frame = other.frameGeometry();
        EXPECT_EQ(preview.width(), 533);
        return std::pair(preview.pos(), frame);
    };
    ASSERT_EQ(window.screen()->availableGeometry(), QRect(0, 0, 800, 800));
    const auto [right, atLeft] = placeBeside({10, 20}, 200);
    EXPECT_EQ(right, QPoint(atLeft.right() + 8, atLeft.top()));
    const auto [left, atRight] = placeBeside({590, 40}, 180);
    EXPECT_EQ(left, QPoint(atRight.left() - 8 - 533, atRight.top()));
    EXPECT_EQ(placeBeside({100, 50}, 600).first, QPoint(799 - 533 - 8, 799 - 360 - 32 - 8)); // away from the menus
}
