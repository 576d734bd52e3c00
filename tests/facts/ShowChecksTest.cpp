#include "facts/ShowChecks.h"

#include "facts/PlaceChecks.h"
#include "facts/PsdLimits.h"
#include "facts/WiringChecks.h"
#include "still/LWStill.h"
#include "tests/facts/WallFixture.h"

#include <QFile>
#include <QRegularExpression>

#include <set>

namespace {
using Level = Finding::Level;

class ShowChecksTest : public WallFixture
{
protected:
    Project project(const std::vector<LayerPointer> &layers) { return {1080, 1920, layers}; }
};

void expectShow(const std::vector<Finding> &findings, const char *check, Level level, const QString &sentence)
{
    ASSERT_EQ(findings.size(), 1) << check;
    EXPECT_STREQ(findings[0].check, check);
    EXPECT_EQ(findings[0].level, level);
    EXPECT_EQ(findings[0].sentence, sentence);
    EXPECT_FALSE(findings[0].layer);
}
} // namespace

TEST_F(ShowChecksTest, EachFindingSaysWhichLayerItIs)
{
    const auto over = wall({8, 5, 128, 64});
    over->setPixelLimit(1);
    over->setLabel("over");
    const auto large = wall({257, 1, 128, 1});
    large->setLabel("large");
    const auto under = wall({8, 5, 128, 64});
    for (const auto &other : {under, large})
        other->setVisible(false); // it lies in nobody's way
    const std::vector<Finding> findings = ShowChecks::of(project({under, over, large}));
    ASSERT_EQ(findings.size(), 2);
    EXPECT_EQ(findings[0].layer, 1);
    EXPECT_STREQ(findings[0].check, "port-over-limit");
    EXPECT_EQ(findings[1].layer, 2);
    EXPECT_STREQ(findings[1].check, "wall-too-large");
}

TEST_F(ShowChecksTest, WattsBeyondCountingAreAWarning)
{
    const auto one = wall({8, 5, 128, 64});
    one->setPowerOnCell(most);
    expectShow(ShowChecks::of(project({one})), "power-uncounted", Level::Warning,
               "The watts of all walls are beyond what can be counted, and the current with them; lower the watts per "
               "panel.");
}

TEST_F(ShowChecksTest, AnOutputThatNoLayeredFileHoldsIsAWarning)
{
    EXPECT_TRUE(ShowChecks::of({2, 30'000, {}}).empty());
    expectShow(ShowChecks::of({2, 30'001, {}}), "output-size-not-for-psd", Level::Warning,
               "The show cannot be exported as PSD: an output of 30001 x 2 pixels: a PSD has 1 to 30000 on a side; "
               "change the output's size.");
    EXPECT_FALSE(PsdLimits::checkOutputSize(0, 1));
    EXPECT_TRUE(PsdLimits::checkOutputSize(1, 30'000));
}

TEST_F(ShowChecksTest, ValuesOfAnotherProgramAreANote)
{
    UnknownContent content;
    content.ofTop.emplace_back("build", ArchiveValue{qint64{4711}});
    Project show = project({});
    show.unknown = std::make_shared<const UnknownContent>(content);
    expectShow(ShowChecks::of(show), "unknown-values", Level::Note,
               "The show holds values that this version does not know; they are kept. Open it with the program that "
               "wrote them.");
}

TEST_F(ShowChecksTest, ThePageOfTheCommandLineNamesEachCheck)
{
    const auto outside = wall({1, 1, 10, 10});
    outside->drawInRect();
    outside->setXpoint(40'000);
    outside->setPixelLimit(1);
    outside->setPowerOnCell(most);
    const auto empty = wall({0, 1, 10, 10});
    empty->setPattern(9);
    empty->setDrawFlowPath(true);
    const auto gone = LWStill::initWithimage(host, {});
    gone->setImageURL(Address::fromLocalFile("/gone/logo.png"));
    const auto unknown = LWStill::initWithimage(host, {});
    unknown->setValue("chart", "nonsense");
    Project show{
        2, 30'001, {outside, outside, empty, wall({257, 1, 128, 1}), gone, LWStill::initWithimage(host, {}), unknown}};
    UnknownContent content;
    content.ofTop.emplace_back("build", ArchiveValue{qint64{4711}});
    show.unknown = std::make_shared<const UnknownContent>(content);

    std::set<QString> found;
    for (const Finding &finding : ShowChecks::of(show))
        found.insert(finding.check);
    EXPECT_EQ(found.size(), 13); // with two of the walls beside each other
    for (const auto &names : {PlaceChecks::names(), WiringChecks::names()})
        found.insert(names.begin(), names.end());

    QFile page(FIXTURES "../../docs/command-line.md");
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    std::set<QString> named;
    static const QRegularExpression row("\n\\| `([a-z][a-z-]*)` \\|");
    for (auto rows = row.globalMatch(QString::fromUtf8(page.readAll())); rows.hasNext();)
        named.insert(rows.next().captured(1));
    EXPECT_EQ(named, found);
}
