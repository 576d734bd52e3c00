#include "tests/base/LogLines.h"
#include "tests/canvas/CanvasFixture.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

namespace {
/// A layer of no kind, as large as the output, that tells of clicks.
class ClickedLayer final : public Layer
{
public:
    ClickedLayer(CanvasTestDocument &document) : Layer(document), m_document(document)
    {
        setScreenSizeWidth(document.OutputWidth());
        setScreenSizeHeight(document.OutputHeight());
    }

    QImage thumbnail() const override { return {}; }
    void setThumbnail(const QImage &) override {}
    void drawInRect() override {}
    void onImageClick(qint64 x, qint64 y) override { m_document.calls += QString("click %1,%2").arg(x).arg(y); }
    LayerPointer copyWithZone() const override { return nullptr; }
    void encodeWithCoder(ArchiveObject &) const override {}
    std::span<const ArchiveField> keptFields() const override { return {}; }
    LayerKind kind() const override { return LayerKind::Still; }

private:
    CanvasTestDocument &m_document;
};
} // namespace

using LWCanvasImageViewTest = CanvasFixture;

TEST_F(LWCanvasImageViewTest, TheFrameHasTheOutputsProportions)
{
    EXPECT_EQ(view.frame(), QRectF(12, 12, 640, 360));
    EXPECT_EQ(document.canvasFrameSize(), QSizeF(640, 360));
    view.setGeometry(0, 0, 664, 432);
    EXPECT_EQ(view.frame(), QRectF(12, 36, 640, 360));
}

TEST_F(LWCanvasImageViewTest, AClickReachesTheLayerInOutputPixels)
{
    document.layer = std::make_shared<ClickedLayer>(document);
    press({10, 20});
    EXPECT_EQ(document.calls, QStringList({"click 30,60", "update"}));
    document.calls.clear();
    release({10, 20});
    EXPECT_EQ(document.calls, QStringList("update"));
}

TEST_F(LWCanvasImageViewTest, PixelsOfAClickAreCutTowardsZero)
{
    document.layer = std::make_shared<ClickedLayer>(document);
    document.outputSize = {1000, 500}; // composed soon, the frame is still the old one's
    press({1, 1});
    EXPECT_EQ(document.calls.value(0), "click 1,1"); // 1.5625, 1.3889
    release({1, 1});
    document.calls.clear();
    press({639, 359});
    EXPECT_EQ(document.calls.value(0), "click 998,498"); // 998.4, 498.6
}

TEST_F(LWCanvasImageViewTest, AClickSwitchesThePanelUnderIt)
{
    LWScreen &screen = selectScreen();
    QTest::mouseClick(&view, Qt::LeftButton, {}, at(50, 50)); // pixel 150, 150
    EXPECT_EQ(screen.hiddenBoxes(), QStringList("1,1"));
    QTest::mouseClick(&view, Qt::LeftButton, {}, at(85, 85)); // pixel 255, 255: its last
    EXPECT_EQ(screen.hiddenBoxes(), QStringList());
    QTest::mouseClick(&view, Qt::LeftButton, {}, at(86, 85));
    EXPECT_EQ(screen.hiddenBoxes(), QStringList("1,2"));
    EXPECT_EQ(document.calls.count("finishEdit switch panel"), 3);
}

TEST_F(LWCanvasImageViewTest, ADoubleClickSwitchesThePanelBack)
{
    const LWScreen &screen = selectScreen();
    QTest::mouseClick(&view, Qt::LeftButton, {}, at(50, 50));
    EXPECT_EQ(screen.hiddenBoxes(), QStringList("1,1"));
    const QPointF point = at(50, 50);
    QMouseEvent second(QEvent::MouseButtonDblClick, point, view.mapToGlobal(point), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&view, &second);
    EXPECT_EQ(screen.hiddenBoxes(), QStringList());
}

TEST_F(LWCanvasImageViewTest, OtherButtonsAndTheGroundSwitchNothing)
{
    document.layer = std::make_shared<ClickedLayer>(document);
    QTest::mouseClick(&view, Qt::RightButton, {}, at(50, 50));
    QTest::mouseClick(&view, Qt::MiddleButton, {}, at(50, 50));
    EXPECT_TRUE(document.calls.isEmpty());
    for (const QPoint &ground : {at(-1, 50), at(50, -1), at(640, 50), at(50, 360)})
        QTest::mousePress(&view, Qt::LeftButton, {}, ground);
    EXPECT_TRUE(document.calls.isEmpty());
    QTest::mousePress(&view, Qt::LeftButton, {}, at(0, 0));
    EXPECT_EQ(document.calls.value(0), "click 0,0");
}

