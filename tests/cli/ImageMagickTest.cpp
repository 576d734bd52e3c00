#include "tests/cli/ImageMagick.h"

#include "cli/CommandLineHost.h"
#include "formats/ProjectText.h"
#include "screen/LWScreen.h"
#include "tests/cli/CommandRun.h"

namespace {

const QStringList examples{"corporate", "festival", "studio"};

class ImageMagickTest : public CommandTest
{
protected:
    void SetUp() override
    {
        if (!m_imageMagick)
            GTEST_SKIP()
                << "ImageMagick is not installed. script/bootstrap, or apt-get install imagemagick, brings it.";
    }

    /// Converts a project into files of the test's folder.
    void convert(const QString &input, const QStringList &names, const QStringList &options = {}) const
    {
        QStringList paths;
        for (const QString &name : names)
            paths.append(path(name));
        const Outcome outcome = runCommand(QStringList{"convert", input} + paths + options);
        ASSERT_EQ(outcome.status, 0) << qPrintable(outcome.err);
    }

    const ImageMagick &imageMagick() const { return *m_imageMagick; }

private:
    const std::optional<ImageMagick> m_imageMagick = ImageMagick::find();
};

QString exampleFile(const QString &name)
{
    return EXAMPLES + name + ".json";
}

Project exampleProject(const QString &name)
{
    CommandLineHost host(0, 0, 0);
    Result<Project> project = ProjectText::read(exampleFile(name), host);
    EXPECT_TRUE(project.has_value());
    return project ? std::move(*project) : Project{};
}

/// Pixels of a project's panels, hidden ones left out.
qint64 shownPixels(const Project &project)
{
    qint64 pixels = 0;
    for (const LayerPointer &layer : project.layers) {
        const auto *screen = qobject_cast<const LWScreen *>(layer.get());
        const qint64 hidden = screen ? screen->hiddenBoxes().value_or(QStringList()).size() : 0;
        pixels += (qint64{layer->col()} * layer->row() - hidden) * layer->panelWidth() * layer->panelHeight();
    }
    return pixels;
}

struct Comparison
{
    int opaque = 0;
    int different = 0;
};

/// Compares where `read` is opaque.
Comparison compared(const QImage &read, const QImage &ours)
{
    Comparison result;
    for (int y = 0; y < read.height(); ++y) {
        for (int x = 0; x < read.width(); ++x) {
            if (qAlpha(read.pixel(x, y)) != 255)
                continue;
            ++result.opaque;
            result.different += read.pixel(x, y) != ours.pixel(x, y);
        }
    }
    return result;
}

} // namespace

TEST_F(ImageMagickTest, ReadsTheMergedImageAsThePictureOfTheOutput)
{
    for (const QString &name : examples) {
        convert(exampleFile(name), {"show.psd", "show.png"});
        const QImage merged = imageMagick().picture(path("show.psd"), 0);
        const QImage output = picture("show.png");

        ASSERT_EQ(merged.size(), output.size()) << qPrintable(name);
        const Comparison comparison = compared(merged, output.convertToFormat(QImage::Format_ARGB32));
        EXPECT_EQ(comparison.different, 0) << qPrintable(name);
        EXPECT_GE(comparison.opaque, shownPixels(exampleProject(name))) << qPrintable(name);
    }
}

TEST_F(ImageMagickTest, ReadsEveryLayerWithItsName)
{
    for (const QString &name : examples) {
        convert(exampleFile(name), {"show.psd"});
        const Project project = exampleProject(name);
        const QSize output(project.outputWidth, project.outputHeight);

        QList<ImageMagick::Frame> expected{{output, {}}};
        for (auto layer = project.layers.rbegin(); layer != project.layers.rend(); ++layer)
            expected.append({output, (*layer)->label()});
        EXPECT_TRUE(imageMagick().frames(path("show.psd")) == expected) << qPrintable(name);
    }
}

TEST_F(ImageMagickTest, ReadsALayersPixelsAtItsPlace)
{
    const QString show = exampleFile("corporate");
    const Project project = exampleProject("corporate");
    convert(show, {"show.psd"});
    for (std::size_t i = 0; i < project.layers.size(); ++i) {
        convert(show, {"layer.png"}, {"--layer", QString::number(i)});
        const QImage ours = picture("layer.png");
        const QImage read = imageMagick().picture(path("show.psd"), int(project.layers.size() - i));

        ASSERT_EQ(read.size(), QSize(1920, 1080));
        const QPoint place(project.layers[i]->xpoint(), project.layers[i]->ypoint());
        const Comparison comparison = compared(read.copy(QRect(place, ours.size())), ours);
        EXPECT_EQ(comparison.different, 0) << i;
        EXPECT_EQ(comparison.opaque, ours.width() * ours.height()) << i;
        EXPECT_EQ(compared(read, read).opaque, comparison.opaque) << i;
    }
}

TEST_F(ImageMagickTest, ReadsHiddenLayersAsTransparentOnes)
{
    const QString input = show(plainWall(R"("label": "shown")") + ", " +
                               plainWall(R"("label": "hidden", "visible": false, "xpoint": 15)"));
    convert(input, {"show.psd"});

    const QList<ImageMagick::Frame> expected{{{40, 30}, {}}, {{40, 30}, "hidden"}, {{40, 30}, "shown"}};
    EXPECT_TRUE(imageMagick().frames(path("show.psd")) == expected);
    const QImage hidden = imageMagick().picture(path("show.psd"), 1);
    const QImage shown = imageMagick().picture(path("show.psd"), 2);
    EXPECT_EQ(compared(hidden, hidden).opaque, 0);
    EXPECT_EQ(compared(shown, shown).opaque, 200);
    EXPECT_EQ(qAlpha(hidden.pixel(20, 8)), 0);
    EXPECT_EQ(shown.pixel(6, 8), qRgb(255, 0, 0));
}
