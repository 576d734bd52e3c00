#include "canvas/CanvasRuler.h"

#include "tests/canvas/CanvasFixture.h"

#include <QPaintEvent>
#include <QPalette>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

namespace {
/// Rulers along the canvas of the fixture; an output pixel is a third of a logical pixel.
class CanvasRulerTest : public CanvasFixture
{
protected:
    CanvasRulerTest()
    {
        QPalette colours = view.palette();
        colours.setColor(QPalette::Window, ground);
        colours.setColor(QPalette::Mid, line);
        colours.setColor(QPalette::PlaceholderText, ticks);
        colours.setColor(QPalette::Highlight, mark);
        for (CanvasRuler *ruler : {&top, &left})
            ruler->setPalette(colours);
        top.setGeometry(50, 10, 664, 20);
        left.setGeometry(30, 30, 20, 384);
        top.show();
        left.show();
    }

    /// Along a ruler, `fromCanvas` device pixels away from it: the places of a colour.
    std::vector<int> places(CanvasRuler &ruler, int fromCanvas, const QColor &colour)
    {
        const QImage picture = ruler.grab().toImage();
        const bool isLevel = &ruler == &top;
        const int length = isLevel ? picture.width() : picture.height();
        const int depth = isLevel ? picture.height() : picture.width();
        std::vector<int> found;
        for (int i = 0; i < length; ++i) {
            const int other = depth - 1 - fromCanvas;
            if (picture.pixelColor(isLevel ? i : other, isLevel ? other : i) == colour)
                found.push_back(i);
        }
        return found;
    }
    std::vector<int> expectedTicks(int start, double length, int steps, int room) const
    {
        std::vector<int> found;
        for (int pixel = -100 * steps; pixel < 10000; pixel += steps) {
            const double place = start + pixel * length;
            if (std::lround(place) >= 0 && std::lround(place) < room)
                found.push_back(static_cast<int>(std::lround(place)));
        }
        return found;
    }
    int device(double logical) const { return qRound(logical * ratio()); }

    const QColor ground{20, 30, 40};
    const QColor line{90, 80, 70};
    const QColor ticks{200, 210, 220};
    const QColor mark{250, 10, 20};
    CanvasRuler top{Qt::Horizontal, view, &window};
    CanvasRuler left{Qt::Vertical, view, &window};
};
} // namespace

TEST(RulerSteps, NumbersStandAtOneTwoOrFiveTimesAPowerOfTen)
{
    EXPECT_EQ(RulerSteps::of(1, 60), (RulerSteps{100, 10}));
    EXPECT_EQ(RulerSteps::of(0.6, 60), (RulerSteps{100, 10}));
    EXPECT_EQ(RulerSteps::of(0.59, 60), (RulerSteps{200, 20}));
    EXPECT_EQ(RulerSteps::of(1.0 / 3, 60), (RulerSteps{200, 20}));
    EXPECT_EQ(RulerSteps::of(0.29, 60), (RulerSteps{500, 50}));
    EXPECT_EQ(RulerSteps::of(0.0195, 60), (RulerSteps{5000, 500}));
}

TEST(RulerSteps, FarInTheyAreSinglePixels)
{
    EXPECT_EQ(RulerSteps::of(6, 60), (RulerSteps{10, 1}));
    EXPECT_EQ(RulerSteps::of(12, 60), (RulerSteps{5, 1}));
    EXPECT_EQ(RulerSteps::of(32, 60), (RulerSteps{2, 1}));
    EXPECT_EQ(RulerSteps::of(64, 60), (RulerSteps{1, 1}));
}

TEST(RulerSteps, NumbersAreNeverNearerThanAskedFor)
{
    for (int power = 0; power < 150; ++power) { // to 6e-16
        const double length = 64 * std::pow(0.77, power);
        const RulerSteps steps = RulerSteps::of(length, 60);
        EXPECT_GE(double(steps.numbered) * length, 60) << length;
        EXPECT_LT(steps.numbered == 1 ? 0 : double(steps.numbered) * length, 151) << length;
        EXPECT_EQ(steps.numbered % steps.ticked, 0);
    }
}

TEST_F(CanvasRulerTest, TicksStandAtTheOutputsPixels)
{
    // Above the short ticks there are those of the numbers, every 200 pixels, and the middle ones.
    const int room = device(664);
    EXPECT_EQ(places(top, device(3), ticks), expectedTicks(device(12), ratio() / 3, 20, room));
    EXPECT_EQ(places(top, device(6), ticks), expectedTicks(device(12), ratio() / 3, 100, room));
    EXPECT_EQ(places(left, device(3), ticks), expectedTicks(device(12), ratio() / 3, 20, device(384)));
}

TEST_F(CanvasRulerTest, TheyFollowZoomAndPan)
{
    view.setZoom(1200);
    const int start = view.deviceFrame().place().x();
    EXPECT_EQ(places(top, device(2), ticks), expectedTicks(start, 12, 1, device(664)));
    press({0, 0}, Qt::MiddleButton);
    moveTo({37, 11}, Qt::MiddleButton);
    release({37, 11}, Qt::MiddleButton);
    const int panned = view.deviceFrame().place().x();
    EXPECT_EQ(panned, start + device(37));
    EXPECT_EQ(places(top, device(2), ticks), expectedTicks(panned, 12, 1, device(664)));
    EXPECT_EQ(places(left, device(2), ticks), expectedTicks(view.deviceFrame().place().y(), 12, 1, device(384)));
}

