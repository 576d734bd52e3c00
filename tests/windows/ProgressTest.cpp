#include "windows/ProgressDialog.h"
#include "windows/WindowPerson.h"

#include <QApplication>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>
#include <thread>

namespace {
/// Work that only reports, over a window of its own.
class ProgressTest : public ::testing::Test
{
protected:
    ProgressTest() { window.show(); }

    /// Works for longer than the person's patience.
    bool workLong(double done)
    {
        person.showProgress("Exporting show.psd", 0);
        std::this_thread::sleep_for(WindowPerson::patience + std::chrono::milliseconds(20));
        return person.showProgress("Exporting show.psd", done);
    }
    ProgressDialog *dialog() { return window.findChild<ProgressDialog *>(); }

    QMainWindow window;
    WindowPerson person{window};
};
} // namespace

TEST_F(ProgressTest, ShortWorkShowsNothing)
{
    EXPECT_TRUE(person.showProgress("Exporting show.psd", 0));
    EXPECT_TRUE(person.showProgress("Exporting show.psd", 0.5));
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_TRUE(person.showProgress("Exporting show.psd", 1));
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(ProgressTest, LongWorkSaysWhatItIsAndHowMuchIsDone)
{
    EXPECT_TRUE(workLong(0.3));

    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), dialog());
    EXPECT_EQ(dialog()->labelText(), "Exporting show.psd");
    EXPECT_EQ(dialog()->findChild<QProgressBar *>()->text(), "30%");

    EXPECT_TRUE(person.showProgress("Exporting show.psd", 0.9));
    EXPECT_EQ(dialog()->findChild<QProgressBar *>()->text(), "90%");
}

TEST_F(ProgressTest, TheEndClosesItAndTheNextWorkBeginsAnew)
{
    workLong(0.3);
    EXPECT_TRUE(person.showProgress("Exporting show.psd", 1));
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);

    EXPECT_TRUE(person.showProgress("Exporting next.psd", 0));
    EXPECT_EQ(dialog(), nullptr);
    person.showProgress("Exporting next.psd", 1);
}

TEST_F(ProgressTest, EscapeAndTheWindowsCloseButtonCancelToo)
{
    workLong(0.3);
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog()));
    QTest::keyClick(dialog(), Qt::Key_Escape);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_FALSE(person.showProgress("Exporting show.psd", 0.4));
    person.showProgress("Exporting show.psd", 1);

    workLong(0.3);
    dialog()->close();
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_FALSE(person.showProgress("Exporting show.psd", 0.4));
    person.showProgress("Exporting show.psd", 1);
}

TEST_F(ProgressTest, TheWindowStaysShutUntilCancelledWorkHasEnded)
{
    workLong(0.3);
    QTest::mouseClick(dialog()->findChild<QPushButton *>(), Qt::LeftButton);

    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), dialog());
    EXPECT_FALSE(person.showProgress("Exporting show.psd", 0.4));
    EXPECT_FALSE(person.showProgress("Exporting show.psd", 0.5));
    person.showProgress("Exporting show.psd", 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}
