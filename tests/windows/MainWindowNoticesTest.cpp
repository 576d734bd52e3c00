#include "canvas/LWCanvasImageView.h"
#include "formats/ProjectFile.h"
#include "tests/windows/WindowFixture.h"
#include "windows/NoticeBar.h"
#include "windows/PowerBar.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QUrl>

#include <algorithm>

class MainWindowNoticesTest : public WindowFixture
{
protected:
    /// What a program leaves that ends after an edit.
    void leaveWork(int width)
    {
        WindowPerson nobody(window);
        LWAppDelegate ended(nobody, RecoveryFolder::standardPath());
        ended.applicationDidFinishLaunching();
        ended.arraycontroller().setValue(width, "arrangedObjects.panelWidth");
    }
    static NoticeBar *notice(const MainWindow &of)
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        NoticeBar *shown = of.findChild<NoticeBar *>();
        return shown && shown->isVisible() ? shown : nullptr;
    }
    static QPushButton &button(const NoticeBar &bar, const QString &text)
    {
        for (QPushButton *button : bar.findChildren<QPushButton *>()) {
            if (button->text().remove('&') == text)
                return *button;
        }
        qFatal("the notice has no such button");
    }
    static QMenu &recoverMenu(const MainWindow &of)
    {
        for (QMenu *menu : of.menuBar()->findChildren<QMenu *>()) {
            if (menu->title().remove('&') == "Recover")
                return *menu;
        }
        qFatal("there is no such menu");
    }
    /// The window of a program that has just started.
    static void start(MainWindow &next)
    {
        next.start();
        if (RecoveryFolder::found(RecoveryFolder::standardPath()).empty())
            return QTest::qWait(700); // nothing is told
        EXPECT_TRUE(QTest::qWaitFor([&] { return notice(next) != nullptr; }, 20'000));
    }
    static int width(MainWindow &of) { return of.document().arraycontroller().selectedLayer()->panelWidth(); }
};

TEST_F(MainWindowNoticesTest, UnsavedWorkOfAnEndedProgramIsOfferedAndRecovered)
{
    leaveWork(77);
    MainWindow next;
    start(next);
    NoticeBar *bar = notice(next);
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(bar->accessibleName().startsWith("Unsaved work was left behind: Untitled, "))
        << qPrintable(bar->accessibleName());
    EXPECT_EQ(width(next), 128); // nothing asks, nothing blocks
    QTest::mouseClick(&button(*bar, "Recover"), Qt::LeftButton);
    EXPECT_EQ(width(next), 77);
    EXPECT_TRUE(next.isWindowModified());
    EXPECT_EQ(notice(next), nullptr);
}

TEST_F(MainWindowNoticesTest, AllUnsavedWorkIsOffered)
{
    leaveWork(77);
    leaveWork(78);
    MainWindow next;
    start(next);
    NoticeBar *bar = notice(next);
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->accessibleName().count("Untitled, "), 2);
    QMenu *menu = button(*bar, "Recover").menu();
    ASSERT_NE(menu, nullptr);
    menu->actions()[1]->trigger();
    const int recovered = width(next);
    EXPECT_TRUE(recovered == 77 || recovered == 78) << recovered;
    QApplication::processEvents();
    bar = notice(next);
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->accessibleName().count("Untitled, "), 1);
    QTest::mouseClick(&button(*bar, "Recover"), Qt::LeftButton);
    EXPECT_EQ(width(next), 77 + 78 - recovered);
}

TEST_F(MainWindowNoticesTest, WhoDoesNotRecoverNowCanLater)
{
    leaveWork(77);
    MainWindow next;
    start(next);
    ASSERT_NE(notice(next), nullptr);
    QTest::mouseClick(&button(*notice(next), "Not now"), Qt::LeftButton);
    EXPECT_EQ(notice(next), nullptr);
    next.makeLateParts();
    QMenu &recover = recoverMenu(next);
    emit recover.aboutToShow();
    answer([&] { recover.actions().last()->trigger(); }, {readingAndPressing("Cancel")});
    EXPECT_EQ(said, "Forget all unsaved work of ended programs?\nThis cannot be undone.");
    emit recover.aboutToShow();
    ASSERT_EQ(recover.actions().size(), 3);
    recover.actions().first()->trigger();
    EXPECT_EQ(width(next), 77);
    emit recover.aboutToShow();
    ASSERT_EQ(recover.actions().size(), 1);
    EXPECT_EQ(recover.actions().first()->text(), "No unsaved work");
}

