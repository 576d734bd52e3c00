#include "windows/HelpWindow.h"

#include "windows/GuideView.h"
#include "windows/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

namespace {
class HelpWindowTest : public ::testing::Test
{
protected:
    HelpWindowTest()
    {
        Theme::apply();
        help.show();
    }
    void click(const QString &title)
    {
        for (QAbstractButton *button : help.findChildren<QAbstractButton *>()) {
            if (button->text() == title)
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        ADD_FAILURE() << "no button says " << qPrintable(title);
    }
    static void waitForPictures()
    {
        QTest::qWait(300);
        QApplication::processEvents(); // after a long sleep the wait ends before what is due
    }
    QString heading() const { return guides.document()->firstBlock().text(); }
    QString atTheTop() const { return guides.cursorForPosition({100, 10}).block().text(); }

    HelpWindow help;
    GuideView &guides = *help.findChild<GuideView *>();
};
} // namespace

TEST_F(HelpWindowTest, OpensAtTheFirstWallAndLeadsToTheGuideAndBack)
{
    EXPECT_EQ(heading(), "A first wall in five minutes");
    click("User guide");
    EXPECT_EQ(heading(), "User guide");
    click("Back");
    EXPECT_EQ(heading(), "A first wall in five minutes");
}

TEST_F(HelpWindowTest, ALinkLeadsToItsHeading)
{
    guides.showGuide("user-guide.md#presets");
    EXPECT_EQ(heading(), "User guide");
    EXPECT_EQ(atTheTop(), "Presets");
    guides.showGuide("user-guide.md#the-output");
    EXPECT_EQ(atTheTop(), "The output");
}

TEST_F(HelpWindowTest, PicturesAreThereAndNoWiderThanTheLines)
{
    waitForPictures();
    int pictures = 0;
    for (QTextBlock block = guides.document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
            if (!format.isValid())
                continue;
            const QVariant picture = guides.document()->resource(QTextDocument::ImageResource, QUrl(format.name()));
            EXPECT_EQ(picture.value<QImage>().width(), 640) << qPrintable(format.name());
            ++pictures;
        }
    }
    EXPECT_GE(pictures, 3);
    EXPECT_EQ(guides.horizontalScrollBar()->maximum(), 0);
}

TEST_F(HelpWindowTest, InANarrowWindowLinesAndPicturesAreAsWideAsIt)
{
    for (const int width : {500, 620, 800}) {
        help.resize(width, 300);
        QApplication::processEvents();
        EXPECT_TRUE(QTest::qWaitFor([&] { return guides.horizontalScrollBar()->maximum() == 0; })) << width;
        EXPECT_LE(guides.document()->idealWidth(), guides.viewport()->width()) << width;
    }
    EXPECT_EQ(guides.document()->textWidth(), 640 + 2 * 24);
}

TEST_F(HelpWindowTest, WhatIsReadStaysAtTheTopInAWindowOfAnotherSize)
{
    help.resize(800, 500);
    guides.showGuide("user-guide.md#presets");
    guides.verticalScrollBar()->setValue(guides.verticalScrollBar()->value() + 60);
    const QString read = guides.cursorForPosition({100, 0}).block().text();
    for (const QSize &size : {QSize(700, 480), QSize(640, 460), QSize(560, 440), QSize(500, 420), QSize(800, 500)}) {
        help.resize(size);
        QApplication::processEvents();
        EXPECT_EQ(guides.cursorForPosition({100, 0}).block().text(), read) << size.width();
    }
    waitForPictures();
    EXPECT_EQ(guides.cursorForPosition({100, 0}).block().text(), read);
}

TEST_F(HelpWindowTest, TheEndStaysInSightInAWindowOfAnotherSize)
{
    help.resize(800, 500);
    waitForPictures();
    guides.showGuide("user-guide.md");
    guides.document()->size(); // lays out all of it
    QScrollBar &bar = *guides.verticalScrollBar();
    bar.setValue(bar.maximum());
    for (const QSize &size : {QSize(600, 450), QSize(500, 400), QSize(560, 420)}) {
        help.resize(size);
        QApplication::processEvents();
        EXPECT_EQ(bar.value(), bar.maximum()) << size.width();
    }
    waitForPictures();
    EXPECT_EQ(bar.value(), bar.maximum());
    guides.showGuide("first-wall.md");
    help.resize(640, 400);
    waitForPictures();
    EXPECT_EQ(bar.value(), 0); // nor does the beginning
}

TEST_F(HelpWindowTest, EveryLinkAndPictureOfTheGuidesIsShippedWithThem)
{
    static const QRegularExpression target("\\]\\(([^)#]+)");
    for (const char *page : {"first-wall.md", "user-guide.md", "file-formats.md"}) {
        QFile file(QString(":/docs/") + page);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << page;
        const QString text = QString::fromUtf8(file.readAll());
        for (auto found = target.globalMatch(text); found.hasNext();) {
            const QString name = found.next().captured(1);
            EXPECT_TRUE(QFile::exists(":/docs/" + name)) << page << ": " << qPrintable(name);
        }
    }
}
