#include "still/LWStill.h"
#include "tests/screen/TestHost.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace {
/// A folder with a blue picture of 31 x 17 pixels, and a still of 400 x 200 at (100, 50).
class LWStillPicture : public ::testing::Test
{
protected:
    LWStillPicture()
    {
        saveTo(picturePath, Qt::blue);
        still.setXpoint(100);
        still.setYpoint(50);
        still.setPanelWidth(400);
        still.setPanelHeight(200);
    }

    static void saveTo(const QString &path, Qt::GlobalColor colour)
    {
        QImage image(31, 17, QImage::Format_RGB32);
        image.fill(colour);
        EXPECT_TRUE(image.save(path));
    }

    void choose(const Address &address)
    {
        still.setImageURL(address);
        still.loadThumbnail();
    }

    TestHost host;
    LWStill still{host};
    QTemporaryDir folder;
    const QString picturePath = folder.filePath("plate.png");
    const QString lostPath = folder.filePath("lost.png");
    const QString pathOfAddress = QUrl::fromLocalFile(picturePath).path(); ///< "/C:/..." where there are drives
    const QString folderOfAddress = QUrl::fromLocalFile(folder.path()).path();
};
} // namespace

TEST_F(LWStillPicture, WithoutAnAddressNothingIsMissing)
{
    EXPECT_FALSE(still.isPictureMissing());
    EXPECT_FALSE(LWStill::initWithimage(host, QImage())->isPictureMissing());
}

TEST_F(LWStillPicture, AFileThatIsThereIsNotMissing)
{
    choose(Address::fromLocalFile(picturePath));

    EXPECT_FALSE(still.isPictureMissing());
    EXPECT_EQ(still.thumbnail().size(), QSize(31, 17));
    EXPECT_FALSE(still.isPictureMissing());
}

TEST_F(LWStillPicture, AFileThatIsGoneIsMissingAndItsStillKeepsPlaceAndAddress)
{
    choose(Address::fromLocalFile(lostPath));

    EXPECT_TRUE(still.isPictureMissing());
    EXPECT_TRUE(still.thumbnail().isNull());
    EXPECT_TRUE(still.isPictureMissing());
    still.drawInRect();
    EXPECT_EQ(still.screenSizeWidth(), 400);
    EXPECT_EQ(still.screenSizeHeight(), 200);
    EXPECT_EQ(still.ImageURL(), Address::fromLocalFile(lostPath));
}

TEST_F(LWStillPicture, AskingWhetherItIsMissingLoadsNothing)
{
    choose(Address::fromLocalFile(picturePath));
    EXPECT_FALSE(still.isPictureMissing());
    ASSERT_TRUE(QFile::remove(picturePath));

    EXPECT_TRUE(still.isPictureMissing());
    EXPECT_TRUE(still.thumbnail().isNull());
}

TEST_F(LWStillPicture, ALoadedPictureStaysWhenItsFileGoes)
{
    choose(Address::fromLocalFile(picturePath));
    ASSERT_FALSE(still.thumbnail().isNull());
    ASSERT_TRUE(QFile::remove(picturePath));

    EXPECT_FALSE(still.isPictureMissing());
    EXPECT_EQ(still.thumbnail().size(), QSize(31, 17));
}

TEST_F(LWStillPicture, WhatBeginsLikeAPictureIsMissingWhenItTurnsOutToBeNone)
{
    QFile file(picturePath);
    ASSERT_TRUE(file.resize(40));
    choose(Address::fromLocalFile(picturePath));
    EXPECT_FALSE(still.isPictureMissing());

    EXPECT_TRUE(still.thumbnail().isNull());
    EXPECT_TRUE(still.isPictureMissing());
}

TEST_F(LWStillPicture, AnEmptyPictureOfAnAddressIsMissing)
{
    const auto unread = LWStill::initWithimage(host, QImage());
    unread->setImageURL(Address::fromLocalFile(lostPath));

    EXPECT_TRUE(unread->isPictureMissing());
}

