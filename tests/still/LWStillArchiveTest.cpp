#include "still/LWStill.h"
#include "tests/screen/TestHost.h"

#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>

namespace {
/// A folder with a picture of 31 x 17 pixels in it.
class LWStillArchive : public ::testing::Test
{
protected:
    LWStillArchive()
    {
        QImage image(31, 17, QImage::Format_RGB32);
        image.fill(Qt::blue);
        EXPECT_TRUE(image.save(picturePath));
    }

    std::shared_ptr<LWStill> savedAndLoaded(const LWStill &still)
    {
        ArchiveObject coder("LWStill");
        still.encodeWithCoder(coder);
        auto loaded = LWStill::initWithCoder(host, coder);
        EXPECT_TRUE(loaded.has_value());
        return loaded.value();
    }

    TestHost host;
    QTemporaryDir folder;
    const QString picturePath = folder.filePath("plate with blank.png");
};
} // namespace

TEST_F(LWStillArchive, TheKeysAreWrittenInTheOrderOfTheFormat)
{
    ArchiveObject coder("LWStill");
    LWStill(host).encodeWithCoder(coder);

    QStringList keys;
    for (const auto &[key, value] : coder.entries())
        keys.append(key);
    EXPECT_EQ(
        keys.join(' '),
        "col bgenable boarderenable panelwidth panelheight row rectcolor rectcolor2 visible screenheight screenwidth "
        "xpoint ypoint xyfontsize xyenable fontenable circleenable screenfontsize circlecolor xycolor sfcolor "
        "boardercolor label boarderwidth circlebwidth imageURL drawLabels labelColor labelFontSize drawFlowPath");
}

TEST_F(LWStillArchive, FlagsOfTheOverlayAreNumbersAndTheOthersBooleans)
{
    LWStill still(host);
    still.setDrawLabels(true);
    still.setBgEnable(true);
    still.setLabelFontSize(-12.7);
    ArchiveObject coder("LWStill");
    still.encodeWithCoder(coder);

    EXPECT_EQ(coder.value("drawLabels").storage, ArchiveValue::Storage(qint64{1}));
    EXPECT_EQ(coder.value("bgenable").storage, ArchiveValue::Storage(true));
    EXPECT_EQ(coder.value("labelFontSize").storage, ArchiveValue::Storage(qint64{-12}));
}

TEST_F(LWStillArchive, ARoundTripLosesSecondColourPixelLimitPatternAndCaptions)
{
    const auto still = LWStill::initWithimage(host, QImage(picturePath));
    still->setImageURL(Address::fromLocalFile(picturePath));
    still->setRectColor(NamedColour::orange);
    still->setRectColor2(NamedColour::purple);
    still->setPixelLimit(1000);
    still->setPattern(3);

    const auto loaded = savedAndLoaded(*still);

    EXPECT_EQ(loaded->rectColor(), OptionalColour(NamedColour::orange));
    EXPECT_EQ(loaded->rectColor2(), OptionalColour());
    EXPECT_EQ(loaded->pixelLimit(), 0);
    EXPECT_EQ(loaded->pattern(), 0);
    EXPECT_TRUE(loaded->label1().isNull());
    EXPECT_FALSE(loaded->label3Hidden());
    EXPECT_FALSE(loaded->labelGroupRightHidden());
    EXPECT_EQ(loaded->aspectValue(), QSizeF(0, 0));
    EXPECT_EQ(loaded->panelWidth(), 31);
    EXPECT_TRUE(loaded->visible());
}

TEST_F(LWStillArchive, ThePictureIsLoadedFromItsFileAgain)
{
    const auto still = LWStill::initWithimage(host, QImage(5, 5, QImage::Format_RGB32));
    still->setImageURL(Address::fromLocalFile(picturePath));

    const auto loaded = savedAndLoaded(*still);

    ASSERT_EQ(loaded->thumbnail().size(), QSize(31, 17));
    EXPECT_EQ(loaded->thumbnail().pixelColor(30, 16), QColor(Qt::blue));
    EXPECT_EQ(loaded->panelWidth(), 5);
}

TEST_F(LWStillArchive, PixelLimitAndPatternOfOlderFilesAreRead)
{
    ArchiveObject coder("LWStill");
    coder.encodeInt32("pixelLimit", -7);
    coder.encodeInt32("pattern", 5);

    const auto loaded = LWStill::initWithCoder(host, coder);

    ASSERT_TRUE(loaded.has_value());
    EXPECT_EQ((*loaded)->pixelLimit(), -7);
    EXPECT_EQ((*loaded)->pattern(), 5);
}

TEST_F(LWStillArchive, ReadingDoesNotRender)
{
    LWStill still(host);
    still.setPanelWidth(100);
    still.setScreenSizeWidth(33);

    EXPECT_EQ(savedAndLoaded(still)->screenSizeWidth(), 33);
}

TEST_F(LWStillArchive, AMissingPictureKeepsAddressAndPlace)
{
    const auto still = LWStill::initWithimage(host, QImage(picturePath));
    still->setImageURL({"file:///nowhere/lost%20plate.png", {}});
    still->setXpoint(12);

    const auto loaded = savedAndLoaded(*still);

    EXPECT_TRUE(loaded->thumbnail().isNull());
    EXPECT_EQ(loaded->ImageURL().relative, "file:///nowhere/lost%20plate.png");
    EXPECT_EQ(loaded->xpoint(), 12);
    EXPECT_EQ(loaded->screenSizeWidth(), 31);
}

TEST_F(LWStillArchive, AnAddressThatIsNoFileIsKeptAndNeverOpened)
{
    LWStill still(host);
    still.setImageURL({"plate.png", {"https://example.org/show/", "https://example.org/"}});

    const auto loaded = savedAndLoaded(still);

    EXPECT_TRUE(loaded->thumbnail().isNull());
    EXPECT_EQ(loaded->ImageURL(), still.ImageURL());
}

TEST_F(LWStillArchive, AValueOfAWrongKindNamesItsKey)
{
    ArchiveObject coder("LWStill");
    coder.encodeInt32("rectcolor", 1);

    const auto loaded = LWStill::initWithCoder(host, coder);

    ASSERT_FALSE(loaded.has_value());
    EXPECT_EQ(loaded.error().text, "\"rectcolor\" is a number, expected a colour");
}

TEST_F(LWStillArchive, TheSecondColourIsNotEvenLookedAt)
{
    ArchiveObject coder("LWStill");
    coder.encodeText("rectcolor2", "no colour");

    EXPECT_TRUE(LWStill::initWithCoder(host, coder).has_value());
}

TEST_F(LWStillArchive, KeptIsWhatIsWrittenAndRead)
{
    const LWStill still(host);
    const auto fields = still.keptFields();

    EXPECT_EQ(std::count_if(fields.begin(), fields.end(), [](const ArchiveField &field) { return !field.isAddition; }),
              29);
    for (const char *lost : {"rectColor2", "pixelLimit", "pattern"})
        EXPECT_TRUE(std::none_of(fields.begin(), fields.end(), [&](const ArchiveField &field) {
            return QLatin1StringView(lost) == field.property;
        })) << lost;
}
