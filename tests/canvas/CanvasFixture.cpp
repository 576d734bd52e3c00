#include "tests/canvas/CanvasFixture.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>

void CanvasTestDocument::update(QObject *)
{
    calls += "update";
    if (rendersOnUpdate && layer)
        render();
    if (onUpdate)
        onUpdate();
}

void CanvasTestDocument::finishEdit(const QString &name)
{
    calls += "finishEdit " + name;
    if (rendersOnUpdate && layer)
        render();
}

void CanvasTestDocument::select(const LayerPointer &chosen, bool extends)
{
    if (!extends)
        selection = {chosen};
    else if (std::erase(selection, chosen) == 0)
        selection.push_back(chosen);
    layer = selection.empty() ? nullptr : selection.back();
}

void CanvasTestDocument::nudge(const QPoint &distance)
{
    calls += QString("nudge %1,%2").arg(distance.x()).arg(distance.y());
}

void CanvasTestDocument::render()
{
    layer->drawInRect();
    if (view)
        view->showChanges();
}

CanvasFixture::CanvasFixture()
{
    document.view = &view;
    // Not at the window's corner, so that window and view coordinates differ.
    window.resize(750, 450);
    view.setGeometry(50, 30, 664, 384);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        ADD_FAILURE() << "the window does not show";
    showOutput({1920, 1080});
    document.calls.clear();
}

LWStill &CanvasFixture::selectStill(const QPoint &topLeft, const QSize &size)
{
    auto still = LWStill::initWithimage(document, picturedNoise(size));
    still->setXpoint(topLeft.x());
    still->setYpoint(topLeft.y());
    document.layer = still;
    document.render();
    return *still;
}

LWScreen &CanvasFixture::selectScreen()
{
    LWScreen::Arguments arguments;
    arguments.row = 5;
    arguments.col = 8;
    arguments.panelWidth = 128;
    arguments.panelHeight = 128;
    document.layer = LWScreen::initWithrow(document, arguments);
    view.showChanges();
    return static_cast<LWScreen &>(*document.layer);
}

void CanvasFixture::showOutput(const QSize &size)
{
    document.outputSize = size;
    QImage output(size, QImage::Format_ARGB32_Premultiplied);
    output.fill(Qt::black);
    showOutput(output);
}

void CanvasFixture::showOutput(const QImage &picture)
{
    document.composed.picture = picture;
    view.showOutput();
}

LWScreen &CanvasFixture::addWall(const QRect &place)
{
    LWScreen::Arguments arguments;
    arguments.row = 1;
    arguments.col = 1;
    arguments.panelWidth = place.width();
    arguments.panelHeight = place.height();
    arguments.hpos = place.x();
    arguments.vpos = place.y();
    document.all.push_back(LWScreen::initWithrow(document, arguments));
    return static_cast<LWScreen &>(*document.all.back());
}

LWStill &CanvasFixture::addStill(const QRect &place)
{
    const auto still = LWStill::initWithimage(document, picturedNoise(place.size()));
    still->setXpoint(place.x());
    still->setYpoint(place.y());
    document.all.push_back(still);
    return *still;
}

QPoint CanvasFixture::at(double x, double y) const
{
    return (view.frame().topLeft() + QPointF(x, y)).toPoint();
}

void CanvasFixture::press(const QPointF &viewPoint, Qt::MouseButton button, Qt::KeyboardModifiers keys)
{
    QTest::mousePress(&view, button, keys, at(viewPoint.x(), viewPoint.y()));
}

void CanvasFixture::moveTo(const QPointF &viewPoint, Qt::MouseButtons buttons, Qt::KeyboardModifiers keys)
{
    const QPointF point = at(viewPoint.x(), viewPoint.y());
    QMouseEvent event(QEvent::MouseMove, point, view.mapTo(&window, point), view.mapToGlobal(point), Qt::NoButton,
                      buttons, keys);
    QApplication::sendEvent(&view, &event);
}

void CanvasFixture::release(const QPointF &viewPoint, Qt::MouseButton button, Qt::KeyboardModifiers keys)
{
    QTest::mouseRelease(&view, button, keys, at(viewPoint.x(), viewPoint.y()));
}

void CanvasFixture::sendMouse(QEvent::Type type, const QPointF &devicePixel, Qt::MouseButtons buttons,
                              Qt::KeyboardModifiers keys)
{
    constexpr int longerThanADoubleClick = 1000;
    static int time = 0;
    const QPointF inWindow = devicePixel / ratio();
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    qt_handleMouseEvent(window.windowHandle(), inWindow, window.mapToGlobal(inWindow), buttons, button, type, keys,
                        time += longerThanADoubleClick);
}

void CanvasFixture::drag(const QPointF &from, const QPointF &to)
{
    press(from);
    moveTo(to);
    release(to);
    settle();
}

void CanvasFixture::wheel(const QPoint &widgetPoint, int turned)
{
    QWheelEvent event(widgetPoint, view.mapToGlobal(widgetPoint), {}, {0, turned}, Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&view, &event);
}

void CanvasFixture::settle()
{
    QTest::qWait(1);
}

QImage CanvasFixture::seen()
{
    return view.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage picturedNoise(const QSize &size)
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            picture.setPixelColor(x, y, QColor(x * 37 % 256, y * 53 % 256, (x + y) * 11 % 256));
    }
    return picture;
}

QImage picturedLines(const QSize &size)
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::black);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            if (x % 60 == 7 || y % 60 == 7)
                picture.setPixelColor(x, y, Qt::white);
        }
    }
    return picture;
}
