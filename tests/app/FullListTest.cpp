#include "base/NumberText.h"
#include "tests/app/ListFixture.h"

#include <QMimeData>

#include <functional>
#include <memory>
#include <vector>

namespace {
/// Lists that have room for one more, and then for none.
class LWAppDelegateFullList : public ListFixture
{
protected:
    void fill(LayerList &list, std::size_t count)
    {
        list.setLayers(std::vector<LayerPointer>(count, solidScreen(NamedColour::red, {0, 0, 1, 1})), {0});
        document.undoStack().clear();
    }
    /// The first `add` makes the 10,000th of the list, and no more come.
    void expectOneMore(LayerList &list, const std::function<void()> &add)
    {
        fill(list, 9'999);
        add();
        EXPECT_EQ(list.rowCount(), 10'000);
        EXPECT_EQ(person.failures, QStringList());
        expectRefused(list, 10'001, add);
    }
    void expectRefused(LayerList &list, int count, const std::function<void()> &add)
    {
        const std::vector<LayerPointer> before(list.layers().begin(), list.layers().end());
        const std::vector<qsizetype> selection(list.selectionIndexes().begin(), list.selectionIndexes().end());
        const int steps = document.undoStack().index();
        const int number = document.screenNumber();
        const QStringList titles = person.panelTitles;
        add();
        EXPECT_EQ(list.layers() == before, true);
        EXPECT_EQ(list.selectionIndexes(), selection);
        EXPECT_EQ(document.undoStack().index(), steps);
        EXPECT_EQ(document.screenNumber(), number);
        EXPECT_EQ(person.panelTitles, titles);
        EXPECT_EQ(person.sheets.size(), 0U);
        EXPECT_EQ(person.failures.join('|'), "Cannot add: there are " + NumberText::grouped(count) +
                                                 " layers; more than 10,000 cannot be kept, so remove some");
    }
    QString picture(const QString &name) const
    {
        QImage image(4, 3, QImage::Format_RGB32);
        image.fill(Qt::green);
        EXPECT_TRUE(image.save(folder.filePath(name)));
        return folder.filePath(name);
    }
    static void drag(const LayerList &from, LayerList &to)
    {
        const std::unique_ptr<QMimeData> dragged(from.mimeData({from.index(0)}));
        to.dropMimeData(dragged.get(), Qt::CopyAction, 0, 0, {});
    }

    LayerList &layers = document.arraycontroller();
    LayerList &presets = document.presetarraycontroller();
};
} // namespace

TEST_F(LWAppDelegateFullList, TakesNoScreen)
{
    expectOneMore(layers, [this] { document.AddScreen(); });
}

TEST_F(LWAppDelegateFullList, IsOfferedNothingToAdd)
{
    fill(layers, 10'000);
    expectRefused(layers, 10'001, [this] { document.add(); });
}

TEST_F(LWAppDelegateFullList, TakesNoImageAndAsksForNone)
{
    person.openPanelAnswer = picture("a.png");
    expectOneMore(layers, [this] { document.AddImage(); });
    EXPECT_EQ(person.panelTitles, QStringList("Add image"));
}

TEST_F(LWAppDelegateFullList, TakesNoChart)
{
    expectOneMore(layers, [this] { document.addChart("field colour=red"); });
}

TEST_F(LWAppDelegateFullList, TakesNoDuplicate)
{
    expectOneMore(layers, [this] { document.copyLayer(); });
}

TEST_F(LWAppDelegateFullList, TakesNoPictureFiles)
{
    expectOneMore(layers, [this] { document.addImages({picture("a.png")}); });
}

TEST_F(LWAppDelegateFullList, TakesNoneOfPictureFilesThatDoNotAllFit)
{
    fill(layers, 9'998);
    expectRefused(layers, 10'001, [this] {
        document.addImages({picture("a.png"), picture("b.png"), picture("c.png")});
    });
}

TEST_F(LWAppDelegateFullList, TakesNoPreset)
{
    expectOneMore(layers, [this] { document.insertPreset(30); });
}

TEST_F(LWAppDelegateFullList, TakesNoPresetThatIsDroppedOnIt)
{
    expectOneMore(layers, [this] { drag(presets, layers); });
}

TEST_F(LWAppDelegateFullList, OfPresetsTakesNoLayerThatIsDroppedOnIt)
{
    expectOneMore(presets, [this] { drag(layers, presets); });
}

TEST_F(LWAppDelegateFullList, OfPresetsKeepsNoneOfLayersThatDoNotAllFit)
{
    expectOneMore(presets, [this] { document.keepAsPresets(); });
    person.failures.clear();
    document.AddScreen();
    layers.setSelectionIndexes({0, 1});
    expectRefused(presets, 10'002, [this] { document.keepAsPresets(); });
}

TEST_F(LWAppDelegateFullList, StillMovesItsRows)
{
    fill(layers, 10'000);
    drag(layers, layers);
    EXPECT_EQ(person.failures, QStringList());
}

TEST_F(LWAppDelegateFullList, IsNotFullForNothing)
{
    fill(layers, 10'000);
    document.addImages({});
    document.insertPreset(31);
    EXPECT_EQ(person.failures, QStringList());
}
