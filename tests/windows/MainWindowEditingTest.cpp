#include "canvas/LWCanvasImageView.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"
#include "tests/windows/WindowFixture.h"
#include "windows/LayerTable.h"

#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include <algorithm>

class MainWindowEditingTest : public WindowFixture
{
protected:
    LayerList &list() { return window.document().arraycontroller(); }
    LayerPointer selected() { return list().selectedLayer(); }
    QStringList panelsOff() { return dynamic_cast<LWScreen &>(*selected()).hiddenBoxes().value_or(QStringList()); }
    QString undoText() { return window.document().undoStack().undoText(); }
    /// Where a pixel of the output is on the canvas.
    QPoint onCanvas(double x, double y)
    {
        const QRectF frame = canvas().frame();
        return (frame.topLeft() + QPointF(x * frame.width() / 1920, y * frame.height() / 1080)).toPoint();
    }
    void drop(const QStringList &paths)
    {
        QMimeData files;
        QList<QUrl> urls;
        for (const QString &each : paths)
            urls.append(QUrl::fromLocalFile(each));
        files.setUrls(urls);
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event(QPointF(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window, &event);
    }
    QString picture(const QString &name, const QSize &size)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::green);
        EXPECT_TRUE(image.save(path(name)));
        return path(name);
    }
};

TEST_F(MainWindowEditingTest, AClickOnAPanelSwitchesItOffAndIsOneStep)
{
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, onCanvas(2.5 * 128, 1.5 * 128));
    EXPECT_EQ(panelsOff(), QStringList("1,2"));
    EXPECT_EQ(undoText(), "switch panel");
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, onCanvas(7.5 * 128, 4.5 * 128));
    EXPECT_EQ(panelsOff(), QStringList({"1,2", "4,7"}));
    press(Qt::Key_Z, Qt::ControlModifier, {});
    EXPECT_EQ(panelsOff(), QStringList("1,2"));
}

TEST_F(MainWindowEditingTest, ADragOverPanelsIsOneStepAndWithEscapeNone)
{
    const auto dragOverPanels = [this] {
        QTest::mousePress(&canvas(), Qt::LeftButton, {}, onCanvas(64, 64));
        for (const double x : {64.0 + 128, 64.0 + 256}) {
            const QPointF place = onCanvas(x, 64);
            QMouseEvent move(QEvent::MouseMove, place, canvas().mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(&canvas(), &move);
            window.document().timerupdate();
            window.document().update();
        }
        EXPECT_EQ(panelsOff(), QStringList({"0,0", "0,1", "0,2"}));
    };
    dragOverPanels();
    QTest::keyClick(&canvas(), Qt::Key_Escape);
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, onCanvas(320, 64));
    EXPECT_EQ(panelsOff(), QStringList());
    EXPECT_EQ(window.document().undoStack().count(), 0);
    dragOverPanels();
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, onCanvas(320, 64));
    EXPECT_EQ(window.document().undoStack().count(), 1);
    EXPECT_EQ(undoText(), "switch panels");
    press(Qt::Key_Z, Qt::ControlModifier, {});
    EXPECT_EQ(panelsOff(), QStringList());
}

TEST_F(MainWindowEditingTest, TheStatusLineReadsOutPixelPanelAndColour)
{
    QTest::mouseMove(&canvas(), onCanvas(2.5 * 128, 1.5 * 128));
    QApplication::processEvents();
    bool isShown = false;
    for (const QLabel *label : window.findChildren<QLabel *>())
        isShown = isShown || (label->text().startsWith("x 3") && label->text().contains("  Layer 0 C2  #"));
    EXPECT_TRUE(isShown);
}

TEST_F(MainWindowEditingTest, TheStatusLineNamesThePanelThatAClickWouldSwitch)
{
    const auto isTold = [this](const QString &panel) {
        const QList<QLabel *> labels = window.findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
            return label->text().startsWith("x 3") && label->text().contains("  " + panel + "  #");
        });
    };
    window.document().AddScreen(); // 80 x 80, below Layer 0
    selected()->setLabel("LOW");
    selected()->setXpoint(300);
    selected()->setYpoint(180);
    selected()->drawInRect();
    QTest::mouseMove(&canvas(), onCanvas(320, 200));
    QApplication::processEvents();
    EXPECT_TRUE(isTold("LOW A1"));
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, onCanvas(320, 200));
    EXPECT_EQ(panelsOff(), QStringList("0,0"));
    canvas().setTool(LWCanvasImageView::Tool::Arrange);
    QTest::mouseMove(&canvas(), onCanvas(322, 202));
    QApplication::processEvents();
    EXPECT_TRUE(isTold("Layer 0 C2"));
}

