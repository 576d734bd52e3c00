#pragma once

#include <QRect>
#include <QWidget>

#include <optional>

class LWCanvasImageView;

/// How a ruler is divided, in output pixels.
struct RulerSteps
{
    qint64 numbered = 1; ///< from number to number: 1, 2 or 5 times a power of ten
    qint64 ticked = 1;   ///< from tick to tick: a tenth of that, or single pixels

    /// Steps for a ruler on which an output pixel is `length` long, any unit: numbers are at least `least` of it apart.
    /// `length` is more than 0.
    static RulerSteps of(double length, double least);

    bool operator==(const RulerSteps &) const = default;
};

/// A ruler along the top or the left edge of a canvas, in output pixels: 0 is the edge of the output's first pixel. It
/// marks the pixel under the pointer. Along its own axis it begins and ends where the canvas does.
/// Colours come from the palette: Window the ground, Mid the line towards the canvas, PlaceholderText ticks and
/// numbers, Highlight the mark.
class CanvasRuler final : public QWidget
{
    Q_OBJECT

public:
    /// In logical pixels.
    static constexpr int thickness = 20;

    /// `canvas` outlives every event that this gets.
    explicit CanvasRuler(Qt::Orientation orientation, LWCanvasImageView &canvas, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool isLevel() const { return m_orientation == Qt::Horizontal; }
    /// Of a place or size: along the ruler.
    int along(const QPoint &point) const { return isLevel() ? point.x() : point.y(); }
    int along(const QSize &size) const { return isLevel() ? size.width() : size.height(); }
    QRect stretch(int from, int length, int depth) const;
    double pixelLength() const;
    int placeOf(qint64 pixel) const;
    void takeMark();
    QRect areaOf(int pixel) const;
    void paintTicks(QPainter &painter) const;
    void paintNumber(QPainter &painter, qint64 pixel) const;
    void paintMark(QPainter &painter) const;

    Qt::Orientation m_orientation;
    LWCanvasImageView &m_canvas;
    std::optional<int> m_mark; ///< pixel under the pointer along the ruler
};
