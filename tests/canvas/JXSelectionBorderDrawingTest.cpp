#include "canvas/JXSelectionBorder.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <gtest/gtest.h>

namespace {
/// A red marker on a black view of 320 x 200.
class JXSelectionBorderDrawing : public ::testing::Test
{
protected:
    JXSelectionBorderDrawing()
    {
        border.setColors(NamedColour::red);
        border.setSelectedRect({100, 60, 80, 40});
    }

    QImage drawn(double pixelRatio = 1) const
    {
        QImage view(QSize(320, 200) * pixelRatio, QImage::Format_ARGB32_Premultiplied);
        view.setDevicePixelRatio(pixelRatio);
        view.fill(Qt::black);
        QPainter painter(&view);
        border.drawContentInView(painter, {0, 0, 320, 200});
        return view;
    }

    static int count(const QImage &view, const QColor &colour)
    {
        int pixels = 0;
        for (int y = 0; y < view.height(); ++y) {
            for (int x = 0; x < view.width(); ++x)
                pixels += view.pixelColor(x, y) == colour;
        }
        return pixels;
    }

    /// Where `colour` is.
    static QRect extent(const QImage &view, const QColor &colour)
    {
        QRect box;
        for (int y = 0; y < view.height(); ++y) {
            for (int x = 0; x < view.width(); ++x) {
                if (view.pixelColor(x, y) == colour)
                    box |= QRect(x, y, 1, 1);
            }
        }
        return box;
    }

    const QColor knob = QGuiApplication::palette().color(QPalette::BrightText);
    const QColor outline = Qt::red;
    JXSelectionBorder border;
};
} // namespace

TEST_F(JXSelectionBorderDrawing, EightSquaresOfTenStandOnTheOutline)
{
    const QImage view = drawn();

    EXPECT_EQ(count(view, knob), 8 * 100);
    for (int number = 1; number <= JXSelectionBorder::handleCount; ++number) {
        const QPoint middle =
            JXSelectionBorder::locationOfHandle(static_cast<JXSelectionBorder::Handle>(number), border.selectedRect())
                .toPoint();
        EXPECT_EQ(view.pixelColor(middle - QPoint(5, 5)), knob) << number;
        EXPECT_EQ(view.pixelColor(middle + QPoint(4, 4)), knob) << number;
        EXPECT_NE(view.pixelColor(middle + QPoint(5, 5)), knob) << number;
    }
}

TEST_F(JXSelectionBorderDrawing, HandlesAreSharpWhereverTheyStand)
{
    border.setSelectedRect({100.4, 60.6, 80.3, 40.2});
    EXPECT_EQ(count(drawn(), knob), 8 * 100);
    EXPECT_EQ(drawn().pixelColor(95, 56), knob);
    EXPECT_NE(drawn().pixelColor(94, 56), knob);
    EXPECT_NE(drawn().pixelColor(95, 55), knob);

    border.setSelectedRect({100.3, 60.2, 80, 40});
    EXPECT_EQ(count(drawn(2), knob), 8 * 400);
    EXPECT_EQ(drawn(2).pixelColor(191, 110), knob); // 95.3 x 55.2
    EXPECT_NE(drawn(2).pixelColor(190, 110), knob);
}

TEST_F(JXSelectionBorderDrawing, AHandleIsSharpForAPainterThatSmoothsEdges)
{
    QImage view(100, 100, QImage::Format_ARGB32_Premultiplied);
    view.fill(Qt::black);
    QPainter painter(&view);
    painter.setRenderHint(QPainter::Antialiasing);
    border.drawHandleInView(painter, {50.4, 50.7});
    painter.end();

    EXPECT_EQ(extent(view, knob), QRect(45, 46, 10, 10));
    EXPECT_EQ(count(view, Qt::black), 100 * 100 - 10 * 10);
}