TEST_F(MainWindowEditingTest, APictureOfTheOutputsSizeCoversIt)
{
    const QString plate = picture("plate.png", {1920, 1080});
    for (int wider = 0; wider < 5; ++wider) {
        window.resize(window.size() + QSize(1, 1));
        QApplication::processEvents();
        canvas().zoomToFit();
        for (const double zoom : {canvas().readOut().zoomPercent, 100.0}) {
            canvas().setZoom(zoom);
            window.document().addImages({plate});
            EXPECT_EQ(QPoint(selected()->xpoint(), selected()->ypoint()), QPoint(0, 0)) << zoom << ' ' << wider;
        }
    }
}

TEST_F(MainWindowEditingTest, AStillIsMovedByItsMarkerWithTheMouse)
{
    window.document().addImages({picture("plate.png", {600, 400})}, QPoint(300, 200));
    window.document().timerupdate();
    window.document().update();
    ASSERT_EQ(selected()->xpoint(), 0);
    const QPoint from = onCanvas(300, 200);
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas(), from + QPoint(60, 30));
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, from + QPoint(60, 30));
    window.document().timerupdate();
    window.document().update(); // before the canvas has told its edit
    QApplication::processEvents();
    EXPECT_GT(selected()->xpoint(), 50);
    EXPECT_GT(selected()->ypoint(), 20);
    EXPECT_EQ(undoText(), "move image");
    press(Qt::Key_Z, Qt::ControlModifier, {});
    EXPECT_EQ(selected()->xpoint(), 0);
    EXPECT_EQ(selected()->ypoint(), 0);
}

TEST_F(MainWindowEditingTest, ArrowKeysNudgeByOneAndWithShiftByTen)
{
    window.activateWindow();
    canvas().setFocus();
    canvas().setTool(LWCanvasImageView::Tool::Arrange);
    QTest::keyClick(&canvas(), Qt::Key_Right);
    QTest::keyClick(&canvas(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&canvas(), Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&canvas(), Qt::Key_Up);
    EXPECT_EQ(selected()->xpoint(), -9);
    EXPECT_EQ(selected()->ypoint(), 9);
    press(Qt::Key_Z, Qt::ControlModifier, {});
    EXPECT_EQ(selected()->xpoint(), 0);
    EXPECT_EQ(selected()->ypoint(), 0);
}

TEST_F(MainWindowEditingTest, ArrowsElsewhereMoveNoLayer)
{
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.document().AddScreen();
    int controls = 0;
    for (QWidget *control : window.findChildren<QWidget *>()) {
        if (control == &canvas() || !control->isVisible() || (control->focusPolicy() & Qt::TabFocus) == 0)
            continue;
        ++controls;
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right}) {
            for (int i = 0; i < 3; ++i) { // past the first or last row
                control->setFocus();
                QTest::keyClick(QApplication::focusWidget(), key);
            }
        }
    }
    EXPECT_GT(controls, 20);
    for (const LayerPointer &layer : list().layers())
        EXPECT_EQ(QPoint(layer->xpoint(), layer->ypoint()), QPoint(0, 0)) << layer->label().toStdString();
}

TEST_F(MainWindowEditingTest, KeysCopyCutPasteAndHide)
{
    table().setFocus();
    press(Qt::Key_C, Qt::ControlModifier, {});
    press(Qt::Key_V, Qt::ControlModifier, {});
    EXPECT_EQ(list().rowCount(), 2);
    press(Qt::Key_X, Qt::ControlModifier, {});
    EXPECT_EQ(list().rowCount(), 1);
    press(Qt::Key_H, Qt::NoModifier, {});
    EXPECT_FALSE(selected()->visible());
    EXPECT_EQ(undoText(), "visibility");
}

TEST_F(MainWindowEditingTest, ALayerIsRenamedInTheTable)
{
    table().setFocus();
    press(Qt::Key_F2, Qt::NoModifier, {});
    QTest::keyClicks(QApplication::focusWidget(), "Upstage");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(selected()->label(), "Upstage");
    EXPECT_EQ(undoText(), "name");
}

TEST_F(MainWindowEditingTest, DroppedFilesOpenOrBecomeStills)
{
    drop({picture("a.png", {40, 30}), picture("b.png", {50, 20})});
    EXPECT_EQ(list().rowCount(), 3);
    EXPECT_EQ(undoText(), "add image");
    drop({greenProject("show.Orv")});
    EXPECT_EQ(title(), "show.Orv — Wallwright");
    EXPECT_EQ(list().rowCount(), 1);
}
