#include "tests/windows/PortsFixture.h"
#include "windows/PowerBar.h"

namespace {
/// Walls that a processor feeds: MAIN from A1 to A5, SIDE from A6.
class InspectorSignalTest : public PortsFixture
{
protected:
    InspectorSignalTest() { addProcessor(); }

    QString told() { return window.findChild<QLabel *>(PowerBar::messageName)->accessibleName(); }
    int kept(qsizetype row) { return layer(row)->value("firstPort").toInt(); }
};
} // namespace

TEST_F(InspectorSignalTest, PortsThatAreKeptStayWhateverOtherWallsDo)
{
    ASSERT_EQ(kept(1), 0);
    list().setSelectionIndex(1);
    click(inspector(), "Keep these ports");
    EXPECT_EQ(kept(1), 6);
    EXPECT_EQ(kept(0), 0);
    EXPECT_EQ(undoText(), "keeping of ports");
    EXPECT_EQ(control<NumberField>("First port").value(), 6);
    EXPECT_EQ(told(), "");
    undo();
    EXPECT_EQ(kept(1), 0);
}

TEST_F(InspectorSignalTest, PortsThatDoNotFollowEachOtherAreToldAndNotKept)
{
    layer(1)->setValue("firstPort", 3);
    document.finishEdit("first port");
    const int steps = document.undoStack().index();
    click(inspector(), "Keep these ports");
    EXPECT_EQ(told(), "The ports of MAIN do not follow each other; take its cables as yours to keep them.");
    EXPECT_EQ(kept(0), 0);
    EXPECT_EQ(document.undoStack().index(), steps);
}
