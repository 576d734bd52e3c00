#pragma once

#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QTransform>

#include <optional>

class CanvasGeometry;
class Layer;
class QWidget;

/// A box of that size, moved so that none of it is cut off by the widget.
QRect movedIntoSight(const QWidget &widget, QRect box);

/// A box for a text beside a point of the widget, all of it in sight.
QRect boxBeside(const QWidget &widget, const QPointF &widgetPoint, const QString &text);

/// What the canvas and its tools paint with, in a painting of their widget. Colours come from the palette: Highlight is
/// what is outlined, ToolTipBase and ToolTipText are boxes of text, BrightText is one that warns. Main thread only.
class CanvasPainter
{
public:
    static constexpr int paddingOfText = 4;

    /// Both outlive this. `pointer`: a point of the widget; none while the pointer is elsewhere.
    CanvasPainter(QWidget &widget, const CanvasGeometry &geometry, const std::optional<QPointF> &pointer);

    /// The painter for what is measured in device pixels, from the first whole one in the widget on; until another
    /// function of this is called.
    QPainter &inDevicePixels();
    /// Likewise for points of the widget.
    QPainter &inWidget();

    /// In device pixels: so wide around `place`, outside the edge, so that nothing of what it is around is covered.
    void outline(const QRect &place, int width);
    /// The same around a layer, as wide as lines are.
    void outline(const Layer &layer);
    /// Lines through the whole widget, through an edge of the output's pixels.
    void uprightLine(double pixel);
    void levelLine(double pixel);

    /// In a box of the widget; a warning in its colour.
    void text(const QRect &box, const QString &text);
    void warning(const QRect &box, const QString &text);
    void textBesidePointer(const QString &text);
    void warningBesidePointer(const QString &text);

private:
    QColor highlight() const;
    void textIn(const QRect &box, const QString &text, QPalette::ColorRole colour);
    QRect boxOfPointer(const QString &text) const;

    QWidget &m_widget;
    const CanvasGeometry &m_geometry;
    std::optional<QPointF> m_pointer;
    QPainter m_painter;
    QTransform m_widgets;
    QTransform m_devices;
};