TEST_F(JXSelectionBorderDrawing, TheOutlineIsDashedAndOneUnitWide)
{
    border.setDrawingHandles(false);
    const QImage view = drawn();

    EXPECT_EQ(count(view, knob), 0);
    EXPECT_EQ(extent(view, outline), QRect(QPoint(100, 60), QPoint(180, 100)));
    EXPECT_NEAR(count(view, outline), 80 + 40, 8);
}

TEST_F(JXSelectionBorderDrawing, AnotherDashStyleIsASolidLine)
{
    border.setDrawingHandles(false);
    border.setDashStyle(0);
    EXPECT_EQ(count(drawn(), outline), 2 * 80 + 2 * 40);
    border.setBorderWidth(3);
    EXPECT_EQ(count(drawn(), outline), 83 * 43 - 77 * 37);
}

TEST_F(JXSelectionBorderDrawing, HiddenOrWithoutARectangleItDrawsNothing)
{
    border.setHide(true);
    EXPECT_EQ(count(drawn(), Qt::black), 320 * 200);
    border.setHide(false);
    EXPECT_LT(count(drawn(), Qt::black), 320 * 200);
    border.setSelectedRect({0, 0, 0, 0});
    EXPECT_EQ(count(drawn(), Qt::black), 320 * 200);
    EXPECT_TRUE(border.bezierPathForDrawing().isEmpty());
}

TEST_F(JXSelectionBorderDrawing, ARectangleOutOfSightLeavesNoTrace)
{
    border.setSelectedRect({1000, 1000, 80, 40});
    EXPECT_EQ(count(drawn(), Qt::black), 320 * 200);
}

TEST_F(JXSelectionBorderDrawing, AnOutlineOfMillionsOfDashesTakesNoTime)
{
    border.setSelectedRect({-2e9, 100, 4e9, 1e9});
    QElapsedTimer time;
    time.start();
    const QImage view = drawn();

    EXPECT_LT(time.elapsed(), 500);
    EXPECT_EQ(extent(view, outline).top(), 100);
    EXPECT_EQ(extent(view, outline).height(), 1);
    EXPECT_NEAR(count(view, outline), 160, 8);
}

TEST_F(JXSelectionBorderDrawing, TheGridIsSpreadOverTheSizeAndCountedFromTheView)
{
    QImage view(200, 120, QImage::Format_ARGB32_Premultiplied);
    view.fill(Qt::red);
    QPainter painter(&view);
    border.drawGridsInRect(painter, {30, 20, 90, 63}, 2);
    painter.end();

    const QColor grid(QGuiApplication::palette().color(QPalette::Mid).rgb());
    for (const int y : {21, 42}) {
        EXPECT_EQ(view.pixelColor(33, y), grid) << y;
        EXPECT_EQ(view.pixelColor(88, y), grid) << y;
        EXPECT_EQ(view.pixelColor(28, y), QColor(Qt::red)) << y;
        EXPECT_EQ(view.pixelColor(91, y), QColor(Qt::red)) << y;
    }
    for (const int x : {30, 60}) {
        EXPECT_EQ(view.pixelColor(x, 24), grid) << x;
        EXPECT_EQ(view.pixelColor(x, 61), grid) << x;
        EXPECT_EQ(view.pixelColor(x, 18), QColor(Qt::red)) << x;
        EXPECT_EQ(view.pixelColor(x, 64), QColor(Qt::red)) << x;
    }
    EXPECT_EQ(view.pixelColor(45, 63), QColor(Qt::red));
    EXPECT_EQ(view.pixelColor(90, 30), QColor(Qt::red));
}

TEST_F(JXSelectionBorderDrawing, AGridOfNoLinesIsNone)
{
    QImage view(200, 120, QImage::Format_ARGB32_Premultiplied);
    view.fill(Qt::red);
    QPainter painter(&view);
    border.drawGridsInRect(painter, {30, 20, 90, 63}, 0);
    painter.end();
    EXPECT_EQ(count(view, Qt::red), 200 * 120);
}
