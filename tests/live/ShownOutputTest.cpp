#include "live/ShownOutput.h"

#include <QPainter>

#include <gtest/gtest.h>
#include <random>

namespace {
class ShownOutputTest : public ::testing::Test
{
protected:
    ShownOutputTest()
    {
        QObject::connect(&shown, &ShownOutput::changed, &shown, [this] { ++changes; });
        composed.picture = QImage(120, 80, QImage::Format_ARGB32_Premultiplied);
        composed.picture.fill(Qt::darkGreen);
        composed.isOpaque = true;
        shown.takeComposed();
        changes = 0;
    }

    /// As a composition that draws there does.
    void compose(const QRect &part, const QColor &colour)
    {
        const qint64 before = composed.picture.cacheKey();
        QPainter(&composed.picture).fillRect(part, colour);
        composed.changes.add(before, part);
        shown.takeComposed();
    }
    void show(const char *name, const std::vector<LiveChart::Place> &places, bool isOver = false)
    {
        LiveChart::Style style;
        style.rate = 50;
        style.isOver = isOver;
        chart.show(*Chart::find(name), style, places);
    }
    const QImage &seen() const { return shown.output().picture; }
    /// What all of it would look like, drawn at once.
    QImage whole() const
    {
        QImage picture = composed.picture.copy();
        QPainter painter(&picture);
        for (const LiveChart::Picture &one : chart.pictures()) {
            QImage image = one.image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
            for (int y = 0; y < (one.isOver ? image.height() : 0); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    if (image.pixelColor(x, y) == QColor(Qt::black))
                        image.setPixelColor(x, y, Qt::transparent);
                }
            }
            painter.drawImage(one.box.topLeft(), image);
        }
        return picture;
    }

    qint64 now = 0;
    int changes = 0;
    ComposedOutput composed;
    LiveChart chart{[this] { return now; }};
    ShownOutput shown{composed, chart};
};
} // namespace

TEST_F(ShownOutputTest, WithoutAChartItIsTheComposedOneItself)
{
    EXPECT_EQ(&shown.output(), &composed);
    compose({3, 4, 5, 6}, Qt::red);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(seen().pixelColor(3, 4), QColor(Qt::red));
    EXPECT_TRUE(composed.picture.isDetached()); // the next composition need not copy it
}

TEST_F(ShownOutputTest, AChartLiesOverItAndEndsAtItsEdge)
{
    show("field", {{QRect(100, 10, 40, 20)}});
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(seen().size(), QSize(120, 80));
    EXPECT_EQ(seen().pixelColor(100, 10), QColor(Qt::white));
    EXPECT_EQ(seen().pixelColor(119, 29), QColor(Qt::white));
    EXPECT_EQ(seen().pixelColor(99, 10), QColor(Qt::darkGreen));
    EXPECT_EQ(seen().pixelColor(119, 30), QColor(Qt::darkGreen));
    EXPECT_TRUE(shown.output().isOpaque);
    chart.end();
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(&shown.output(), &composed);
}

TEST_F(ShownOutputTest, AFrameSaysWhatItChanges)
{
    show("sweep", {{QRect(20, 10, 60, 40)}});
    const qint64 before = seen().cacheKey();
    now += 100'000'000;
    chart.tick();
    EXPECT_EQ(changes, 2);
    const std::optional<QRegion> change = shown.output().changes.since(before);
    ASSERT_TRUE(change);
    EXPECT_FALSE(change->isEmpty());
    EXPECT_TRUE((*change - QRect(20, 10, 60, 40)).isEmpty());
    EXPECT_EQ(seen(), whole());
}

TEST_F(ShownOutputTest, AnEditUnderAChartIsSeenBesideItAlone)
{
    show("field", {{QRect(20, 10, 60, 40)}});
    const qint64 before = seen().cacheKey();
    compose({70, 40, 30, 30}, Qt::red);
    EXPECT_EQ(shown.output().changes.since(before), QRegion(70, 40, 30, 30) - QRect(20, 10, 60, 40));
    EXPECT_EQ(seen(), whole());
    compose({30, 20, 2, 2}, Qt::blue); // hidden by the chart
    EXPECT_EQ(changes, 2);
    chart.end();
    EXPECT_EQ(seen().pixelColor(30, 20), QColor(Qt::blue));
}

TEST_F(ShownOutputTest, AnotherSizeOfTheOutputIsTaken)
{
    show("field", {{QRect(20, 10, 200, 40)}});
    composed.picture = QImage(300, 90, QImage::Format_ARGB32_Premultiplied);
    composed.picture.fill(Qt::black);
    shown.takeComposed();
    EXPECT_EQ(seen(), whole());
    composed.picture = {};
    shown.takeComposed();
    EXPECT_TRUE(seen().isNull());
}

TEST_F(ShownOutputTest, AnOutputThatComesBackHasItsChartAgain)
{
    show("field", {{QRect(20, 10, 20, 10)}});
    const QImage before = composed.picture;
    composed.picture = {};
    shown.takeComposed();
    EXPECT_TRUE(seen().isNull());
    composed.picture = before;
    shown.takeComposed();
    EXPECT_EQ(seen().pixelColor(20, 10), QColor(Qt::white));
}

TEST_F(ShownOutputTest, OverThePictureThatIsSeenWhereTheChartIsBlack)
{
    show("sweep", {{QRect(20, 10, 60, 40)}}, true);
    const QImage &bar = chart.pictures()[0].image;
    for (int x = 0; x < 60; ++x)
        ASSERT_EQ(seen().pixelColor(20 + x, 10),
                  bar.pixelColor(x, 0) == QColor(Qt::black) ? QColor(Qt::darkGreen) : bar.pixelColor(x, 0));
    EXPECT_EQ(seen(), whole());
}

TEST_F(ShownOutputTest, MendedItIsAsDrawnAtOnce)
{
    constexpr int steps = 2000;
    std::mt19937 random(4711);
    const auto upTo = [&random](int most) { return std::uniform_int_distribution<>(0, most)(random); };
    const auto box = [&upTo] { return QRect(upTo(110) - 10, upTo(70) - 10, 1 + upTo(60), 1 + upTo(40)); };
    for (int step = 0; step < steps; ++step) {
        const int act = upTo(9);
        if (act == 0)
            show(upTo(1) != 0 ? "sweep" : "sync", {{box()}, {box()}, {box()}}, upTo(1) != 0);
        else if (act < 5)
            compose(box() & composed.picture.rect(), QColor::fromHsv(upTo(359), 255, 255));
        now += upTo(100'000'000);
        chart.tick();
        ASSERT_EQ(seen(), whole()) << step;
    }
}
