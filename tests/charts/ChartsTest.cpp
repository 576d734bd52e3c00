#include "tests/charts/TestShapes.h"

#include <QRandomGenerator>

#include <limits>
#include <set>

namespace {
constexpr QRgb untouched = qRgb(1, 254, 3);

QImage canvasOf(const QSize &size)
{
    QImage raster(size, QImage::Format_RGB32);
    raster.fill(untouched);
    return raster;
}

/// Panels of all sizes that lie anywhere, over each other and beyond the edges, in no order.
ChartShape shapeOfAnyPanels()
{
    QRandomGenerator random(3);
    ChartShape shape{.size = {211, 173}};
    for (int i = 0; i < 60; ++i) {
        const QRect box(random.bounded(-40, 200), random.bounded(-40, 170), random.bounded(0, 70),
                        random.bounded(0, 50));
        shape.panels.push_back({box, QString::number(i), QString("P%1").arg(random.bounded(4)), random.bounded(0, 9)});
        shape.walls.push_back(box);
    }
    return shape;
}

/// Sizes of outputs, of strips and of what only a mistake asks for.
std::vector<ChartShape> shapes()
{
    std::vector<ChartShape> all;
    for (const QSize &size : {QSize(1, 1), QSize(7, 3), QSize(104, 1456), QSize(333, 77), QSize(640, 361)}) {
        for (const LevelRange range : {LevelRange::Full, LevelRange::Narrow}) {
            ChartShape shape = shapeWithPanels(size);
            shape.range = range;
            all.push_back(shape);
        }
    }
    all.push_back(shapeOfAnyPanels());
    return all;
}

QRect randomBox(QRandomGenerator &random, const QSize &size)
{
    return {random.bounded(-3, size.width()), random.bounded(-3, size.height()), random.bounded(1, size.width() + 4),
            random.bounded(1, size.height() + 4)};
}
} // namespace

TEST(Charts, HaveNamesOfTheirOwn)
{
    std::set<QString> names;
    ChartGroup last = ChartGroup::Rigging;
    for (const Chart &chart : Chart::all()) {
        EXPECT_TRUE(names.insert(chart.name).second) << chart.name;
        EXPECT_EQ(Chart::find(chart.name), &chart);
        EXPECT_LE(last, chart.group) << chart.name << " stands beside its group";
        EXPECT_NE(QString(chart.title), QString());
        EXPECT_NE(QString(chart.finds), QString());
        last = chart.group;
    }
    EXPECT_EQ(Chart::find("nothing"), nullptr);
    EXPECT_EQ(Chart::find(""), nullptr);
}

TEST(Charts, OfAnySizeWriteEachPixel)
{
    for (const ChartShape &shape : shapes()) {
        for (const Chart &chart : Chart::all()) {
            for (const qint64 frame : {qint64{0}, qint64{61}, qint64{-7}, std::numeric_limits<qint64>::max(),
                                       std::numeric_limits<qint64>::min()}) {
                QImage raster = canvasOf(shape.size);
                chart.draw(shape, frame, raster, raster.rect());
                qsizetype left = 0;
                for (int y = 0; y < raster.height(); ++y) {
                    for (int x = 0; x < raster.width(); ++x)
                        left += raster.pixel(x, y) == untouched ? 1 : 0;
                }
                EXPECT_EQ(left, 0) << chart.name << " " << shape.size.width() << " frame " << frame;
            }
        }
    }
}

