#include "app/windows/ZoomField.h"

#include "canvas/LWCanvasImageView.h"
#include "tests/windows/WindowFixture.h"

#include <QTest>

class ZoomFieldTest : public WindowFixture
{
protected:
    ZoomField &field() { return *window.findChild<ZoomField *>(); }
    void type(const QString &text)
    {
        field().setFocus();
        field().selectAll();
        QTest::keyClicks(&field(), text);
    }
};

TEST_F(ZoomFieldTest, ItShowsTheZoom)
{
    pressControl(Qt::Key_1, {});
    EXPECT_EQ(field().text(), "100 %");
    EXPECT_TRUE(shows("1,920 × 1,080 px"));
}

TEST_F(ZoomFieldTest, EnterTakesWhatWasTyped)
{
    type("2*100 %");
    EXPECT_EQ(field().text(), "2*100 %");
    EXPECT_TRUE(canvas().readOut().isFitted);
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(canvas().readOut().zoomPercent, 200);
    EXPECT_EQ(field().text(), "200 %");
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(ZoomFieldTest, WhatIsNoZoomIsNotTaken)
{
    pressControl(Qt::Key_1, {});
    for (const char *text : {"wide", "0", "-50", "1/0", ""}) {
        type(text);
        QTest::keyClick(&field(), Qt::Key_Return);
        EXPECT_EQ(field().text(), "100 %") << text;
        EXPECT_EQ(canvas().readOut().zoomPercent, 100) << text;
    }
}

TEST_F(ZoomFieldTest, EscapeAndLeavingTakeBackWhatWasTyped)
{
    pressControl(Qt::Key_1, {});
    type("30");
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_EQ(field().text(), "100 %");
    type("30");
    canvas().setFocus();
    EXPECT_EQ(field().text(), "100 %");
}

TEST_F(ZoomFieldTest, ADoubleClickFits)
{
    pressControl(Qt::Key_1, {});
    QTest::mouseDClick(&field(), Qt::LeftButton);
    EXPECT_TRUE(canvas().readOut().isFitted);
}

TEST_F(ZoomFieldTest, TheButtonFits)
{
    pressControl(Qt::Key_1, {});
    click(window, "Fit");
    EXPECT_TRUE(canvas().readOut().isFitted);
}
