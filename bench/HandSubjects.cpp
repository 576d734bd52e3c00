#include "bench/HandSubjects.h"

#include "canvas/LWCanvasImageView.h"
#include "screen/LWScreen.h"
#include "windows/MainWindow.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <memory>
#include <vector>

namespace {
constexpr QSize eightK(7680, 4320);
constexpr QSize wallsAbreast(4, 3);
constexpr int panelSide = 120;
constexpr qint64 bytesPerPixel = 4;

class EightKShow
{
public:
    EightKShow()
    {
        window.resize(1600, 1000);
        window.makeLateParts();
        window.start();
        document().setOutputWidth(eightK.width());
        document().setOutputHeight(eightK.height());
        std::vector<LayerPointer> walls;
        walls.reserve(static_cast<std::size_t>(wallsAbreast.width()) * wallsAbreast.height());
        for (int wall = 0; wall < wallsAbreast.width() * wallsAbreast.height(); ++wall)
            walls.push_back(makeWall(wall));
        document().arraycontroller().setLayers(walls, {0});
        document().finishEdit("walls");
        settle();
    }

    /// Moves the left-held or free pointer to a pixel of the output.
    void move(const QPoint &pixel, Qt::MouseButton held = Qt::LeftButton)
    {
        document().timerupdate(); // as if the hand had rested
        send(QEvent::MouseMove, pixel, Qt::NoButton, held);
        settle();
    }
    void press(const QPoint &pixel) { send(QEvent::MouseButtonPress, pixel, Qt::LeftButton, Qt::LeftButton); }
    void release(const QPoint &pixel)
    {
        document().timerupdate();
        send(QEvent::MouseButtonRelease, pixel, Qt::LeftButton, Qt::NoButton);
        settle();
    }
    void turnWheel(int angle)
    {
        const QPointF place = canvas().rect().center();
        QWheelEvent event(place, canvas().mapToGlobal(place), {}, {0, angle}, Qt::NoButton, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&canvas(), &event);
        settle();
    }

    LWCanvasImageView &canvas() { return *window.findChild<LWCanvasImageView *>(); }
    LWAppDelegate &document() { return window.document(); }
    void settle() { QCoreApplication::processEvents(); }
    static QPoint panel(int column, int row) { return QPoint(column, row) * panelSide + QPoint(60, 60); }

private:
    void send(QEvent::Type type, const QPoint &pixel, Qt::MouseButton button, Qt::MouseButtons held)
    {
        const QRectF frame = canvas().frame();
        const QPointF place = frame.topLeft() + QPointF(pixel.x() * frame.width() / eightK.width(),
                                                        pixel.y() * frame.height() / eightK.height());
        QMouseEvent event(type, place, canvas().mapToGlobal(place), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas(), &event);
    }

    LayerPointer makeWall(int number)
    {
        const QSize size(eightK.width() / wallsAbreast.width(), eightK.height() / wallsAbreast.height());
        LayerPointer wall = LWScreen::init(document());
        wall->setPanelWidth(panelSide);
        wall->setPanelHeight(panelSide);
        wall->setCol(size.width() / panelSide);
        wall->setRow(size.height() / panelSide);
        wall->setXpoint(number % wallsAbreast.width() * size.width());
        wall->setYpoint(number / wallsAbreast.width() * size.height());
        wall->setCircleEnable(true);
        wall->setCircleBWidth(4);
        wall->setScreenFontEnable(true);
        wall->setDrawLabels(true);
        wall->setLabelColor(NamedColour::white);
        wall->setLabelFontSize(40);
        wall->setDrawFlowPath(true);
        wall->setPixelLimit(655360);
        wall->drawInRect();
        return wall;
    }

    MainWindow window;
};
} // namespace

namespace HandSubjects {

Subject panelClick()
{
    const auto show = std::make_shared<EightKShow>();
    const auto turns = std::make_shared<int>(0);
    const auto run = [show, turns] {
        const QPoint pixel = EightKShow::panel(3 + (*turns)++ / 2 % 8, 5);
        show->document().timerupdate();
        show->press(pixel);
        show->release(pixel);
    };
    return {bytesPerPixel * eightK.width() * eightK.height(), run};
}

Subject wallDrag()
{
    const auto show = std::make_shared<EightKShow>();
    const LayerPointer wall = show->document().arraycontroller().selectedLayer();
    wall->setCol(32);
    wall->setRow(18);
    wall->drawInRect();
    show->document().finishEdit("4K wall");
    show->canvas().setTool(CanvasToolName::Arrange);
    show->press({1000, 1000});
    const auto turns = std::make_shared<int>(0);
    const auto run = [show, turns] {
        const int way = ++*turns % 60;
        show->move(QPoint(1000, 1000) + QPoint(50, 25) * (way < 30 ? way : 60 - way));
    };
    return {2 * bytesPerPixel * 32 * 18 * panelSide * panelSide, run};
}

Subject holePainting()
{
    const auto show = std::make_shared<EightKShow>();
    const auto turns = std::make_shared<int>(0);
    const auto run = [show, turns] {
        const int panel = (*turns)++ % (16 * 12);
        const QPoint pixel = EightKShow::panel(panel % 16, panel / 16);
        if (panel == 0) {
            if (*turns > 1)
                show->release(pixel);
            show->press(pixel);
        }
        show->move(pixel);
    };
    return {5 * bytesPerPixel * panelSide * panelSide, run};
}

Subject wheelZoom()
{
    const auto show = std::make_shared<EightKShow>();
    show->canvas().setZoom(40);
    show->settle();
    const auto turns = std::make_shared<int>(0);
    const auto run = [show, turns] { show->turnWheel((*turns)++ % 2 == 0 ? 120 : -120); };
    const double zoom = show->canvas().deviceFrame().zoom() * 1.12; // between this one and the next
    const QSizeF seen = QSizeF(show->canvas().size()) / zoom;
    return {static_cast<qint64>(bytesPerPixel * seen.width() * seen.height()), run};
}

} // namespace HandSubjects