TEST_F(MainWindowNoticesTest, UnsavedWorkCanBeForgotten)
{
    leaveWork(77);
    QMenu &recover = recoverMenu(window);
    emit recover.aboutToShow();
    answer([&] { recover.actions().last()->trigger(); }, {readingAndPressing("Forget")});
    emit recover.aboutToShow();
    EXPECT_EQ(recover.actions().first()->text(), "No unsaved work");
}

TEST_F(MainWindowNoticesTest, WhatWasDoneIsToldUntilTheNextEdit)
{
    pressControl(Qt::Key_S, {entering(path("wall"))});
    EXPECT_TRUE(shows("Saved wall.Orv"));
    window.document().AddScreen();
    EXPECT_FALSE(shows("Saved wall.Orv"));

    window.findChild<PowerBar *>()->showFailure("It could not be done");
    window.document().AddScreen();
    EXPECT_TRUE(shows("It could not be done"));
}

TEST_F(MainWindowNoticesTest, ADroppedAddressThatIsNoFileIsTold)
{
    resizeTo({2560, 1440});
    QMimeData dragged;
    dragged.setUrls({QUrl("https://pictures.example/plate.png")});
    QDragEnterEvent enter(QPoint(700, 400), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QDropEvent drop(QPointF(700, 400), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    const auto labels = window.findChildren<QLabel *>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
        return label->accessibleName() == "Cannot place https://pictures.example/plate.png: it is no file on this "
                                          "computer; save it here first, then drop that.";
    }));
    EXPECT_EQ(window.document().arraycontroller().rowCount(), 1);
}

TEST_F(MainWindowNoticesTest, AFileThatAnotherProgramHasChangedIsNotReplacedUnasked)
{
    const auto bytes = [this] {
        QFile file(path("wall.Orv"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const auto saveOverTheirs = [&] {
        QFile::remove(path("wall.Orv"));
        greenProject("wall.Orv");
        const QByteArray theirs = bytes();
        window.document().AddScreen();
        pressControl(Qt::Key_S, {}); // asks nothing, blocks nothing
        EXPECT_EQ(bytes(), theirs);
    };
    pressControl(Qt::Key_S, {entering(path("wall"))});
    saveOverTheirs();
    NoticeBar *bar = notice(window);
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->accessibleName(), "wall.Orv was changed by another program.");
    EXPECT_TRUE(window.isWindowModified());
    QTest::mouseClick(&button(*bar, "Save anyway"), Qt::LeftButton);
    EXPECT_EQ(ProjectFile::read(path("wall.Orv"), window.document())->layers.size(), 2U);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(notice(window), nullptr);

    saveOverTheirs();
    answer([&] { QTest::mouseClick(&button(*notice(window), "Save as..."), Qt::LeftButton); }, {pressing("Cancel")});
    EXPECT_EQ(notice(window), nullptr);

    saveOverTheirs();
    QTest::mouseClick(&button(*notice(window), "Open theirs"), Qt::LeftButton);
    EXPECT_EQ(window.document().arraycontroller().layer(0)->label(), "Green");
    EXPECT_EQ(window.document().arraycontroller().rowCount(), 1);
    EXPECT_EQ(notice(window), nullptr);
}

TEST_F(MainWindowNoticesTest, AfterAClickOnABarTheKeysGoWhereTheyWent)
{
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    pressControl(Qt::Key_S, {entering(path("wall"))});
    QFile::remove(path("wall.Orv"));
    greenProject("wall.Orv");
    window.document().AddScreen();
    canvas().setFocus();
    pressControl(Qt::Key_S, {});
    ASSERT_NE(notice(window), nullptr);
    QTest::mouseClick(&button(*notice(window), "Save anyway"), Qt::LeftButton);
    ASSERT_EQ(notice(window), nullptr);
    EXPECT_TRUE(canvas().hasFocus());
}
