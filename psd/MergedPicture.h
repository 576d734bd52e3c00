#pragma once

#include <QImage>
#include <QRectF>

#include <vector>

class QPainter;

/// The layers of a document drawn over each other. What is drawn is noted, sharing its memory; the pixels are made when
/// they are asked for, so that a file needs no more of them than the rows it is packing.
class MergedPicture
{
public:
    enum class Background : uchar
    {
        Transparent = 0, ///< the byte that fills it
        White = 0xff
    };

    /// None: no size, and nothing can be drawn.
    MergedPicture() = default;
    /// Of `width` x `height` pixels; none where no raster can hold them.
    MergedPicture(qint64 width, qint64 height, Background background);

    bool isNull() const { return m_size.isEmpty(); }
    const QSize &size() const { return m_size; }

    /// Draws an image in raster format (drawing/Raster.h) over what is there. `target`: pixels from the top left corner
    /// of the picture, as large as the image. `opacity`: the painter's, 0 to 1. Returns whether that can be done; an
    /// image that stands between pixels is drawn at once, and without the memory for that there is no picture any more.
    bool draw(const QImage &image, const QRectF &target, double opacity);

    /// Fills `rows`, a raster as wide as the picture, with its rows from `first` on. May be called by several threads
    /// at once.
    void drawRows(int first, QImage &rows) const;

    /// All pixels, in raster format, premultiplied; the same ones until something is drawn. Null where there is no
    /// picture, or the memory cannot be had.
    QImage pixels() const;

private:
    struct Drawn
    {
        QImage image;
        QRectF target;
        double opacity;
    };

    class Band;
    /// Paints on a surface whose first row is row `first` of the picture.
    static void paint(QPainter &painter, const Drawn &drawn, int first);

    QSize m_size;
    Background m_background = Background::Transparent;
    // What is made of it and what is not yet; together they stay the same picture.
    mutable QImage m_pixels;            ///< null: the background alone
    mutable std::vector<Drawn> m_drawn; ///< over that, from bottom to top
};
