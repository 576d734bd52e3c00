#include "facts/LayerChecks.h"

#include "still/LWStill.h"
#include "tests/facts/WallFixture.h"

#include <QFileInfo>

namespace {
constexpr QSize output{1920, 1080};

class LayerChecksTest : public WallFixture
{
protected:
    /// 8 x 5 panels of 128 x 64: 65,536 px a row.
    std::shared_ptr<LWScreen> goodWall()
    {
        auto made = wall({8, 5, 128, 64});
        made->drawInRect();
        return made;
    }
    static QStringList namesOf(const std::vector<Finding> &findings)
    {
        QStringList names;
        for (const Finding &finding : findings)
            names.append(finding.check);
        return names;
    }
    static void expectOne(const std::vector<Finding> &findings, const char *check, Finding::Level level,
                          const QString &sentence)
    {
        ASSERT_EQ(findings.size(), 1) << check;
        EXPECT_STREQ(findings[0].check, check);
        EXPECT_EQ(findings[0].level, level);
        EXPECT_EQ(findings[0].sentence, sentence);
        EXPECT_FALSE(findings[0].layer);
    }
};
using Level = Finding::Level;
} // namespace

TEST_F(LayerChecksTest, NothingIsWrongWithAGoodWall)
{
    EXPECT_EQ(namesOf(LayerChecks::all(*goodWall(), output)), QStringList());
    EXPECT_EQ(namesOf(LayerChecks::all(*goodWall(), {})), QStringList());
}

TEST_F(LayerChecksTest, APortThatCannotCarryOneLineIsAnErrorOfTheFirstPort)
{
    const auto made = goodWall();
    made->setPixelLimit(65'535);
    const std::vector<Finding> findings = LayerChecks::all(*made, output);
    expectOne(findings, "port-over-limit", Level::Error,
              "One row of panels has 65,536 px, a port carries 65,535; raise the pixels per port or make the rows "
              "shorter.");
    EXPECT_EQ(findings[0].port, 1);
}

TEST_F(LayerChecksTest, AWallTooLargeToDrawIsAnErrorUnlessItIsHidden)
{
    const auto made = wall({257, 1, 128, 1});
    const QString sentence = "32,896 x 1 pixels are too large to draw; make the wall smaller.";
    expectOne(LayerChecks::all(*made, output), "wall-too-large", Level::Error, sentence);
    made->setVisible(false);
    expectOne(LayerChecks::all(*made, output), "wall-too-large", Level::Warning, sentence);
}

TEST_F(LayerChecksTest, ALayerWhollyOutsideIsAWarning)
{
    const auto made = goodWall();
    made->setXpoint(1920);
    expectOne(LayerChecks::all(*made, output), "outside-output", Level::Warning,
              "It lies wholly outside the output of 1,920 × 1,080 px; change its left and top.");
}

TEST_F(LayerChecksTest, AnAddressWithoutLettersNamesNoFile)
{
    const auto still = LWStill::initWithimage(host, {});
    ASSERT_TRUE(still->setValue("ImageURL", QVariant::fromValue(Address{"", {}})));
    ASSERT_FALSE(still->ImageURL().isNil());
    expectOne(LayerChecks::all(*still, output), "picture-not-chosen", Level::Warning,
              "It names no file; choose a picture or remove the layer.");
    EXPECT_TRUE(LayerChecks::whileEditing(*still, output).empty());
}

TEST_F(LayerChecksTest, APictureThatIsMissingOrNotChosenIsAWarning)
{
    const auto still = LWStill::initWithimage(host, {});
    expectOne(LayerChecks::all(*still, output), "picture-not-chosen", Level::Warning,
              "It names no file; choose a picture or remove the layer.");
    EXPECT_TRUE(LayerChecks::whileEditing(*still, output).empty());
    still->setImageURL(Address::fromLocalFile("/gone/logo.png"));
    const QString path = QFileInfo("/gone/logo.png").absoluteFilePath(); // with its drive where there are drives
    expectOne(LayerChecks::all(*still, output), "picture-missing", Level::Warning,
              QString("The picture %1 is missing or cannot be read; choose it again.").arg(path));
    still->setImageURL(Address{"file://server/logo.png", {}});
    still->loadThumbnail();
    expectOne(LayerChecks::all(*still, output), "picture-missing", Level::Warning,
              "The picture file://server/logo.png is not on this machine, and a show asks no other. It stays in the "
              "show.");
}

TEST_F(LayerChecksTest, AChartNeedsNoFileAndOneThatCannotBeDrawnIsAWarning)
{
    const auto still = LWStill::initWithimage(host, {});
    still->setValue("chart", "rp219");
    still->setPanelWidth(64);
    still->setPanelHeight(36);
    still->drawInRect();
    EXPECT_TRUE(LayerChecks::all(*still, output).empty());
    still->setPanelHeight(40'000);
    expectOne(LayerChecks::all(*still, output), "chart-not-drawn", Level::Warning,
              "Nothing is drawn: no chart can have 64 × 40,000 px; choose another chart or size.");
    still->setValue("chart", "nonsense");
    expectOne(LayerChecks::all(*still, output), "chart-not-drawn", Level::Warning,
              "Nothing is drawn: there is no chart \"nonsense\"; choose another chart or size.");
    EXPECT_EQ(LayerChecks::whileEditing(*still, output).size(), 1U);
}

TEST_F(LayerChecksTest, WhatOnlyAFileCanClaimIsNotToldWhileEditing)
{
    const auto empty = wall({-3, 2, 10, 0});
    expectOne(LayerChecks::all(*empty, output), "wall-without-pixels", Level::Warning,
              "It has -3 × 2 panels of 10 × 0 px; each of these numbers must be 1 or more.");
    EXPECT_TRUE(LayerChecks::whileEditing(*empty, output).empty());

    const auto patternless = goodWall();
    patternless->setPattern(9);
    EXPECT_TRUE(LayerChecks::all(*patternless, output).empty());
    patternless->setDrawFlowPath(true);
    expectOne(LayerChecks::all(*patternless, output), "pattern-unknown", Level::Warning,
              "There is no pattern 9, so no data path is drawn; choose a pattern.");
    EXPECT_TRUE(LayerChecks::whileEditing(*patternless, output).empty());
}

TEST_F(LayerChecksTest, TheMostUrgentComesFirst)
{
    const auto made = wall({257, 1, 128, 1});
    made->drawInRect();
    made->setXpoint(1920);
    made->setPixelLimit(1);
    EXPECT_EQ(namesOf(LayerChecks::all(*made, output)),
              QStringList({"wall-too-large", "outside-output", "port-over-limit"}));
}
