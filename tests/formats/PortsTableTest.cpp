#include "formats/PortsTable.h"

#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>

namespace {
class PortsTableTest : public ::testing::Test
{
protected:
    PortsTableTest()
    {
        ProcessorSettings settings;
        settings.name = "A";
        settings.model = "MX40 Pro";
        settings.card = "other";
        show.processors = {settings};
    }

    LayerPointer add(const QString &name, int columns, int rows)
    {
        LayerPointer wall = LWScreen::init(host);
        wall->setLabel(name);
        wall->setCol(columns);
        wall->setRow(rows);
        wall->setPanelWidth(100);
        wall->setPanelHeight(50);
        wall->setXpoint(-20);
        wall->setYpoint(30);
        wall->setValue("processor", "A");
        wall->setValue("split", "panels");
        show.layers.push_back(wall);
        return wall;
    }
    QList<QByteArray> lines() const { return PortsTable::encode(show).split('\n'); }

    TestHost host;
    Project show{1080, 1920, {}};
};
} // namespace

TEST_F(PortsTableTest, HasARowForEachPanelThatIsOnInTheOrderOfTheCable)
{
    const auto wall = std::static_pointer_cast<LWScreen>(add("MAIN", 2, 2));
    wall->setHiddenBoxes(QStringList{"0,1"});
    EXPECT_EQ(PortsTable::encode(show), "processor,port,backup,order,wall,panel,column,row,x,y,width,height,pixels\r\n"
                                        "A,1,,1,MAIN,A1,1,1,-20,30,100,50,5000\r\n"
                                        "A,1,,2,MAIN,B2,2,2,80,80,100,50,5000\r\n"
                                        "A,1,,3,MAIN,A2,1,2,-20,80,100,50,5000\r\n");
}

TEST_F(PortsTableTest, ACableThatRunsAcrossWallsIsCountedOn)
{
    const CableRuns first({{{"A", 7}, 1, {{0, 0}}}});
    const CableRuns second({{{"A", 7}, 2, {{0, 0}}}});
    for (const CableRuns &runs : {second, first}) {
        const LayerPointer wall = add(runs == first ? "ONE" : "TWO", 1, 1);
        wall->setValue("split", "hand");
        wall->setValue("runs", QVariant::fromValue(runs));
    }
    EXPECT_EQ(lines()[1], "A,7,,1,ONE,A1,1,1,-20,30,100,50,5000\r");
    EXPECT_EQ(lines()[2], "A,7,,2,TWO,A1,1,1,-20,30,100,50,5000\r");
    show.processors[0].backup = ProcessorSettings::Backup::Loop;
    EXPECT_TRUE(lines()[1].startsWith("A,7,A17,1,ONE")) << lines()[1].constData();
}

TEST_F(PortsTableTest, WallsWithoutAProcessorAreLeftOut)
{
    add("MAIN", 2, 2)->setValue("processor", {});
    EXPECT_EQ(lines().size(), 2);
}

TEST_F(PortsTableTest, TextsAreQuotedAndNoFormula)
{
    add("a \"b\", c", 1, 1);
    EXPECT_EQ(lines()[1], "A,1,,1,\"a \"\"b\"\", c\",A1,1,1,-20,30,100,50,5000\r");
    for (const char *name : {"=1+1", "+1", "-1", "@x"}) {
        show.layers[0]->setLabel(name);
        EXPECT_TRUE(lines()[1].startsWith(QByteArray("A,1,,1,'") + name + ",A1,")) << lines()[1].constData();
    }
    show.layers[0]->setLabel("two\nlines");
    EXPECT_TRUE(PortsTable::encode(show).contains(",\"two\nlines\","));
}