TEST_F(LWStillPicture, ChoosingAFileGivesThePictureBackAndLeavesThePlace)
{
    choose(Address::fromLocalFile(lostPath));
    ASSERT_TRUE(still.thumbnail().isNull());

    choose(Address::fromLocalFile(picturePath));

    EXPECT_FALSE(still.isPictureMissing());
    EXPECT_EQ(still.thumbnail().pixelColor(30, 16), QColor(Qt::blue));
    EXPECT_EQ(still.xpoint(), 100);
    EXPECT_EQ(still.ypoint(), 50);
    EXPECT_EQ(still.panelWidth(), 400);
    EXPECT_EQ(still.panelHeight(), 200);
    EXPECT_EQ(still.aspectValue(), QSizeF(0, 0));
}

TEST_F(LWStillPicture, ChoosingTheSameFileAgainFindsItWhenItIsBack)
{
    choose(Address::fromLocalFile(lostPath));
    ASSERT_TRUE(still.thumbnail().isNull());
    saveTo(lostPath, Qt::red);

    EXPECT_TRUE(still.thumbnail().isNull());
    choose(Address::fromLocalFile(lostPath));

    EXPECT_EQ(still.thumbnail().pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(LWStillPicture, AnotherAddressAloneLoadsNothing)
{
    choose(Address::fromLocalFile(picturePath));
    const qint64 picture = still.thumbnail().cacheKey();

    still.setImageURL(Address::fromLocalFile(lostPath));

    EXPECT_EQ(still.thumbnail().cacheKey(), picture);
}

TEST_F(LWStillPicture, ACopyOfAStillWhosePictureWaitsLoadsItToo)
{
    choose(Address::fromLocalFile(picturePath));

    const LayerPointer copy = still.copyWithZone();

    EXPECT_EQ(copy->thumbnail().pixelColor(30, 16), QColor(Qt::blue));
    EXPECT_EQ(copy->thumbnail().cacheKey(), still.thumbnail().cacheKey());
}

TEST_F(LWStillPicture, EveryFormOfALocalAddressIsOpened)
{
    const Address addresses[] = {{"file://" + pathOfAddress, {}},
                                 {"file://localhost" + pathOfAddress, {}},
                                 {"FILE:" + pathOfAddress, {}},
                                 {picturePath, {}},
                                 {"plate.png", {"file://" + folderOfAddress + "/"}}};
    for (const Address &address : addresses) {
        choose(address);
        EXPECT_FALSE(still.isPictureMissing()) << qPrintable(address.relative);
        EXPECT_EQ(still.thumbnail().size(), QSize(31, 17)) << qPrintable(address.relative);
    }
}

TEST_F(LWStillPicture, NoOtherAddressIsOpenedEvenWhereItsPathIsHere)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    const QString base = "http://localhost" + folder.path() + "/";
    const Address addresses[] = {{"http://localhost" + pathOfAddress, {}},
                                 {"https://localhost" + pathOfAddress, {}},
                                 {"ftp://localhost" + pathOfAddress, {}},
                                 {"smb://localhost" + pathOfAddress, {}},
                                 {"file://server" + pathOfAddress, {}},
                                 {"file://127.0.0.1" + pathOfAddress, {}},
                                 {"//server" + pathOfAddress, {}},
                                 {"file:plate.png", {}},
                                 {"plate.png", {}},
                                 {"./plate.png", {}},
                                 {"plate.png", {base}},
                                 {picturePath, {base}},
                                 {"", {}},
                                 {"file://", {}},
                                 {"qrc:" + pathOfAddress, {}},
                                 {"file:///proc/kmsg", {}}};
    for (const Address &address : addresses) {
        choose(address);
        EXPECT_TRUE(still.isPictureMissing()) << qPrintable(address.relative);
        EXPECT_TRUE(still.thumbnail().isNull()) << qPrintable(address.relative);
        EXPECT_EQ(still.ImageURL(), address);
    }
    EXPECT_TRUE(QDir::setCurrent(before));
}
