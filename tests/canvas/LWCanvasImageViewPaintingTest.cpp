#include "drawing/TextLine.h"
#include "tests/canvas/CanvasFixture.h"

#include <QPalette>

namespace {
class LWCanvasImageViewPainting : public CanvasFixture
{
protected:
    LWCanvasImageViewPainting()
    {
        QPalette colours = view.palette();
        colours.setColor(QPalette::Base, ground);
        colours.setColor(QPalette::Mid, line);
        colours.setColor(QPalette::ToolTipBase, label);
        view.setPalette(colours);
    }

    void show(const QImage &output)
    {
        document.outputSize = output.size();
        showOutput(output);
    }
    QSize sizeOfPlace() const { return (view.frame().size() * ratio()).toSize(); }

    const QColor ground{20, 30, 40};
    const QColor line{90, 80, 70};
    const QColor label{1, 2, 3};
};
} // namespace

TEST_F(LWCanvasImageViewPainting, AtFullSizeEveryPixelIsTheOutputs)
{
    const QImage output = picturedNoise({601, 301});
    show(output);
    view.zoomTo100();
    EXPECT_EQ(sizeOfPlace(), QSize(601, 301));
    EXPECT_EQ(seen().copy(QRect(placeOfOutput(), output.size())), output);
}

TEST_F(LWCanvasImageViewPainting, LargerThanTheCanvasThePartInSightIsPainted)
{
    const QImage output = picturedNoise({2401, 1601});
    show(output);
    view.zoomTo100();
    const QImage picture = seen();
    EXPECT_EQ(picture, output.copy(QRect(-placeOfOutput(), picture.size())));
}

TEST_F(LWCanvasImageViewPainting, AboveFullSizeEveryPixelIsABlock)
{
    const QImage output = picturedNoise({301, 201});
    show(output);
    for (const int factor : {2, 3, 8, 32}) {
        view.setZoom(factor * 100);
        const QImage picture = seen();
        const QRect inSight = picture.rect() & QRect(placeOfOutput(), output.size() * factor);
        const QImage enlarged = output.scaled(output.size() * factor);
        EXPECT_EQ(picture.copy(inSight), enlarged.copy(inSight.translated(-placeOfOutput()))) << factor;
    }
}

TEST_F(LWCanvasImageViewPainting, NoOnePixelLineVanishesBelowFullSize)
{
    const QSize size(1920, 1080);
    show(picturedLines(size));
    for (const double percent : {0.0, 33.0, 52.0, 87.0}) {
        percent > 0 ? view.setZoom(percent) : view.zoomToFit();
        const QImage picture = seen();
        const double across = double(sizeOfPlace().width()) / size.width();
        const double down = double(sizeOfPlace().height()) / size.height();
        const QPoint place = placeOfOutput();
        // A line's light, spread over two pixels at worst.
        const int least = static_cast<int>(255 * std::min(across, down) / 2) - 2;
        int lines = 0;
        for (int at = 7; at < size.width(); at += 60) {
            // Across the line, half way between those of the other direction.
            const QPoint upright = place + QPoint(int((at + 0.5) * across), int((600 + 37) * down));
            const QPoint level = place + QPoint(int((960 + 37) * across), int((at + 0.5) * down));
            for (const QPoint &point : {upright, level}) {
                if (!picture.rect().contains(point) || (point == level && at >= size.height()))
                    continue;
                ++lines;
                EXPECT_GE(picture.pixelColor(point).red(), least) << percent << " line " << at;
            }
        }
        EXPECT_GT(lines, 15);
    }
}

TEST_F(LWCanvasImageViewPainting, TheOutputHasAnOutlineOutsideItsEdge)
{
    show(picturedLines({1920, 1080}));
    const QImage picture = seen();
    const QRect frame = QRect(placeOfOutput(), sizeOfPlace()).adjusted(-1, -1, 1, 1);
    for (const QPoint &corner : {frame.topLeft(), frame.topRight(), frame.bottomLeft(), frame.bottomRight()})
        EXPECT_EQ(picture.pixelColor(corner), line);
    EXPECT_EQ(picture.pixelColor(frame.topLeft() - QPoint(1, 1)), ground);
    EXPECT_EQ(picture.pixelColor(frame.bottomRight() + QPoint(1, 1)), ground);
    EXPECT_EQ(picture.pixelColor(frame.topLeft() + QPoint(1, 1)), QColor(Qt::black));
    EXPECT_EQ(picture.pixelColor(frame.bottomRight() - QPoint(1, 1)), QColor(Qt::black));
}

TEST_F(LWCanvasImageViewPainting, TheGroundShowsThroughATransparentOutput)
{
    QImage output(400, 300, QImage::Format_ARGB32_Premultiplied);
    output.fill(Qt::transparent);
    show(output);
    EXPECT_EQ(seen().pixelColor(seen().rect().center()), ground);
}

TEST_F(LWCanvasImageViewPainting, ANewOutputOfTheSameSizeIsSeen)
{
    show(picturedLines({1920, 1080}));
    const QImage before = seen();
    QImage white(1920, 1080, QImage::Format_ARGB32_Premultiplied);
    white.fill(Qt::white);
    show(white);
    EXPECT_NE(seen(), before);
    EXPECT_EQ(seen().pixelColor(seen().rect().center()), QColor(Qt::white));
}

