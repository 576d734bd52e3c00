#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>

/// Where the output stands in the canvas: fitted, or larger or smaller than the room there is. All in device pixels,
/// origin at the room's top left, y down. From 100 % up (one output pixel to one device pixel) by whole factors, so
/// that every output pixel is equally large.
class CanvasFrame
{
public:
    static constexpr double greatestZoom = 32;
    /// So much of the output stays in sight along both sides, or all of it.
    static constexpr int leastInSight = 64;

    /// The space there is, and how much of it stays free around the output. What was in the middle stays there.
    void setRoom(const QSize &room, int margin);
    /// Empty: there is no output.
    void setOutput(const QSize &output);

    /// The whole output, as large as it goes, in the middle. It stays fitted while room and output change.
    void fit();
    /// `zoom`: device pixels per output pixel, brought to the nearest that there is. The output's point at `anchor`
    /// stays there, as far as keeping the output in sight allows.
    void setZoom(double zoom, const QPointF &anchor);
    /// So many steps larger or, negative, smaller. From below to above and back a step ends at 100 %.
    void stepZoom(int steps, const QPointF &anchor);
    /// Shifts the output, as far as keeping it in sight allows; a fitted one stays in the middle.
    void pan(const QPoint &way);

    /// The output's place; empty where there is no output, or no room to fit it in.
    const QRect &place() const { return m_place; }
    const QSize &room() const { return m_room; }
    const QSize &output() const { return m_output; }
    bool isFitted() const { return m_isFitted; }
    /// Device pixels per output pixel; 0 where there is nothing to show.
    double zoom() const;
    /// What fit() makes of the output, whatever the zoom is.
    QSize fittedSize() const;

private:
    QSize sizeAt(double zoom) const;
    double leastZoom() const;
    double step(double zoom, bool isLarger) const;
    void takeZoom(double zoom);
    void keepInSight();

    QSize m_room{0, 0};
    QSize m_output{0, 0};
    int m_margin = 0;
    bool m_isFitted = true;
    double m_zoom = 1; ///< while not fitted
    QRect m_place;
};
