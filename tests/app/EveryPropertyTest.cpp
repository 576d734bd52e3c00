#include "formats/ProjectText.h"
#include "layer/LayerValues.h"
#include "show/LayerArchive.h"
#include "still/LWStill.h"
#include "tests/app/AnotherValue.h"
#include "tests/app/UndoFixture.h"

#include <QSet>

#include <ostream>

namespace {
/// Where a value of a layer goes. `Wall` and `Still` say which of the kinds.
enum Place : unsigned
{
    WallPicture = 1,     ///< the wall's picture shows it
    WallFile = 1 << 1,   ///< archive and JSON of a wall keep it
    StillFile = 1 << 2,  ///< archive and JSON of a still keep it
    StillRead = 1 << 3,  ///< a still's archive gives it, and none is written with it
    StillWrite = 1 << 4, ///< a still's archive holds it, and none gives it
    WallCopy = 1 << 5,
    StillCopy = 1 << 6,
    Watched = 1 << 7,  ///< an edit of it is rendered and composed
    Rendered = 1 << 8, ///< rendering a wall writes it, so that no wall keeps what it is given
    OfWall = 1 << 9,   ///< only walls have it
    OfStill = 1 << 10, ///< only stills have it
    Nowhere = 0,

    Files = WallFile | StillFile,
    Copies = WallCopy | StillCopy,
    Look = WallPicture | Files | Copies | Watched,
};

struct Property
{
    const char *name;
    unsigned places;

