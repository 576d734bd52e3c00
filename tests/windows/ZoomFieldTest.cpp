#include "windows/ZoomField.h"

#include "canvas/LWCanvasImageView.h"
#include "tests/windows/WindowFixture.h"
#include "windows/PowerBar.h"
#include "windows/Theme.h"

#include <QLabel>
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

TEST_F(ZoomFieldTest, WhatIsWrongIsFramedAndToldWhileItIsTyped)
{
    const std::pair<const char *, const char *> cases[] = {{"1e3", "\"1e3\" is more than digits; write them all."},
                                                           {"12,5", "\"12,5\" has a comma; leave it out."},
                                                           {"3201", "3201 is out of range; type 1 to 3,200."}};
    for (const auto &[text, sentence] : cases) {
        type(text);
        EXPECT_TRUE(shows(sentence)) << text;
        EXPECT_EQ(field().grab().toImage().pixelColor(0, field().height() / 2), Theme::danger) << text;
        QTest::keyClick(&field(), Qt::Key_Escape);
        EXPECT_FALSE(shows(sentence)) << text;
        EXPECT_NE(field().grab().toImage().pixelColor(0, field().height() / 2), Theme::danger) << text;
    }
}

TEST_F(ZoomFieldTest, ItsFaultTakesOnlyItsOwnMessageAway)
{
    PowerBar &bar = *window.findChild<PowerBar *>();
    type("1e3");
    bar.showFailure("It could not be done");
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_TRUE(shows("It could not be done"));

    type("1e3");
    EXPECT_FALSE(shows("It could not be done"));
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_EQ(bar.findChild<QLabel *>(PowerBar::messageName)->text(), QString());
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
