#include "windows/ports/PortsModel.h"

#include <gtest/gtest.h>

namespace {
/// A port that has used 900 of 1,200 px.
PortRow portRow()
{
    PortRow row;
    row.port = "A1";
    row.counted = 900;
    row.limit = 1'200;
    return row;
}

class PortsModelTest : public ::testing::Test
{
protected:
    QString cell(PortsModel::Column column, int role = Qt::DisplayRole)
    {
        return model.index(0, column).data(role).toString();
    }

    PortsModel model;
};
} // namespace

TEST_F(PortsModelTest, TheRuleThatCostsMostIsCalledByItsName)
{
    using Rule = RuleCost::Rule;
    const std::pair<Rule, const char *> names[] = {
        {Rule::Streams, "streams, 12,345 px"},        {Rule::Rectangle, "rectangle, 12,345 px"},
        {Rule::LowLatency, "low latency, 12,345 px"}, {Rule::NarrowPort, "narrow port, 12,345 px"},
        {Rule::Headroom, "headroom, 12,345 px"},      {Rule::PanelCount, "panels per port, 12,345 px"},
    };
    for (const auto &[rule, name] : names) {
        PortRow row = portRow();
        row.costliest = RuleCost{rule, 12'345};
        model.show({row}, {});
        EXPECT_EQ(cell(PortsModel::Cost), name);
        EXPECT_EQ(cell(PortsModel::Cost, Qt::ToolTipRole), name); // which may be cut off
    }
}

TEST_F(PortsModelTest, TheTipOfWhatIsFreeAndUsedTellsOfWhat)
{
    model.show({portRow()}, {});
    EXPECT_EQ(cell(PortsModel::Free), "300");
    EXPECT_EQ(cell(PortsModel::Used), "75 %");
    EXPECT_EQ(cell(PortsModel::Free, Qt::ToolTipRole), "900 of 1,200 px");
    EXPECT_EQ(cell(PortsModel::Used, Qt::ToolTipRole), "900 of 1,200 px");
    EXPECT_EQ(cell(PortsModel::Port, Qt::ToolTipRole), "A1");
    EXPECT_EQ(cell(PortsModel::Port, Qt::AccessibleDescriptionRole), "");
}

TEST_F(PortsModelTest, WhyAPortHasNoFigureIsItsTipAndReadOutInTheWholeRow)
{
    PortRow row = portRow();
    row.limit.reset();
    row.whyNoLimit = "No figure is published.";
    model.show({row}, {});
    EXPECT_EQ(cell(PortsModel::Free, Qt::ToolTipRole), "No figure is published.");
    EXPECT_EQ(cell(PortsModel::Used, Qt::ToolTipRole), "No figure is published.");
    for (int column = 0; column < PortsModel::ColumnCount; ++column)
        EXPECT_EQ(model.index(0, column).data(Qt::AccessibleDescriptionRole), "No figure is published.") << column;
}

TEST_F(PortsModelTest, EachHeadHasATipAndRowsHaveNone)
{
    EXPECT_EQ(model.headerData(PortsModel::Used, Qt::Horizontal, Qt::DisplayRole), "Used");
    EXPECT_EQ(model.headerData(PortsModel::Used, Qt::Horizontal, Qt::ToolTipRole), "Of the port's limit");
    EXPECT_EQ(model.headerData(PortsModel::Used, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignVCenter | Qt::AlignRight));
    EXPECT_FALSE(model.headerData(0, Qt::Vertical, Qt::ToolTipRole).isValid());
}