    bool goesTo(unsigned place) const { return (places & place) != 0; }
};

void PrintTo(const Property &property, std::ostream *stream)
{
    *stream << property.name;
}

constexpr Property properties[]{
    {"panelWidth", Look},
    {"panelHeight", Look},
    {"col", Look},
    {"row", Look},
    {"screenSizeWidth", Files | Copies | Rendered},
    {"screenSizeHeight", Files | Copies | Rendered},
    {"xpoint", Look},
    {"ypoint", Look},
    {"visible", Files | Copies | Watched},
    {"label", Look},
    {"bgEnable", Look},
    {"rectColor", Look},
    {"rectColor2", (Look & ~StillFile) | StillWrite},
    {"BoarderEnable", Look},
    {"boarderColor", Look},
    {"boarderWidth", Look},
    {"CircleEnable", Look},
    {"circleColor", Look},
    {"circleBWidth", Look},
    {"XYFontEnable", Look},
    {"xyColor", Look},
    {"XYFontSize", Look},
    {"screenFontEnable", Look},
    {"sfColor", Look},
    {"screenFontSize", Look},
    {"showPower", WallPicture | Watched},
    {"showCurrent", WallPicture | WallFile | WallCopy | Watched},
    {"showPowerl", Nowhere},
    {"drawLabels", Look},
    {"XYLabelDirection", WallPicture | Watched},
    {"labelColor", Look},
    {"labelFontSize", Look},
    {"drawFlowPath", Look},
    {"pattern", WallPicture | WallFile | StillRead | Copies},
    {"pixelLimit", (Look & ~StillFile) | StillRead},
    {"powerOnCell", WallPicture | WallFile | WallCopy | Watched},
    {"aspectRatio", Watched},
    {"aspectValue", Nowhere},
    {"aspectHidden", Nowhere},
    {"labelGroupRightHidden", StillCopy},
    {"label1", StillCopy},
    {"label2", StillCopy},
    {"label3", StillCopy},
    {"label4", StillCopy},
    {"label5", StillCopy},
    {"label6", StillCopy},
    {"label7", StillCopy},
    {"label8", StillCopy},
    {"label1Hidden", StillCopy},
    {"label2Hidden", StillCopy},
    {"label3Hidden", StillCopy},
    {"label4Hidden", StillCopy},
    {"label5Hidden", StillCopy},
    {"label6Hidden", StillCopy},
    {"label7Hidden", StillCopy},
    {"label8Hidden", StillCopy},
    {"hiddenBoxes", WallPicture | WallFile | WallCopy | OfWall},
    {"PositionArray", OfWall},
    {"label9Hidden", OfWall},
    {"drawBackground", OfWall},
    {"drawBorder", OfWall},
    {"columnCount", OfWall},
    {"rowCount", OfWall},
    {"width", OfWall},
    {"height", OfWall},
    {"ImageURL", StillFile | StillCopy | OfStill},
    {"id", Files},
    {"chart", StillFile | StillCopy | Watched | OfStill},
    {"processor", WallFile | WallCopy | Watched | OfWall},
    {"firstPort", WallFile | Watched | OfWall},
    {"goesOn", WallFile | WallCopy | Watched | OfWall},
    {"split", WallFile | WallCopy | Watched | OfWall},
    {"limitFromProcessor", WallFile | WallCopy | Watched | OfWall},
    {"runs", WallFile | WallCopy | Watched | OfWall},
    {"meant", Files},
    {"portColours", WallFile | WallCopy | WallPicture | Watched | OfWall},
    {"portNames", WallFile | WallCopy | Watched | OfWall},
    {"portName", WallFile | WallCopy | Watched | OfWall},
    {"panelPlaces", WallFile | WallCopy | Watched | OfWall},
};

/// A wall whose picture shows each of its values.
std::shared_ptr<LWScreen> fullWall(LayerHost &host)
{
    auto wall = LWScreen::init(host);
    wall->setCol(4);
    wall->setRow(3);
    wall->setPanelWidth(100);
    wall->setPanelHeight(80);
    wall->setLabel("Main");
    wall->setCircleEnable(true);
    wall->setXYFontEnable(true);
    wall->setXYFontSize(20);
    wall->setScreenFontEnable(true);
    wall->setSfColor(NamedColour::white);
    wall->setScreenFontSize(24);
    wall->setShowPower(true);
    wall->setPowerOnCell(300);
    wall->setDrawLabels(true);
    wall->setLabelColor(NamedColour::black);
    wall->setLabelFontSize(20);
    wall->setDrawFlowPath(true);
    wall->setPixelLimit(31'998);
    wall->setHiddenBoxes(QStringList{"2,3"});
    wall->drawInRect();
    return wall;
}

/// Every value of a layer, as one that is no default and no other property's neighbour.
class EveryProperty : public UndoFixture, public ::testing::WithParamInterface<Property>
{
protected:
    const char *name() const { return GetParam().name; }
    bool goesTo(unsigned place) const { return GetParam().goesTo(place); }

    QVariant valueOf(const Layer &layer) const { return layer.value(name()); }
    /// Another value than the layer has.
    QVariant another(const Layer &layer) const
    {
        const QStringList &choices = LayerValues::find(name())->choices;
        const QVariant value = valueOf(layer);
        const qsizetype next = choices.indexOf(value.toString()) + 1;
        return choices.isEmpty() ? anotherValue(value) : choices.at(next % std::max(choices.size(), qsizetype{1}));
    }
    void change(Layer &layer) const { ASSERT_TRUE(layer.setValue(name(), another(layer))) << name(); }
    /// Gives it one that `plain` does not have either.
    void changeFrom(const Layer &plain, Layer &layer) const
    {
        change(layer);
        if (valueOf(layer) == valueOf(plain))
            change(layer);
    }
    void expectTaken(const Layer &from, const Layer &plain, const Layer &by, bool isTaken) const
    {
        EXPECT_NE(valueOf(from), valueOf(plain)) << name();
        EXPECT_EQ(valueOf(by), isTaken ? valueOf(from) : valueOf(plain)) << name();
    }
    LayerPointer fromArchive(const LayerPointer &layer)
    {
        const ArchiveValue archive = LayerArchive::encode({layer});
        const auto read = LayerArchive::decode(*archive.toList("layers").value(), "layer").value();
        return LayerArchive::make(read, document).front();
    }
    LayerPointer copyThroughArchive(const LayerPointer &layer)
    {
        return LayerArchive::copies({layer}, document).value().front();
    }
    LayerPointer fromText(const LayerPointer &layer)
    {
        const QByteArray json = ProjectText::encode({1080, 1920, {layer}, {}, {}});
        return ProjectText::decode(json, "/", document).value().layers.front();
    }
    std::shared_ptr<LWStill> still() { return LWStill::initWithimage(document, QImage(31, 17, QImage::Format_RGB32)); }
};
} // namespace

TEST(EveryPropertyOfALayer, HasItsLineHere)
{
    QSet<QString> known;
    for (const Property &property : properties)
        known.insert(property.name);
    QSet<QString> values;
    for (const LayerValue &value : LayerValues::all())
        values.insert(value.name);
    EXPECT_EQ(values - known, QSet<QString>());
    EXPECT_EQ(known - values, QSet<QString>());
    EXPECT_EQ(known.size(), std::ssize(properties));
}

TEST_P(EveryProperty, IsInTheWallsPictureOrNot)
{
    if (goesTo(OfStill))
        GTEST_SKIP();
    document.setPopupIndex(2); // all corners
    const auto wall = fullWall(document);
    wall->setShowPower(qstrcmp(name(), "showCurrent") != 0); // either shows the same
    wall->drawInRect();
    const QImage before = wall->thumbnail().copy();
    change(*wall);
    EXPECT_EQ(wall->thumbnail(), before) << "not rendered yet";
    wall->drawInRect();
    EXPECT_EQ(wall->thumbnail() != before, goesTo(WallPicture));
}

TEST_P(EveryProperty, IsInAWallsArchiveOrNot)
{
    if (goesTo(OfStill | Rendered))
        GTEST_SKIP();
    const auto wall = fullWall(document);
    changeFrom(LWScreen(document), *wall);
    expectTaken(*wall, LWScreen(document), *fromArchive(wall), goesTo(WallFile));
}

TEST_P(EveryProperty, IsInAStillsArchiveOrNot)
{
    if (goesTo(OfWall))
        GTEST_SKIP();
    const auto picture = still();
    changeFrom(LWStill(document), *picture);
    expectTaken(*picture, LWStill(document), *fromArchive(picture), goesTo(StillFile));

    const auto other = still();
    other->setValue(name(), another(*picture));
    EXPECT_EQ(KeyedArchive::write(LayerArchive::encode({other})).value() !=
                  KeyedArchive::write(LayerArchive::encode({picture})).value(),
              goesTo(StillFile | StillWrite));
}

TEST_P(EveryProperty, IsInTheTextOrNot)
{
    if (!goesTo(OfStill | Rendered)) {
        const auto wall = fullWall(document);
        changeFrom(*LWScreen::init(document), *wall);
        expectTaken(*wall, *LWScreen::init(document), *fromText(wall), goesTo(WallFile));
    }
    if (!goesTo(OfWall)) {
        const auto picture = std::make_shared<LWStill>(document);
        picture->setVisible(true); // as the text takes it for
        const QVariant plain = valueOf(*picture);
        change(*picture);
        const QVariant read = valueOf(*fromText(picture));
        EXPECT_EQ(read, goesTo(StillFile) ? valueOf(*picture) : plain);
    }
}

TEST_P(EveryProperty, IsTakenOverByCopiesOrNot)
{
    if (!goesTo(OfStill)) {
        const auto wall = fullWall(document);
        changeFrom(*LWScreen::init(document), *wall);
        expectTaken(*wall, *LWScreen::init(document), *wall->copyWithZone(), goesTo(WallCopy));
    }
    if (!goesTo(OfWall)) {
        LWStill picture(document);
        change(picture);
        expectTaken(picture, LWStill(document), *picture.copyWithZone(), goesTo(StillCopy));
    }
}

TEST_P(EveryProperty, IsInACopyThroughAnArchiveAsInTheArchive)
{
    const LayerPointer layer = goesTo(OfStill) ? LayerPointer(still()) : fullWall(document);
    change(*layer);
    // No copy takes what is of that one layer: what refers to it by its id, and the ports that it keeps.
    const std::optional<Addition> &addition = LayerValues::find(name())->addition;
    const LayerPointer expected = !addition || addition->isCopied ? fromArchive(layer) : LWScreen::init(document);
    EXPECT_EQ(valueOf(*copyThroughArchive(layer)), valueOf(*expected));
}

TEST_P(EveryProperty, IsWatchedOrNot)
{
    const LayerPointer layer = goesTo(OfStill) ? LayerPointer(still()) : fullWall(document);
    document.arraycontroller().setLayers({layer}, {0});
    document.finishEdit("setting");
    waitForRedraws();
    ASSERT_TRUE(document.shouldUpdate());
    edit(name(), another(*layer));
    EXPECT_EQ(document.shouldUpdate(), !goesTo(Watched));
}

TEST_P(EveryProperty, ComesBackByUndoing)
{
    const LayerPointer layer = goesTo(OfStill) ? LayerPointer(still()) : fullWall(document);
    document.arraycontroller().setLayers({layer}, {0});
    document.finishEdit("setting");
    compose();
    const QVariant before = valueOf(*layer);
    change(*layer);
    document.finishEdit("value");
    const QVariant after = valueOf(*layer);
    ASSERT_EQ(stack.undoText(), "value");
    stack.undo();
    EXPECT_EQ(valueOf(*layer), before);
    stack.redo();
    EXPECT_EQ(valueOf(*layer), after);
}

INSTANTIATE_TEST_SUITE_P(OfALayer, EveryProperty, ::testing::ValuesIn(properties),
                         [](const auto &one) { return std::string(one.param.name); });

TEST_F(UndoFixture, TheWallsPictureShowsWhatItsSurroundingsSay)
{
    const auto wall = fullWall(document);
    const auto rendered = [&] {
        wall->drawInRect();
        return wall->thumbnail().copy();
    };
    const QImage plain = rendered();
    document.setPopupIndex(1);
    EXPECT_NE(rendered(), plain);
    document.setPopupIndex(0);
    EXPECT_EQ(rendered(), plain);
    document.setVoltageCalc(230);
    EXPECT_NE(rendered(), plain);
    document.setVoltageCalc(110);
    EXPECT_EQ(rendered(), plain);
    document.setPhaseCalc(3);
    EXPECT_NE(rendered(), plain);
}
