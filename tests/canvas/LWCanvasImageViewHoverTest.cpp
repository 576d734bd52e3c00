#include "tests/canvas/CanvasFixture.h"

#include <QPaintEvent>
#include <QPalette>
#include <QTest>

#include <utility>

namespace {
/// Notes what is painted anew.
class PaintWatch final : public QObject
{
public:
    QRegion painted;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    qint64 area() const
    {
        qint64 pixels = 0;
        for (const QRect &part : painted)
            pixels += qint64{part.width()} * part.height();
        return pixels;
    }
};

/// A wall of 8 x 5 panels of 128 x 128 at the output's corner.
class LWCanvasImageViewHover : public CanvasFixture
{
protected:
    LWCanvasImageViewHover() : screen(selectScreen())
    {
        QPalette colours = view.palette();
        colours.setColor(QPalette::Highlight, accent);
        colours.setColor(QPalette::ToolTipBase, label);
        view.setPalette(colours);
    }

    void pointTo(const QPointF &viewPoint) { moveTo(viewPoint, Qt::NoButton); }
    /// Device pixels of the outline within the wall, which has one itself around it, as the smallest rectangle around
    /// them.
    QRect outline()
    {
        const QImage picture = seen();
        const QRect within = wall() & picture.rect();
        QRect around;
        for (int y = within.top(); y <= within.bottom(); ++y) {
            for (int x = within.left(); x <= within.right(); ++x) {
                if (picture.pixelColor(x, y) == accent)
                    around |= QRect(x, y, 1, 1);
            }
        }
        return around;
    }
    QRect wall() const
    {
        return deviceRect(QRect(screen.xpoint(), screen.ypoint(), screen.screenSizeWidth(), screen.screenSizeHeight()));
    }
    /// The outline around such output pixels, as far as it is within the wall.
    QRect around(const QRectF &pixels) const
    {
        const int width = static_cast<int>(ratio());
        return deviceRect(pixels).adjusted(-width, -width, width, width) & wall();
    }
    QRect deviceRect(const QRectF &pixels) const
    {
        const double scale = view.frame().width() * ratio() / document.outputSize.width();
        const QPoint corner = placeOfOutput() + (pixels.topLeft() * scale).toPoint();
        const QPoint end = placeOfOutput() + (pixels.bottomRight() * scale).toPoint();
        return {corner, end - QPoint(1, 1)};
    }
    bool hasLabel(const QPointF &viewPoint)
    {
        const QPointF corner = QPointF(at(viewPoint.x(), viewPoint.y())) + QPointF(17, 17);
        return seen().pixelColor((corner * ratio()).toPoint()) == label;
    }

    LWScreen &screen;
    const QColor accent{250, 10, 20};
    const QColor label{1, 2, 3};
};
} // namespace

TEST_F(LWCanvasImageViewHover, ThePanelThatAClickWouldSwitchIsOutlinedAndNamed)
{
    EXPECT_EQ(outline(), QRect());
    pointTo({50, 50}); // pixel 150, 150
    EXPECT_EQ(outline(), around({128, 128, 128, 128}));
    EXPECT_TRUE(hasLabel({50, 50}));
    pointTo({86, 50});
    EXPECT_EQ(outline(), around({256, 128, 128, 128}));
    EXPECT_FALSE(hasLabel({50, 50}));
    EXPECT_TRUE(hasLabel({86, 50}));
}

TEST_F(LWCanvasImageViewHover, ASwitchedOffPanelIsOutlinedToo)
{
    QTest::mouseClick(&view, Qt::LeftButton, {}, at(50, 50));
    EXPECT_EQ(screen.hiddenBoxes(), QStringList("1,1"));
    EXPECT_EQ(outline(), around({128, 128, 128, 128}));
}

TEST_F(LWCanvasImageViewHover, WhereAClickDoesNothingNothingIsOutlined)
{
    pointTo({50, 50});
    pointTo({342, 50}); // right of the wall
    EXPECT_EQ(outline(), QRect());
    pointTo({50, 50});
    pointTo({-2, 50}); // the ground
    EXPECT_EQ(outline(), QRect());
    pointTo({50, 50});
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&view, &leave);
    EXPECT_EQ(outline(), QRect());
}

