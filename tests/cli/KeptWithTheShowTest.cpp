#include "cli/CommandLineHost.h"
#include "formats/ProjectFile.h"
#include "screen/LWScreen.h"
#include "tests/cli/CommandRun.h"

namespace {
/// What a show keeps beside its layers. Its wall draws 10 x 240 W.
class KeptWithTheShow : public CommandTest
{
protected:
    QString showWith(const std::optional<Supply> &supply, const std::shared_ptr<const UnknownContent> &unknown = {})
    {
        const auto wall = LWScreen::init(host);
        wall->setCol(10);
        wall->setRow(1);
        wall->setPowerOnCell(240);
        wall->setScreenFontEnable(true);
        wall->setScreenFontSize(12);
        wall->setSfColor(NamedColour::white);
        wall->setShowCurrent(true);
        wall->drawInRect();
        EXPECT_TRUE(ProjectFile::write(path("show.Orv"), {100, 500, {wall}, supply, {}, unknown}).has_value());
        return path("show.Orv");
    }
    QImage converted(const QStringList &options)
    {
        const Outcome outcome = runCommand(QStringList{"convert", path("show.Orv"), path("out.png")} + options);
        EXPECT_EQ(outcome.status, 0) << qPrintable(outcome.err);
        return picture("out.png");
    }

    CommandLineHost host{0, 0, 0};
};
} // namespace

TEST_F(KeptWithTheShow, InfoCountsWithTheSupplyOfTheShow)
{
    const QString show = showWith(Supply{240, 1});
    EXPECT_TRUE(runCommand({"info", show}).out.contains("Total Power: 10.00Amp (2,400 W at 240 V, 1 phase)"))
        << qPrintable(runCommand({"info", show}).out);
    EXPECT_TRUE(runCommand({"info", show, "--voltage", "120"})
                    .out.contains("Total Power: 20.00Amp (2,400 W at 120 V, 1 phase)"));
    EXPECT_TRUE(
        runCommand({"info", show, "--phases", "3"}).out.contains("Total Power: 3.33Amp (2,400 W at 240 V, 3 phases)"));
}

TEST_F(KeptWithTheShow, PicturesShowTheSupplyOfTheShow)
{
    showWith(Supply{240, 3});
    const QImage chosen = converted({});
    EXPECT_EQ(converted({"--voltage", "240", "--phases", "3"}), chosen);
    EXPECT_NE(converted({"--voltage", "110"}), chosen);

    showWith({});
    EXPECT_NE(converted({}), chosen);
    EXPECT_EQ(converted({"--voltage", "240", "--phases", "3"}), chosen);
}

TEST_F(KeptWithTheShow, TheTextFormTellsWhatItCannotHold)
{
    UnknownContent content;
    content.ofTop.emplace_back("build", ArchiveValue{qint64{4711}});
    const QString show = showWith({}, std::make_shared<const UnknownContent>(content));

    const Outcome outcome = runCommand({"convert", show, path("show.json")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.err.contains("show.Orv that this version does not know are left out."));
    EXPECT_TRUE(runCommand({"convert", show, path("again.Orv")}).err.isEmpty());
    EXPECT_EQ(bytes("again.Orv"), bytes("show.Orv"));
}

TEST_F(KeptWithTheShow, AProjectFileTellsWhatItCannotHoldOfANewerText)
{
    const QByteArray wall = R"({"class": "LWScreen", "bend": 1.50})";
    const QString show = file("show.json", R"({"format": 3, "layers": [)" + wall + "]}");

    EXPECT_EQ(runCommand({"convert", show, path("again.json")}).err, "");
    EXPECT_EQ(runCommand({"convert", path("again.json"), path("third.json")}).err, "");
    EXPECT_TRUE(bytes("again.json").contains(",\n      \"bend\": 1.50\n"));
    EXPECT_EQ(bytes("third.json"), bytes("again.json"));

    const Outcome outcome = runCommand({"convert", show, path("show.Orv")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.err.contains("show.Orv: values of " + show + " that this version does not know are left out."))
        << qPrintable(outcome.err);
    EXPECT_TRUE(runCommand({"check", show}).out.contains("does not know; a project file does not keep them."));
}