TEST_F(LWCanvasImageViewPainting, NoOutputIsSaidInWords)
{
    showOutput(QImage());
    const QImage picture = seen();
    QImage empty = picture;
    empty.fill(ground);
    EXPECT_NE(picture, empty);
    EXPECT_EQ(picture.pixelColor(5, 5), ground);
}

TEST_F(LWCanvasImageViewPainting, TheMarkerIsPaintedOverTheOutputWhileItIsShown)
{
    selectStill({300, 200}, {600, 300});
    const QColor knob = view.palette().color(QPalette::BrightText);
    const QPoint handle = ((view.frame().topLeft() + view.cropMarker().selectedRect().topLeft()) * ratio()).toPoint();
    EXPECT_EQ(seen().pixelColor(handle), knob);
    view.hideRectangle();
    EXPECT_EQ(seen().pixelColor(handle), QColor(Qt::black));
}

TEST_F(LWCanvasImageViewPainting, PlaceAndSizeStandBesideThePointerDuringADrag)
{
    selectStill({300, 200}, {600, 300});
    const auto corner = [this](const QPoint &widgetPoint) {
        return seen().pixelColor(((QPointF(widgetPoint) + QPointF(17, 17)) * ratio()).toPoint());
    };
    press({150, 100});
    moveTo({160, 105});
    EXPECT_EQ(corner(at(160, 105)), label);
    release({160, 105});
    settle();
    EXPECT_NE(corner(at(160, 105)), label);
}

TEST_F(LWCanvasImageViewPainting, TheSelectedWallHasAnOutlineAndItsName)
{
    QPalette colours = view.palette();
    const QColor accent(250, 10, 20);
    colours.setColor(QPalette::Highlight, accent);
    view.setPalette(colours);
    LWScreen &wall = selectScreen(); // 1024 x 640
    wall.setXpoint(300);
    wall.setYpoint(300);
    const auto colourAt = [this](const QPointF &viewPoint, const QPoint &beside) {
        return seen().pixelColor(((view.frame().topLeft() + viewPoint) * ratio()).toPoint() + beside);
    };
    EXPECT_EQ(colourAt({100, 150}, {-1, 0}), accent);
    EXPECT_NE(colourAt({100, 150}, {0, 0}), accent);
    EXPECT_EQ(colourAt({102, 99}, {0, -static_cast<int>(ratio()) - 1}), QColor(Qt::black));
    wall.setLabel("MAIN");
    EXPECT_EQ(colourAt({102, 99}, {0, -static_cast<int>(ratio()) - 1}), label);
    EXPECT_EQ(colourAt({101, 99}, {0, -10}), label);
    wall.setYpoint(-600); // its top left is out of sight, not all of it
    EXPECT_EQ(seen().pixelColor(qRound(114 * ratio()), 1), label);
    wall.setYpoint(-9000);
    EXPECT_NE(seen().pixelColor(qRound(114 * ratio()), 1), label);
}

TEST_F(LWCanvasImageViewPainting, ANameOfManyLettersIsCut)
{
    selectScreen().setLabel(QString(2000, 'W'));
    const QImage picture = seen();
    EXPECT_EQ(picture.pixelColor(qRound(13 * ratio()), 1), label);
    EXPECT_NE(picture.pixelColor(qRound(360 * ratio()), 1), label); // the wall is 341 wide
}

/// Letters without a width leave room for all that follow.
TEST_F(LWCanvasImageViewPainting, OfALongNameNoLetterBehindTheLongestTextIsLookedAt)
{
    const QString most(TextLine::longestText, QChar(0x200b));
    LWScreen &wall = selectScreen();
    wall.setLabel(most);
    const QImage without = seen();
    wall.setLabel(most + "MAIN");
    EXPECT_EQ(seen(), without);
    wall.setLabel(most.mid(4) + "MAIN");
    EXPECT_NE(seen(), without);
}

TEST_F(LWCanvasImageViewPainting, AMissingPictureIsAFramedPlaceWithItsName)
{
    QPalette colours = view.palette();
    const QColor dim(160, 161, 162);
    colours.setColor(QPalette::PlaceholderText, dim);
    view.setPalette(colours);
    LWStill &still = addStill({300, 300, 600, 300});
    const QRectF place = QRectF(100, 100, 200, 100).translated(view.frame().topLeft());
    const auto count = [&] { // device pixels that are not the output's
        const QImage picture = seen().copy(QRectF(place.topLeft() * ratio(), place.size() * ratio()).toRect());
        int pixels = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                pixels += picture.pixelColor(x, y) != QColor(Qt::black) ? 1 : 0;
        }
        return pixels;
    };
    EXPECT_EQ(count(), 0);
    still.setImageURL(Address::fromLocalFile("/nowhere/plate.png"));
    still.loadThumbnail();
    EXPECT_EQ(seen().pixelColor((place.topLeft() * ratio()).toPoint()), dim);
    EXPECT_NE(seen().pixelColor((place.topLeft() * ratio()).toPoint() - QPoint(1, 1)), dim);
    const int frame = 2 * (200 + 100) * static_cast<int>(ratio()) - 4;
    const int withName = count();
    EXPECT_GT(withName, frame);
    still.setLabel("a much longer name than that of the file");
    EXPECT_NE(count(), withName);
    still.setVisible(false);
    EXPECT_EQ(count(), 0);
}