TEST_F(LWCanvasImageViewHover, AStillAndNoLayerHaveNoPanels)
{
    pointTo({50, 50});
    const LayerPointer kept = std::exchange(document.layer, nullptr); // the fixture asks it where it was
    EXPECT_EQ(outline(), QRect());
    selectStill({0, 0}, {600, 300});
    pointTo({51, 50});
    view.hideRectangle();
    EXPECT_EQ(outline(), QRect());
}

TEST_F(LWCanvasImageViewHover, TheSelectedWallIsMeantWhateverLiesAboveIt)
{
    document.all = {document.layer};
    addWall({0, 0, 1920, 1080});
    std::swap(document.all[0], document.all[1]);
    pointTo({50, 50});
    EXPECT_EQ(outline(), around({128, 128, 128, 128}));
}

TEST_F(LWCanvasImageViewHover, AWallPartlyOutsideTheOutput)
{
    screen.setXpoint(-200);
    screen.setYpoint(-60);
    pointTo({10, 10}); // pixel 30, 30: column 1, row 0
    EXPECT_EQ(outline(), around({-72, -60, 128, 128}) & seen().rect());
    screen.setXpoint(1712);
    screen.setYpoint(852);
    pointTo({615, 328});
    EXPECT_EQ(outline(), around({1840, 980, 128, 128}) & seen().rect());
}

TEST_F(LWCanvasImageViewHover, LessThanAPanelBeforeTheWallThereIsNone)
{
    screen.setXpoint(300);
    screen.setYpoint(300);
    pointTo({101, 110}); // pixel 303, 330
    EXPECT_EQ(outline(), around({300, 300, 128, 128}));
    pointTo({99, 110});
    EXPECT_EQ(outline(), QRect());
}

TEST_F(LWCanvasImageViewHover, AtAnyZoomItIsThePanelOfTheClick)
{
    for (const double percent : {20.0, 77.0, 100.0, 400.0}) {
        view.setZoom(percent);
        screen.setHiddenBoxes(QStringList());
        const QPoint point = view.rect().center() - QPoint(40, 20);
        QTest::mouseMove(&view, point);
        moveTo(QPointF(point) - view.frame().topLeft(), Qt::NoButton);
        const QRect shown = outline();
        QTest::mouseClick(&view, Qt::LeftButton, {}, point);
        const QStringList key = screen.hiddenBoxes().value();
        ASSERT_EQ(key.size(), 1) << percent;
        const double column = key[0].section(',', 1).toDouble();
        const double row = key[0].section(',', 0, 0).toDouble();
        EXPECT_EQ(shown, around({column * 128, row * 128, 128, 128}) & seen().rect()) << percent;
    }
}

TEST_F(LWCanvasImageViewHover, NoneWhileTheViewIsDraggedOrTheSpaceBarHeld)
{
    pointTo({50, 50});
    QTest::keyPress(&view, Qt::Key_Space);
    EXPECT_EQ(outline(), QRect());
    QTest::keyRelease(&view, Qt::Key_Space);
    EXPECT_EQ(outline(), around({128, 128, 128, 128}));
    press({50, 50}, Qt::MiddleButton);
    EXPECT_EQ(outline(), QRect());
    release({50, 50}, Qt::MiddleButton);
    EXPECT_FALSE(outline().isEmpty());
}

TEST_F(LWCanvasImageViewHover, NoneInTheOtherTool)
{
    pointTo({50, 50});
    view.setTool(LWCanvasImageView::Tool::Arrange);
    EXPECT_EQ(outline(), QRect());
}

TEST_F(LWCanvasImageViewHover, OnlyWhatChangesIsPaintedAnew)
{
    QTest::qWait(20);
    pointTo({50, 50});
    QTest::qWait(20);
    PaintWatch watch;
    view.installEventFilter(&watch);
    pointTo({51, 50}); // within the panel: the label moves on
    QTest::qWait(20);
    EXPECT_GT(watch.area(), 100);
    EXPECT_LT(watch.area(), 8000);
    pointTo({86, 50});
    QTest::qWait(20);
    EXPECT_LT(watch.area(), 16000);                  // of 664 x 384
    EXPECT_TRUE(watch.painted.contains(at(84, 70))); // the edge between both panels
    watch.painted = {};
    pointTo({500, 50});
    QTest::qWait(20);
    watch.painted = {};
    pointTo({510, 50}); // nothing before, nothing now
    QTest::qWait(20);
    EXPECT_EQ(watch.area(), 0);
}
