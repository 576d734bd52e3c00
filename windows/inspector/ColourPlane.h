#pragma once

#include <QColor>
#include <QRect>
#include <QWidget>

/// All colours to be picked by pointing: a field of one hue, white to full from the left, black upwards; below it a
/// strip of hues and one of opacities.
class ColourPlane final : public QWidget
{
    Q_OBJECT

public:
    explicit ColourPlane(QWidget *parent = nullptr);

    /// Shows a colour without telling it. A grey leaves the hue where it was.
    void show(const QColor &colour);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// Someone points at this colour.
    void pointed(const QColor &colour);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    enum class Part
    {
        Field,
        Hues,
        Opacities
    };
    QRect placeOf(Part part) const;
    void point(const QPoint &place);
    QColor colour() const;
    void paintMark(QPainter &painter, const QPointF &place) const;

    Part m_held = Part::Field;
    float m_hue = 0;
    float m_saturation = 0;
    float m_value = 0;
    float m_alpha = 1;
};
