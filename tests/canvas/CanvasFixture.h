#pragma once

#include "canvas/CanvasDocument.h"
#include "canvas/LWCanvasImageView.h"
#include "layer/LayerHost.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <QEvent>
#include <QStringList>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

/// A document of one layer, or several, that notes what the canvas asks of it, and tells the canvas what it has
/// rendered.
class CanvasTestDocument final : public CanvasDocument, public LayerHost
{
public:
    int OutputWidth() const override { return outputSize.width(); }
    int OutputHeight() const override { return outputSize.height(); }
    const ComposedOutput &output() const override { return composed; }

    LayerPointer selectedLayer() const override { return layer; }
    std::vector<LayerPointer> layers() const override { return all; }
    std::vector<LayerPointer> selectedLayers() const override { return selection; }
    void select(const LayerPointer &layer, bool extends) override;
    CableHand::Show cables() const override { return {all, processors, outputSize, nextPort}; }
    void nudge(const QPoint &distance) override;
    void update(QObject *sender) override;
    void finishEdit(const QString &name) override;
    /// Renders the selected layer and tells so, as documents do.
    void render();

    qint64 voltageCalc() const override { return 110; }
    void setVoltageCalc(qint64) override {}
    qint64 phaseCalc() const override { return 1; }
    void setPhaseCalc(qint64) override {}
    int popupIndex() const override { return 0; }
    QSizeF canvasFrameSize() const override { return view ? view->fittedSize() : frameWithoutView; }
    void choosePattern(qint64) override {}

    QSize outputSize{1920, 1080};
    ComposedOutput composed;
    QSizeF frameWithoutView{960, 540};
    LWCanvasImageView *view = nullptr;
    LayerPointer layer;                  ///< that clicks go to
    std::vector<LayerPointer> all;       ///< topmost first
    std::vector<LayerPointer> selection; ///< of them
    std::vector<ProcessorSettings> processors;
    std::function<PortName(const QString &, const LayerPointer &)> nextPort; ///< what a new cable takes
    bool rendersOnUpdate = true;                                             ///< as update() does when its gate is open
    std::function<void()> onUpdate;
    QStringList calls; ///< "update", "finishEdit move image", "nudge 1,0"; selections are not noted
};

/// A canvas of 664 x 384 in a window: an output of 1920 x 1080 stands in a frame of 640 x 360 in it, 12 from each edge.
class CanvasFixture : public ::testing::Test
{
protected:
    CanvasFixture();

    /// Selects a visible still of that place and size with its marker drawn.
    LWStill &selectStill(const QPoint &topLeft, const QSize &size);
    /// Selects a screen of 8 x 5 panels of 128 x 128.
    LWScreen &selectScreen();
    /// A black output of that size.
    void showOutput(const QSize &size);
    /// As if it had just been composed, whatever size the document says.
    void showOutput(const QImage &picture);
    /// Puts a visible wall of one panel of that size below the layers of the document.
    LWScreen &addWall(const QRect &place);
    /// And a still of that size and place.
    LWStill &addStill(const QRect &place);

    /// A point of the widget by its place in the view.
    QPoint at(double x, double y) const;
    void press(const QPointF &viewPoint, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {});
    void moveTo(const QPointF &viewPoint, Qt::MouseButtons buttons = Qt::LeftButton, Qt::KeyboardModifiers keys = {});
    void release(const QPointF &viewPoint, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {});
    /// As a display tells of a mouse: the native window hears of the device pixel, from its top left.
    void sendMouse(QEvent::Type type, const QPointF &devicePixel, Qt::MouseButtons buttons = {},
                   Qt::KeyboardModifiers keys = {});
    /// Press, move there in one step, release; what it leads to later has happened.
    void drag(const QPointF &from, const QPointF &to);
    void wheel(const QPoint &widgetPoint, int turned);
    void settle();

    /// The canvas as it is painted, in device pixels.
    QImage seen();
    double ratio() const { return view.devicePixelRatioF(); }
    QPoint placeOfOutput() const { return (view.frame().topLeft() * ratio()).toPoint(); }

    CanvasTestDocument document;
    QWidget window;
    LWCanvasImageView view{document, &window};
};

/// A picture in which no two neighbouring pixels are alike.
QImage picturedNoise(const QSize &size);
/// White lines of one pixel on black, upright and level, every 60 pixels from 7 on.
QImage picturedLines(const QSize &size);
