#include "facts/UnknownValues.h"
#include "formats/ProcessorList.h"
#include "formats/ProjectFile.h"
#include "tests/formats/ProjectTextFixture.h"

namespace {
UnknownPartPointer archived(const QString &key)
{
    auto part = std::make_shared<ArchiveObject>(QString());
    part->encode(key, {QString("of a newer version")});
    return std::make_shared<const UnknownPart>(UnknownPart{part, {}});
}

class UnknownParts : public ProjectTextFixture
{
protected:
    /// A wall by hand on processor A; both know more than we do.
    Project show(const UnknownPartPointer &ofRun, const UnknownPartPointer &ofProcessor)
    {
        const auto wall = LWScreen::init(host);
        wall->setValue("split", "hand");
        const WallRuns runs{{{"A", 3}, 1, {{0, 0}}, ofRun}, {{"A", 4}, 1, {{1, 0}}}};
        wall->setValue("runs", QVariant::fromValue(CableRuns(runs)));
        ProcessorSettings settings;
        settings.name = "A";
        settings.unknown = ofProcessor;
        return {1080, 1920, {wall}, {}, {settings}};
    }
    /// As a newer version writes it.
    QByteArray newer(const QByteArray &format = "3")
    {
        QByteArray text = ProjectText::encode(show(nullptr, nullptr));
        text.replace("\"format\": 2", "\"format\": " + format);
        text.replace("\"cells\": [\"0,0\"]", "\"cells\": [\"0,0\"], \"le\\u006egth\": 1.50");
        text.replace("\"capacity\": 0", "\"capacity\": 0, \"serial\": [ 1e3, \"}\" ]");
        return text;
    }
};
} // namespace

TEST_F(UnknownParts, OfAnArchivesCablesAndProcessorsComeBack)
{
    const QByteArray bytes = ProjectFile::encode(show(archived("length"), archived("serial"))).value();
    EXPECT_TRUE(bytes.contains("length"));
    const Result<Project> read = ProjectFile::decode(bytes, host);
    ASSERT_TRUE(read) << qPrintable(read.error().text);
    ASSERT_TRUE(read->processors[0].unknown);
    EXPECT_EQ(read->processors[0].unknown->ofArchive->entries()[0].first, "serial");
    EXPECT_TRUE(UnknownValues::areOfArchive(*read));
    EXPECT_FALSE(UnknownValues::areOfText(*read));
    EXPECT_EQ(ProjectFile::encode(*read).value(), bytes);
    EXPECT_FALSE(ProjectText::encode(*read).contains("serial"));
}

TEST_F(UnknownParts, OfATextsCablesAndProcessorsComeBackToTheByte)
{
    const Result<Project> read = decoded(newer());
    ASSERT_TRUE(read) << qPrintable(read.error().text);
    EXPECT_EQ(read->processors[0].unknown->ofText, QByteArrayList{"\"serial\": [ 1e3, \"}\" ]"});
    EXPECT_TRUE(UnknownValues::areOfText(*read));
    EXPECT_FALSE(UnknownValues::areOfArchive(*read));
    EXPECT_EQ(ProjectText::encode(*read), newer());
    EXPECT_EQ(ProjectText::encode(decoded(newer("71")).value()), newer("71"));
}

TEST_F(UnknownParts, InAFormatOfWhichWeKnowAllNamesTheyAreRefused)
{
    EXPECT_EQ(refusal(newer("2")), "processors: processor 0: serial: unknown name");
    QByteArray runOnly = newer("2");
    runOnly.replace(", \"serial\": [ 1e3, \"}\" ]", "");
    EXPECT_EQ(refusal(runOnly), "layers[0].runs: run 0: length: unknown name");
}

TEST_F(UnknownParts, WhatIsKnownIsCheckedInAGreaterFormatToo)
{
    QByteArray wrong = newer();
    wrong.replace("\"piece\": 1", "\"piece\": 0");
    EXPECT_TRUE(refusal(wrong).startsWith("layers[0].runs: run 0: piece: ")) << qPrintable(refusal(wrong));
    wrong = newer();
    wrong.replace("\"processor\": \"A\", \"port\": 3", "\"processor\": \"A\\u0000\", \"port\": 3");
    EXPECT_EQ(refusal(wrong), "layers[0].runs: run 0: processor: expected a text without NUL");
}

TEST_F(UnknownParts, AProcessorWithThemIsLikeOneWithout)
{
    ProcessorSettings one;
    ProcessorSettings other;
    other.unknown = archived("serial");
    EXPECT_TRUE(one.isLike(other));
}

TEST_F(UnknownParts, WhatIsMeantComesBackFromBothKindsOfFile)
{
    Project meant = show(nullptr, nullptr);
    const QStringList checks{"walls-overlap", "cable-jump"};
    meant.layers[0]->setValue("meant", QVariant::fromValue(std::optional(checks)));
    const QByteArray text = ProjectText::encode(meant);
    EXPECT_TRUE(text.contains(R"("meant": ["walls-overlap","cable-jump"])")) << text.constData();
    EXPECT_EQ(decoded(text)->layers[0]->record()->meant, checks);
    const QByteArray bytes = ProjectFile::encode(meant).value();
    EXPECT_EQ(ProjectFile::decode(bytes, host)->layers[0]->record()->meant, checks);
    EXPECT_EQ(LayerValues::asCopy(meant.layers[0]->record())->meant, std::nullopt);
}