TEST_F(LWCanvasImageViewTest, APressBesideTheSelectedLayerSelectsTheTopmostVisibleOne)
{
    LWScreen &wall = selectScreen(); // 1024 x 640
    const LayerPointer selected = document.layer;
    addWall({1200, 600, 300, 300}).setVisible(false);
    addWall({1250, 600, 300, 300});
    addWall({1200, 600, 300, 300});
    press({341, 100}); // pixel 1023, 300: its last column
    release({341, 100});
    EXPECT_EQ(wall.hiddenBoxes(), QStringList("2,7"));
    document.calls.clear();
    press({342, 100}); // where nothing is
    release({342, 100});
    EXPECT_EQ(document.layer, selected);
    press({430, 250}); // pixel 1290, 750: of all three
    release({430, 250});
    EXPECT_EQ(document.layer, document.all[1]);
    EXPECT_EQ(document.calls.filter("finishEdit"), QStringList());
    EXPECT_EQ(wall.hiddenBoxes(), QStringList("2,7"));
    EXPECT_EQ(dynamic_cast<LWScreen &>(*document.layer).hiddenBoxes(), QStringList());
}

TEST_F(LWCanvasImageViewTest, LessThanAPanelBeforeTheWallNothingIsSwitched)
{
    LWScreen &wall = selectScreen();
    wall.setXpoint(300);
    wall.setYpoint(300);
    for (const QPoint &place : {QPoint(99, 150), QPoint(150, 99), QPoint(20, 150), QPoint(150, 20)}) {
        press(place);
        release(place);
    }
    EXPECT_EQ(wall.hiddenBoxes(), QStringList());
    press({100, 100});
    EXPECT_EQ(wall.hiddenBoxes(), QStringList("0,0"));
}

TEST_F(LWCanvasImageViewTest, TheHandlesOfASelectedStillAreOfIt)
{
    selectStill({300, 200}, {600, 300});
    const LayerPointer still = document.layer;
    addWall({0, 0, 1920, 1080});
    const QPointF corner = view.cropMarker().selectedRect().bottomRight();
    press(corner + QPointF(3, 3)); // outside of the still
    EXPECT_TRUE(view.cropMarker().isTracking());
    release(corner + QPointF(3, 3));
    settle();
    EXPECT_EQ(document.layer, still);
    press(corner + QPointF(30, 30));
    EXPECT_FALSE(view.cropMarker().isTracking());
    EXPECT_EQ(document.layer, document.all[0]);
    release(corner + QPointF(30, 30));
}

TEST_F(LWCanvasImageViewTest, AClickOnAScreenNeitherMovesNorShowsTheMarker)
{
    selectStill({0, 0}, {600, 300});
    const QRectF marker = view.cropMarker().selectedRect();
    const LWScreen &screen = selectScreen();
    QLoggingCategory::setFilterRules("wallwright.canvas.debug=true");
    const LogLines log;
    for (const QPointF &point : {marker.center(), marker.bottomRight()}) {
        press(point);
        EXPECT_FALSE(view.cropMarker().isTracking());
        moveTo(point + QPointF(30, 30));
        release(point + QPointF(30, 30));
        settle();
    }
    QLoggingCategory::setFilterRules({});
    EXPECT_EQ(log.lines(), QStringList()); // the marker was not even asked
    EXPECT_EQ(view.cropMarker().selectedRect(), marker);
    EXPECT_TRUE(view.cropMarker().hide());
    EXPECT_EQ(QPoint(screen.xpoint(), screen.ypoint()), QPoint(0, 0));
    EXPECT_EQ(screen.panelWidth(), 128);
}

TEST_F(LWCanvasImageViewTest, WithoutALayerOrAnOutputAClickDoesNothing)
{
    QTest::mousePress(&view, Qt::LeftButton, {}, at(50, 50));
    EXPECT_TRUE(document.calls.isEmpty());
    document.layer = std::make_shared<ClickedLayer>(document);
    showOutput(QImage());
    document.calls.clear();
    QTest::mousePress(&view, Qt::LeftButton, {}, {100, 100});
    EXPECT_TRUE(document.calls.isEmpty());
}

