#pragma once

#include "output/CanvasPicture.h"

#include <QWidget>

/// Shows the composed output as the canvas does, fitted and framed, on the theme's ground, or pixel for pixel.
class OutputView final : public QWidget
{
    Q_OBJECT

public:
    explicit OutputView(QWidget *parent = nullptr);

    enum class Fit
    {
        Whole,        ///< the whole output, framed
        PixelForPixel ///< one output pixel to one device pixel from the top left on black, for displays that feed walls
    };
    void setFit(Fit fit);
    /// Shares the picture's pixels until releaseOutput(). Null: there is no output.
    void showOutput(const QImage &output);
    /// Lets go of the picture; showOutput() follows before the next painting.
    void releaseOutput() { m_picture.release(); }

    QSize minimumSizeHint() const override { return {160, 120}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void paintWhole(QPainter &painter);
    void paintPixelForPixel(QPainter &painter);

    Fit m_fit = Fit::Whole;
    CanvasPicture m_picture;
};
