#include "tests/cli/CommandRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
class HostileInfoTest : public CommandTest
{
protected:
    QString infoOf(const QByteArray &more, const QStringList &options = {}) const
    {
        const Outcome outcome = runCommand(QStringList{"info", show(plainWall(more))} + options);
        EXPECT_EQ(outcome.status, 0) << qPrintable(outcome.err);
        EXPECT_EQ(outcome.err, QString());
        return outcome.out;
    }
};
} // namespace

TEST_F(HostileInfoTest, TwoBillionColumnsAreToldAtOnceAsTooLargeToDraw)
{
    const QString info = infoOf(R"("col": 2000000000, "row": 2000000000, "pixelLimit": 600000000000,
                                   "hiddenBoxes": ["1999999999,1999999999", "2000000000,0"])");

    EXPECT_TRUE(info.contains(
        "  Size       20,000,000,000 x 20,000,000,000 pixels are too large to draw; make the wall smaller\n"));
    EXPECT_TRUE(info.contains("4,000,000,000,000,000,000 in all, 1 of them hidden\n"));
    EXPECT_TRUE(
        info.contains("  Ports      666,666,667, limit 600,000,000,000 pixels\n"
                      "             ports 1 to 666,666,666: 3 rows, 6,000,000,000 panels, 600,000,000,000 pixels each\n"
                      "             port 666,666,667: 2 rows, 4,000,000,000 panels, 400,000,000,000 pixels\n"));
}

TEST_F(HostileInfoTest, PixelsBeyondSixtyFourBitsAreNotCounted)
{
    const QByteArray sizes = R"("col": 2000000000, "row": 2000000000, "pixelLimit": 0)";

    EXPECT_TRUE(infoOf(sizes).contains("4,000,000,000,000,000,000 panels, more pixels than can be counted\n"));
    const QJsonDocument json = QJsonDocument::fromJson(infoOf(sizes, {"--json"}).toUtf8());
    EXPECT_TRUE(json["layers"][0]["ports"][0]["pixels"].isNull());
    EXPECT_EQ(json["layers"][0]["tooLargeToDraw"], true);
}

TEST_F(HostileInfoTest, SizesBelowOneHaveNoPanelsAndNoPorts)
{
    const QString info = infoOf(R"("col": -3, "row": 2)");
    EXPECT_TRUE(info.contains("  Size       -30 x 20 pixels\n  Panels     -3 x 2 of 10 x 10 pixels, 0 in all\n"));
    EXPECT_TRUE(info.contains("  Ports      none\n"));
    EXPECT_TRUE(infoOf(R"("panelWidth": 0)").contains("  Ports      none\n"));
    EXPECT_TRUE(infoOf(R"("panelHeight": -2147483648, "panelWidth": -2147483648)").contains("  Ports      none\n"));
}

TEST_F(HostileInfoTest, ALimitBelowZeroLeavesTheRestToOnePort)
{
    // -500 / 100 pixels / 2 panels: -2 rows on a port; 5 / -2 = -2 full ports; 5 - 4 = 1 row is left.
    EXPECT_TRUE(infoOf(R"("row": 5, "pixelLimit": -500)")
                    .contains("  Ports      1, limit -500 pixels\n"
                              "             port 1: 1 row, 2 panels, 200 pixels\n"));
}

TEST_F(HostileInfoTest, WattsWrapAsInTheProgramsOwnSum)
{
    // 65536 x 65536 x 1 W is 2^32, which 32 bits hold as 0.
    EXPECT_TRUE(infoOf(R"("col": 65536, "row": 65536, "powerOnCell": 1)").contains("  Power      0 W, 1 W a panel\n"));
}

TEST_F(HostileInfoTest, ManyLayersAreToldInAMoment)
{
    QByteArray layers = plainWall();
    for (int i = 1; i < 1000; ++i)
        layers += ", " + plainWall(R"("col": 100000, "row": 100000)");

    const Outcome outcome = runCommand({"info", show(layers)});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.contains("\nLayer 999: screen without a name\n"));
}