TEST_F(LWCanvasImageViewTest, ALayersAspectLocksTheMarkerForTheDrag)
{
    QLoggingCategory::setFilterRules("wallwright.canvas.debug=true");
    const LogLines log;
    document.layer = std::make_shared<ClickedLayer>(document);
    document.layer->setAspectRatio(true);
    document.layer->setAspectValue({16, 9});
    press({10, 20});
    EXPECT_TRUE(view.cropMarker().lockAspectRatio());
    EXPECT_EQ(view.cropMarker().aspectRatio(), QSizeF(16, 9));
    EXPECT_EQ(log.lines(), QStringList("aspect ratio!"));
    release({10, 20});

    document.layer->setAspectRatio(false);
    document.layer->setAspectValue({4, 3});
    press({10, 20});
    EXPECT_FALSE(view.cropMarker().lockAspectRatio());
    EXPECT_EQ(view.cropMarker().aspectRatio(), QSizeF(16, 9));
    EXPECT_EQ(log.lines(), QStringList("aspect ratio!"));
    QLoggingCategory::setFilterRules({});
}

TEST_F(LWCanvasImageViewTest, ARectangleOfNoWidthDoesNotUpdateTheMarker)
{
    view.drawRectangle({30, 40, 100, 50});
    view.drawRectangle({70, 80, 0, 50});
    EXPECT_EQ(view.cropMarker().selectedRect(), QRectF(30, 40, 100, 50));
    LWStill &still = selectStill({0, 0}, {600, 300});
    const QRectF marker = view.cropMarker().selectedRect();
    still.setPanelWidth(0);
    still.setXpoint(200);
    document.render();
    EXPECT_EQ(view.cropMarker().selectedRect(), marker);
}

TEST_F(LWCanvasImageViewTest, TheMarkerIsShownAndHidden)
{
    view.hideRectangle();
    EXPECT_TRUE(view.cropMarker().hide());
    view.showRectangle();
    EXPECT_FALSE(view.cropMarker().hide());
}

TEST_F(LWCanvasImageViewTest, TheOutputsPixelsAreNotHeld)
{
    showOutput(picturedNoise({641, 481}));
    for (const double percent : {40.0, 100.0, 300.0}) {
        view.setZoom(percent);
        seen();
        EXPECT_TRUE(document.composed.picture.isDetached()) << percent;
    }
}

TEST_F(LWCanvasImageViewTest, WhileTheButtonIsDownTheWindowGetsNoKeys)
{
    const auto isTaken = [this](int key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent shortcut(QEvent::ShortcutOverride, key, modifiers);
        shortcut.ignore();
        QApplication::sendEvent(&view, &shortcut);
        return shortcut.isAccepted();
    };
    const auto expectKeysTakenDuringPressAt = [&](const QPointF &point) {
        EXPECT_FALSE(isTaken(Qt::Key_S, Qt::ControlModifier));
        press(point);
        EXPECT_TRUE(isTaken(Qt::Key_S, Qt::ControlModifier));
        EXPECT_TRUE(isTaken(Qt::Key_Delete, {}));
        QKeyEvent arrow(QEvent::KeyPress, Qt::Key_Left, {});
        QApplication::sendEvent(&view, &arrow);
        EXPECT_TRUE(arrow.isAccepted()); // the window does not nudge
        release(point);
        settle();
        EXPECT_FALSE(isTaken(Qt::Key_S, Qt::ControlModifier));
    };
    selectScreen();
    expectKeysTakenDuringPressAt({50, 50}); // a panel
    selectStill({300, 200}, {600, 300});
    expectKeysTakenDuringPressAt({150, 100}); // the marker
    addWall({300, 300, 60, 60});
    view.setTool(LWCanvasImageView::Tool::Arrange);
    expectKeysTakenDuringPressAt({110, 110});
}

TEST_F(LWCanvasImageViewTest, TheMenuIsOfTheLayerUnderThePointer)
{
    addWall({0, 0, 300, 300});
    addWall({600, 0, 300, 300});
    document.select(document.all[0], false);
    const QSignalSpy asked(&view, &LWCanvasImageView::layerMenuAsked);
    const auto ask = [&](const QPoint &place, QContextMenuEvent::Reason reason) {
        QContextMenuEvent event(reason, place, view.mapToGlobal(place));
        QApplication::sendEvent(&view, &event);
    };
    ask(at(250, 50), QContextMenuEvent::Mouse);
    EXPECT_EQ(document.selection, std::vector{document.all[1]});
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0][0].toPoint(), view.mapToGlobal(at(250, 50)));
    ask(at(500, 300), QContextMenuEvent::Mouse); // nothing there
    EXPECT_EQ(asked.size(), 1);
    ask(at(50, 50), QContextMenuEvent::Keyboard);
    EXPECT_EQ(document.selection, std::vector{document.all[1]});
    EXPECT_EQ(asked.size(), 2);
}