TEST(Charts, DrawnInPartsAreAsDrawnWhole)
{
    QRandomGenerator random(7);
    for (const ChartShape &shape : shapes()) {
        for (const Chart &chart : Chart::all()) {
            const qint64 frame = random.bounded(10'000);
            QRegion parts;
            for (int i = 0; i < 5; ++i)
                parts += randomBox(random, shape.size);
            QImage raster = canvasOf(shape.size);
            QImage expected = chart.picture(shape, frame);

            chart.draw(shape, frame, raster, parts);

            for (const QRect &beside : QRegion(raster.rect()) - parts) {
                for (int y = beside.top(); y <= beside.bottom(); ++y) {
                    for (int x = beside.left(); x <= beside.right(); ++x)
                        expected.setPixel(x, y, untouched);
                }
            }
            ASSERT_EQ(raster, expected) << chart.name << " " << shape.size.width() << " frame " << frame;
        }
    }
}

TEST(Charts, MendedWhereTheyMovedAreAsDrawnAnew)
{
    QRandomGenerator random(11);
    for (const ChartShape &shape : shapes()) {
        for (const Chart &chart : Chart::all()) {
            qint64 shown = random.bounded(100'000);
            QImage raster = chart.picture(shape, shown);
            for (int i = 0; i < 12; ++i) {
                const qint64 next = i % 2 == 0 ? shown + 1 : random.bounded(100'000) - 5;
                chart.draw(shape, next, raster, chart.moved(shape, shown, next));
                ASSERT_EQ(raster, chart.picture(shape, next))
                    << chart.name << " " << shape.size.width() << " from " << shown << " to " << next;
                shown = next;
            }
        }
    }
}

TEST(Charts, ThatStandStillMoveNothing)
{
    const ChartShape shape = shapeWithPanels({333, 77});
    for (const Chart &chart : Chart::all()) {
        if (chart.moves())
            continue;
        EXPECT_TRUE(chart.moved(shape, 0, 1000).isEmpty()) << chart.name;
        EXPECT_EQ(chart.picture(shape, 0), chart.picture(shape, 1000)) << chart.name;
    }
}

TEST(Charts, NameTheirRangeInTheCornerWhereAsked)
{
    ChartShape shape{.size = fullHd};
    const QImage plain = pictureOf("bars-75", shape);
    shape.caption = true;
    const QImage captioned = pictureOf("bars-75", shape);
    EXPECT_NE(captioned, plain);
    EXPECT_EQ(captioned.copy(0, 0, 1920, 1040), plain.copy(0, 0, 1920, 1040));
    EXPECT_EQ(pictureOf("checker-1px", shape), pictureOf("checker-1px", fullHd)) << "its range does not matter";
}

TEST(ColourCycle, ShowsEachColourForSixtyFrames)
{
    const ChartShape shape{.size = {640, 360}};
    const std::vector<QRgb> colours{qRgb(255, 255, 255), qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255),
                                    qRgb(0, 0, 0)};
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(pictureOf("cycle", shape, 60 * i).pixel(0, 0), colours[static_cast<std::size_t>(i % 5)]);
        EXPECT_EQ(pictureOf("cycle", shape, 60 * i + 59).pixel(0, 0), colours[static_cast<std::size_t>(i % 5)]);
    }
    EXPECT_EQ(pictureOf("cycle", shape, 37), pictureOf("cycle", shape, 337));
    EXPECT_TRUE(Chart::find("cycle")->moved(shape, 60, 119).isEmpty());
}

TEST(SweepBar, MovesWholePixelsEachFrame)
{
    ChartShape shape{.size = fullHd};
    shape.options.speed = 4;
    // It begins one bar before the left edge.
    expectGreys(pictureOf("sweep", shape, 0), {{0, 0, 0}});
    expectGreys(pictureOf("sweep", shape, 1), {{3, 0, 255}, {4, 0, 0}});
    expectGreys(pictureOf("sweep", shape, 104), {{399, 540, 0}, {400, 540, 255}, {415, 540, 255}, {416, 540, 0}});
    expectGreys(pictureOf("sweep-down", shape, 104), {{7, 399, 0}, {7, 400, 255}, {7, 415, 255}, {7, 416, 0}});
    expectGreys(pictureOf("sweep-diagonal", shape, 104),
                {{399, 0, 0}, {400, 0, 255}, {0, 400, 255}, {200, 215, 255}, {200, 216, 0}});
    EXPECT_EQ(pictureOf("sweep", shape, 5), pictureOf("sweep", shape, 5 + 484)) << "1,936 px in 484 frames";
}