TEST_F(CanvasRulerTest, TheyFollowTheCanvasSize)
{
    view.setGeometry(50, 30, 344, 204);
    top.setGeometry(50, 10, 344, 20);
    EXPECT_EQ(places(top, device(3), ticks), expectedTicks(device(12), ratio() / 6, 50, device(344)));
}

TEST_F(CanvasRulerTest, NumbersStandBehindTheirTicks)
{
    const QImage picture = top.grab().toImage();
    const auto ink = [&](int from, int to) {
        int pixels = 0;
        for (int y = 0; y < device(12); ++y) {
            for (int x = device(from); x < device(to); ++x)
                pixels += picture.pixelColor(x, y) != ground;
        }
        return pixels;
    };
    EXPECT_GT(ink(12 + 2, 12 + 12), 0);           // 0
    EXPECT_GT(ink(79 + 2, 79 + 26), ink(14, 24)); // 200
    EXPECT_EQ(ink(12 + 15, 12 + 65), 0);          // up to the next
    const QImage upright = left.grab().toImage();
    int pixels = 0;
    for (int x = 0; x < device(12); ++x) {
        for (int y = device(79 + 2); y < device(79 + 26); ++y)
            pixels += upright.pixelColor(x, y) != ground;
    }
    EXPECT_GT(pixels, 20);
}

TEST_F(CanvasRulerTest, ANumberIsWholeOrNotThere)
{
    const auto inkBehind1800 = [this](int width) {
        top.setGeometry(50, 10, width, 20);
        const QImage picture = top.grab().toImage();
        int pixels = 0;
        for (int y = 0; y < device(12); ++y) {
            for (int x = device(12 + 600 + 2); x < picture.width(); ++x)
                pixels += picture.pixelColor(x, y) != ground;
        }
        return pixels;
    };
    EXPECT_GT(inkBehind1800(664), 0);
    EXPECT_EQ(inkBehind1800(12 + 600 + 16), 0); // "18" would fit
}

TEST_F(CanvasRulerTest, ThePixelUnderThePointerIsMarked)
{
    EXPECT_TRUE(places(top, device(18), mark).empty());
    moveTo({101, 51}, Qt::NoButton); // pixel 303, 153: no tick
    const int width = std::max(1, qRound(ratio() / 3));
    EXPECT_EQ(places(top, device(10), mark), std::vector{device(113)});
    EXPECT_EQ(places(left, device(10), mark), std::vector{device(63)});
    EXPECT_EQ(places(top, device(1), mark).size(), static_cast<std::size_t>(width));
    moveTo({-5, 50}, Qt::NoButton);
    EXPECT_TRUE(places(top, device(10), mark).empty());
    EXPECT_TRUE(places(left, device(10), mark).empty());
}

TEST_F(CanvasRulerTest, FarInTheMarkIsAsWideAsThePixel)
{
    view.setZoom(3200);
    moveTo(QPointF(300, 200) - view.frame().topLeft(), Qt::NoButton);
    ASSERT_TRUE(view.readOut().pixel);
    const int start = view.deviceFrame().place().x() + 32 * view.readOut().pixel->x();
    const std::vector<int> marked = places(top, device(2), mark);
    ASSERT_GE(marked.size(), 31U); // the tick at its beginning is painted over it
    EXPECT_EQ(marked.back(), start + 31);
}

TEST_F(CanvasRulerTest, OnlyTheMarkIsPaintedAnewForThePointer)
{
    class Watch final : public QObject
    {
    public:
        QRegion painted;
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::Paint)
                painted += static_cast<QPaintEvent *>(event)->region();
            return false;
        }
    } watch;
    moveTo({100, 50}, Qt::NoButton);
    QTest::qWait(20);
    top.installEventFilter(&watch);
    moveTo({200, 50}, Qt::NoButton);
    QTest::qWait(20);
    EXPECT_TRUE(watch.painted.contains(QPoint(112, 10)));
    EXPECT_TRUE(watch.painted.contains(QPoint(212, 10)));
    EXPECT_FALSE(watch.painted.contains(QPoint(160, 10)));
    EXPECT_FALSE(watch.painted.contains(QPoint(20, 10)));
}

TEST_F(CanvasRulerTest, WithoutAnOutputItIsEmpty)
{
    moveTo({100, 50}, Qt::NoButton);
    showOutput(QImage());
    for (CanvasRuler *ruler : {&top, &left}) {
        EXPECT_TRUE(places(*ruler, device(3), ticks).empty());
        EXPECT_TRUE(places(*ruler, device(3), mark).empty());
        EXPECT_EQ(places(*ruler, 0, line).size(), static_cast<std::size_t>(device(ruler == &top ? 664 : 384)));
    }
}

TEST_F(CanvasRulerTest, TheFrameTellsWhenItChanges)
{
    const QSignalSpy told(&view, &LWCanvasImageView::frameDidChange);
    view.zoomTo100();
    EXPECT_EQ(told.size(), 1);
    view.zoomTo100();
    EXPECT_EQ(told.size(), 1);
    view.resize(600, 384);
    EXPECT_EQ(told.size(), 2);
    showOutput({1920, 1080});
    EXPECT_EQ(told.size(), 2);
    showOutput({192, 108});
    EXPECT_EQ(told.size(), 3);
}
