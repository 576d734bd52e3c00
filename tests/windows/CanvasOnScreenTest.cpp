#include "canvas/LWCanvasImageView.h"
#include "screen/LWScreen.h"
#include "tests/app/RedrawGate.h"
#include "tests/windows/InspectorFixture.h"

#include <QApplication>
#include <QPaintEvent>
#include <QTest>

#include <random>
#include <utility>

namespace {
/// What the canvas has on the screen, where only what changes is painted, against all of it painted anew.
class CanvasOnScreen : public QObject, public InspectorFixture, public testing::WithParamInterface<unsigned>
{
protected:
    CanvasOnScreen()
    {
        list().selectedLayer()->setCol(9);
        list().selectedLayer()->setRow(5);
        window.document().finishEdit("setting");
        window.document().AddScreen();
        shown()->setXpoint(900);
        shown()->setYpoint(500);
        window.document().finishEdit("setting");
        settle();
        canvas().installEventFilter(this);
        canvas().update();
        settle();
    }
    ~CanvasOnScreen() override { canvas().removeEventFilter(this); }
    void settle()
    {
        QApplication::processEvents();
        waitForRedraws(window.document());
        QApplication::processEvents();
    }
    /// Notes where the canvas is told to be painted.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == &canvas() && event->type() == QEvent::Paint)
            m_told += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    /// What stands on the screen: where it was not told to be painted, what stood there before. Painted with the
    /// window, in which the canvas may begin between two device pixels.
    QImage onScreen()
    {
        paint(m_screen, std::exchange(m_told, {}));
        return ofCanvas(m_screen);
    }
    QImage paintedAnew()
    {
        QImage anew;
        paint(anew, canvas().rect());
        return ofCanvas(anew);
    }
    void paint(QImage &shown, const QRegion &ofCanvas)
    {
        const QSize size = (QSizeF(window.size()) * window.devicePixelRatioF()).toSize();
        if (shown.size() != size)
            shown = QImage(size, QImage::Format_RGB32);
        shown.setDevicePixelRatio(window.devicePixelRatioF());
        const QRegion place = ofCanvas.translated(canvas().mapTo(&window, QPoint(0, 0)));
        if (!place.isEmpty())
            window.render(&shown, place.boundingRect().topLeft(), place);
        m_told = {}; // rendering is a painting, too
    }
    QImage ofCanvas(const QImage &shown)
    {
        const qreal ratio = window.devicePixelRatioF();
        const QRectF place(QPointF(canvas().mapTo(&window, QPoint(0, 0))) * ratio, QSizeF(canvas().size()) * ratio);
        return shown.copy(place.toRect().adjusted(1, 1, -1, -1)); // no pixel that others share
    }

    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_engine); }
    QPoint anyPlace() { return {number(0, canvas().width() - 1), number(0, canvas().height() - 1)}; }

    void act()
    {
        const std::vector<std::function<void()>> acts{
            [this] { QTest::mouseClick(&canvas(), Qt::LeftButton, {}, anyPlace()); },
            [this] { drag(Qt::LeftButton); },
            [this] { drag(Qt::LeftButton); },
            [this] { drag(Qt::MiddleButton); },
            [this] { QTest::mouseMove(&canvas(), anyPlace()); },
            [this] { QTest::keyClick(&canvas(), number(0, 1) ? Qt::Key_Right : Qt::Key_Up); },
            [this] { QTest::keyClick(&canvas(), Qt::Key_Escape); },
            [this] { window.document().undoStack().undo(); },
            [this] { window.document().undoStack().redo(); },
            [this] { set("arrangedObjects.label", QString(number(0, 9), 'W')); },
            [this] { set("arrangedObjects.xpoint", number(-200, 1900)); },
            [this] { set("arrangedObjects.boarderWidth", number(0, 9)); },
            [this] { set("arrangedObjects.XYFontEnable", number(0, 1) == 1); },
            [this] { set("arrangedObjects.visible", number(0, 3) > 0); },
            [this] { canvas().setTool(number(0, 1) ? CanvasToolName::Panels : CanvasToolName::Arrange); },
            [this] { addStill(); },
            [this] { window.document().AddScreen(); },
            [this] { window.document().removeSelectedScreen(); },
            [this] { list().setSelectionIndex(number(0, list().rowCount() - 1)); },
            [this] {
                list().setSelectionIndexes({0, list().rowCount() - 1}, 0);
            },
            [this] { list().setSelectionIndexes({0}, 0); },
            [this] { number(0, 1) ? canvas().zoomIn() : canvas().zoomOut(); },
            [this] { canvas().zoomToFit(); },
        };
        m_last = number(0, static_cast<int>(acts.size()) - 1);
        acts[static_cast<std::size_t>(m_last)]();
    }
    void set(const char *path, const QVariant &value) { window.document().setValue(value, path); }
    void drag(Qt::MouseButton button)
    {
        QPoint place = anyPlace();
        QTest::mousePress(&canvas(), button, {}, place);
        for (int i = 0; i < 4; ++i) {
            place += QPoint(number(-60, 60), number(-40, 40));
            QMouseEvent move(QEvent::MouseMove, place, canvas().mapToGlobal(place), Qt::NoButton, button, {});
            QApplication::sendEvent(&canvas(), &move);
            if (number(0, 1))
                settle();
        }
        QTest::mouseRelease(&canvas(), button, {}, place);
    }

    QRegion m_told;
    QImage m_screen;
    std::mt19937 m_engine{GetParam()};
    int m_last = 0;
};
} // namespace

TEST_P(CanvasOnScreen, IsAsPaintedAnew)
{
    const QImage first = onScreen();
    ASSERT_EQ(first == paintedAnew(), true);
    for (int round = 0; round < 60; ++round) {
        act();
        settle();
        const QImage screen = onScreen();
        ASSERT_EQ(screen == paintedAnew(), true) << "round " << round << ", act " << m_last;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, CanvasOnScreen, testing::Range(0U, 6U));
