#pragma once

#include "base/Colour.h"
#include "drawing/TextLine.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPoint>
#include <QRect>
#include <QRectF>

#include <span>
#include <utility>
#include <vector>

/// How drawn pixels meet those that are there.
enum class Compositing
{
    Replace,    ///< result = source
    SourceOver, ///< result = source + destination x (1 - source alpha)
    SourceAtop, ///< result = source x destination alpha + destination x (1 - source alpha)
};

/// The colours of a text.
struct TextColours
{
    Colour foreground;
    OptionalColour background; ///< fills the text's box behind the glyphs; nullopt: no box

    bool operator==(const TextColours &) const = default;
};

/// Draws into a raster (drawing/Raster.h) with the origin bottom-left, y upwards, one unit = one pixel = one point.
/// A QRect here is (left, bottom, width, height). A new surface draws in opaque black; a nil colour leaves the
/// colour in force. Rectangles and frames are pixel exact, paths are antialiased; what lies outside the raster costs
/// no more than finding that out, and paths that reach further than four million pixels are not drawn. The coordinates
/// of rectangles and points are within 2^30. The raster outlives the surface and is not shared meanwhile. Main thread
/// only.
/// A surface of a part draws the same pixels as one of the whole raster, but leaves those beside the part alone.
class DrawingSurface
{
public:
    explicit DrawingSurface(QImage &raster) : DrawingSurface(raster, raster.rect()) {}
    /// `part`: pixels from the raster's top left.
    DrawingSurface(QImage &raster, const QRect &part);
    ~DrawingSurface();
    DrawingSurface(const DrawingSurface &) = delete;
    DrawingSurface &operator=(const DrawingSurface &) = delete;

    /// Colour of fills and strokes.
    void setColour(const OptionalColour &colour);
    /// Colour of fills alone.
    void setFillColour(const OptionalColour &colour);

    void fillRect(const QRect &rect, Compositing mode = Compositing::Replace);
    /// Fills the `width` pixels along the inside of the rectangle's edges in the fill colour, replacing pixels.
    void frameRect(const QRect &rect, int width);

    void fillPath(const QPainterPath &path);
    /// Strokes in the stroke colour, ends flat, corners mitred. A width of 0 is the thinnest line there is, one pixel;
    /// less draws nothing. `dash` holds lengths of dashes and gaps in units of the raster, none for a solid line.
    void strokePath(const QPainterPath &path, double width, const std::vector<double> &dash = {});

    /// Draws a text with the bottom left of its box at a point. Leaves the colour in force alone.
    void drawText(const QPoint &bottomLeft, const TextLine &text, const TextColours &colours);

    /// Lays a colour over the raster as far as masks say, in their order. They stand in a box of `boxHeight` rows whose
    /// bottom left is at a point, as those of a text do. Row by row, which the memory of a large raster rewards.
    void drawMasks(const QPoint &bottomLeft, int boxHeight, std::span<const CoverageMask> masks, const Colour &colour);

    /// Draws the whole image, upright, scaled into a rectangle (left, bottom, width, height).
    void drawImage(const QImage &image, const QRectF &rect, Compositing mode, double opacity = 1);

    /// The colours in force, on a stack.
    void saveState();
    void restoreState();

private:
    struct Colours
    {
        Colour fill = NamedColour::black;
        Colour stroke = NamedColour::black;
    };

    void clipToPart();
    /// The same pixels with the top left as origin and y down.
    QRect toDevice(const QRect &rect) const;
    QPainterPath toDevice(const QPainterPath &path) const;
    bool isOutside(const QRectF &deviceBounds) const;
    QRgb *pixels(int y);
    /// A stroke across a large raster waits for memory in every row; asked for beforehand, all rows arrive together.
    void prefetchAlong(const QPainterPath &devicePath);
    void paintRect(const QRect &deviceRect, const Colour &colour, Compositing mode);
    void replacePixels(const QRect &deviceRect, QRgb pixel);

    QImage &m_raster;
    QRect m_part; ///< within the raster, y down
    uchar *m_bits;
    QPainter m_painter;
    Colours m_colours;
    std::vector<Colours> m_saved;
    std::vector<std::pair<QPoint, QRgb>> m_corners; ///< of the raster, beside the part, and what was there
};
