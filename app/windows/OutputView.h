#pragma once

#include <QImage>
#include <QWidget>

/// Shows the composed output, fitted and framed, on the theme's ground. Below 100 % by area averaging, so that no
/// one-pixel line vanishes; from 100 % up by whole factors, so that every output pixel is equally large. 100 % is one
/// output pixel to one device pixel.
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
    void releaseOutput();

    /// Size in device pixels that an output of size `output` is shown in on a view of `room` device pixels; empty where
    /// there is no output or no room.
    static QSize fittedSize(const QSize &output, const QSize &room);

    QSize minimumSizeHint() const override { return {160, 120}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QSize sizeInDevicePixels() const;
    QSize shownSize() const;
    const QImage &reduced(const QSize &size);
    void paintPixelForPixel(QPainter &painter) const;

    Fit m_fit = Fit::Whole;
    QImage m_output;
    QImage m_reduced; ///< the output at the size that it was last painted in; null when it has to be made
};
