#include "windows/displays/WallWalk.h"

#include "windows/displays/WalkStrip.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {
/// A walk along two cables of two panels each, A1 and A2, and its controls in a window.
class WallWalkTest : public ::testing::Test
{
protected:
    WallWalkTest()
    {
        walk.setOn(true);
        walk.setPanels({panel("A1", 1), panel("A1", 2), panel("A2", 1), panel("A2", 2)});
        strip.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&strip));
    }

    static ChartPanel panel(const QString &port, int number)
    {
        const QString name = QString("%1%2").arg(port == "A1" ? 'C' : 'D').arg(number);
        return {QRect(10 * number, 0, 10, 10), name, port, number};
    }
    QString words() const { return walk.light() ? walk.light()->words.join(' ') : QString("off"); }

    WallWalk walk;
    WalkStrip strip{walk};
    QComboBox &cable = *strip.findChild<QComboBox *>();
};
} // namespace

TEST_F(WallWalkTest, ACableThatIsChosenIsWalkedFromItsFirstPanel)
{
    EXPECT_EQ(words(), "C1 A1.1");
    QTest::keyClick(&strip, Qt::Key_PageDown);
    EXPECT_EQ(words(), "C2 A1.2");
    EXPECT_EQ(cable.currentText(), "A1");
    cable.setFocus();
    QTest::keyClick(&cable, Qt::Key_Down);
    EXPECT_EQ(words(), "D1 A2.1");
    EXPECT_EQ(cable.currentText(), "A2");
    QTest::keyClick(&cable, Qt::Key_PageUp); // of the walk, wherever the cursor is
    EXPECT_EQ(words(), "C2 A1.2");
    EXPECT_EQ(cable.currentText(), "A1");
    walk.choose(-1); // there was none to choose
    EXPECT_EQ(words(), "C1 A1.1");
}

TEST_F(WallWalkTest, KeysWithOthersHeldAreNoneOfIts)
{
    for (const Qt::KeyboardModifier held : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        QTest::keyClick(&strip, Qt::Key_PageDown, held);
        EXPECT_EQ(words(), "C1 A1.1") << held;
        QTest::keyClick(&strip, Qt::Key_X, held);
        EXPECT_FALSE(walk.walk().isMarked()) << held;
    }
    QTest::keyClick(&strip, Qt::Key_PageDown, Qt::KeypadModifier);
    EXPECT_EQ(words(), "C2 A1.2");
}

TEST_F(WallWalkTest, WhoTurnsItOnAgainChangesNothing)
{
    walk.setByItself(true);
    const QSignalSpy changes(&walk, &WallWalk::changed);
    walk.setOn(true);
    EXPECT_EQ(changes.size(), 0);
    EXPECT_TRUE(walk.isByItself());
    walk.setOn(false);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(words(), "off");
    QTest::keyClick(&strip, Qt::Key_PageDown);
    EXPECT_EQ(changes.size(), 1);
}
