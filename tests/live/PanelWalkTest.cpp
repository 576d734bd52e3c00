#include "live/PanelWalk.h"

#include <gtest/gtest.h>

namespace {
ChartPanel panelOn(const QString &name, const QString &port, int number)
{
    return {QRect(0, 0, 8, 8), name, port, number};
}

/// Two cables, and a panel on none; not in their order.
std::vector<ChartPanel> panels()
{
    return {panelOn("B1", "A1", 2), panelOn("A1", "A1", 1), panelOn("C1", "", 0), panelOn("D1", "A2", 1)};
}
} // namespace

TEST(PanelWalk, GoesAlongTheCablesAndRound)
{
    PanelWalk walk;
    EXPECT_EQ(walk.words(), QString());
    walk.goOn();
    walk.goBack();
    walk.setPanels(panels());
    ASSERT_EQ(walk.runs().size(), 2U);
    QStringList words{walk.words()};
    for (int step = 0; step < 3; ++step) {
        walk.goOn();
        words.append(walk.words());
    }
    EXPECT_EQ(words, (QStringList{"A1, A1.1 of 2", "B1, A1.2 of 2", "D1, A2.1 of 1", "A1, A1.1 of 2"}));
    walk.goBack();
    EXPECT_EQ(walk.words(), "D1, A2.1 of 1");
    walk.goBack();
    EXPECT_EQ(walk.words(), "B1, A1.2 of 2");
    walk.choose(1);
    EXPECT_EQ(walk.words(), "D1, A2.1 of 1");
}

TEST(PanelWalk, PortsComeInTheirOrder)
{
    PanelWalk walk;
    walk.setPanels({panelOn("", "B1", 1), panelOn("", "A10", 1), panelOn("", "A2", 1), panelOn("", "MAIN 1", 1)});
    QStringList ports;
    for (const PanelWalk::Run &run : walk.runs())
        ports.append(run.port);
    EXPECT_EQ(ports, (QStringList{"A2", "A10", "B1", "MAIN 1"}));
}

TEST(PanelWalk, StaysAtItsPlaceWhenTheShowChanges)
{
    PanelWalk walk;
    walk.setPanels(panels());
    walk.goOn();
    walk.setPanels({panelOn("Z9", "A0", 1), panelOn("A1", "A1", 1), panelOn("B1", "A1", 2), panelOn("B2", "A1", 3)});
    EXPECT_EQ(walk.words(), "B1, A1.2 of 3");
    walk.setPanels({panelOn("A1", "A1", 1)});
    EXPECT_EQ(walk.words(), "A1, A1.1 of 1");
    walk.setPanels({panelOn("D1", "A2", 1)});
    EXPECT_EQ(walk.words(), "D1, A2.1 of 1");
    walk.setPanels({});
    EXPECT_EQ(walk.panel(), nullptr);
}

TEST(PanelWalk, MarksStayUntilTheyAreCleared)
{
    PanelWalk walk;
    walk.toggleMark();
    walk.setPanels(panels());
    walk.goOn();
    walk.toggleMark();
    EXPECT_TRUE(walk.isMarked());
    walk.goOn();
    EXPECT_FALSE(walk.isMarked());
    walk.toggleMark();
    EXPECT_EQ(walk.marks(), (QStringList{"A1.2 B1", "A2.1 D1"}));
    walk.toggleMark();
    walk.setPanels({});
    EXPECT_EQ(walk.marks(), QStringList("A1.2 B1"));
    walk.setMarks({});
    EXPECT_EQ(walk.marks(), QStringList());
}
