#include "base/FileBytes.h"
#include "formats/PresetLibrary.h"
#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
/// Files that are given for something else.
class FileKindTest : public ::testing::Test
{
protected:
    QString refusalOf(const QByteArray &bytes, const QString &name)
    {
        const QString path = folder.filePath(name);
        EXPECT_TRUE(FileBytes::write(path, bytes));
        const QString text = name.endsWith(".lib")    ? reason(PresetLibrary::read(path, host))
                             : name.endsWith(".json") ? reason(ProjectText::read(path, host))
                                                      : reason(ProjectFile::read(path, host));
        EXPECT_TRUE(text.startsWith(path + ": ")) << qPrintable(text);
        return text.mid(path.size() + 2);
    }
    template <typename Value>
    static QString reason(const Result<Value> &result)
    {
        return result ? QString("accepted") : result.error().text;
    }
    static QByteArray picture(const char *format)
    {
        QImage image(4, 3, QImage::Format_RGB32);
        image.fill(Qt::red);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        EXPECT_TRUE(image.save(&buffer, format));
        return bytes;
    }

    QTemporaryDir folder;
    TestHost host;
};
} // namespace

TEST_F(FileKindTest, APictureIsToldWhereItBelongs)
{
    for (const char *format : {"PNG", "JPEG", "BMP"}) {
        EXPECT_EQ(refusalOf(picture(format), "bad.Orv"),
                  "this is no project. To place a picture use Layer > Add image.");
        EXPECT_EQ(refusalOf(picture(format), "bad.json"),
                  "this is no project. To place a picture use Layer > Add image.");
        EXPECT_EQ(refusalOf(picture(format), "bad.lib"),
                  "this is no preset library. To place a picture use Layer > Add image.");
    }
    EXPECT_FALSE(refusalOf("<svg xmlns='http://www.w3.org/2000/svg' width='4' height='3'/>", "a.Orv").contains("XML"));
}

TEST_F(FileKindTest, APresetLibraryIsToldWhereItIsOpened)
{
    for (const std::size_t count : {1U, 3U, 4U}) {
        const std::vector<LayerPointer> presets(count, LWScreen::init(host));
        EXPECT_EQ(refusalOf(PresetLibrary::encode(presets).value(), "presets.Orv"),
                  "this is no project, but a preset library. Open it with Open library in the presets' menu.");
    }
}

TEST_F(FileKindTest, OtherFilesAreToldInPlainWords)
{
    EXPECT_EQ(refusalOf("", "a.Orv"), "this is no project, the file is empty. Look for another copy of it.");
    EXPECT_EQ(refusalOf("8BPS...", "a.Orv"), "this is no project, but a layered picture, which is only written.");
    EXPECT_EQ(refusalOf(" {\"format\": 1}", "a.Orv"),
              "this is no project, but text. If it is a project, let its name end in .json.");
    EXPECT_EQ(refusalOf("anything", "a.Orv"), "this is no project. Open a file that was saved as one.");
    EXPECT_EQ(refusalOf("\x89PNG\r\n and no more", "a.Orv"), "this is no project. Open a file that was saved as one.");
    EXPECT_EQ(refusalOf("anything", "a.lib"), "this is no preset library. Open a file that was saved as one.");
    EXPECT_EQ(refusalOf("bplist00...", "a.json"),
              "this is no text, but an archive. If it is a project, let its name end in .Orv.");
    EXPECT_EQ(refusalOf("<plist><dict/></plist>", "a.Orv"),
              "This file is another program's; open one that was saved here.");
}
