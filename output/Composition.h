#pragma once

#include "base/Colour.h"
#include "layer/Layer.h"
#include "output/ComposedOutput.h"

#include <QImage>
#include <QPoint>
#include <QRegion>
#include <QSize>

#include <memory>
#include <span>
#include <vector>

struct PlannedPicture;

/// A picture at its place on the output, scaled to that place where the sizes differ.
/// Point and size apart, since a QRect cannot say "far to the right" without overflowing.
struct PlacedPicture
{
    QImage picture;              ///< any format; null draws nothing
    QPoint topLeft;              ///< output pixels, origin top-left, y down; any 32-bit position
    QSize size;                  ///< output pixels; may reach beyond the output; a side of 0 or less draws nothing
    PictureChanges changes = {}; ///< how the picture came from what it was before
};

/// A picture that was composed, without its pixels.
struct ComposedPicture
{
    qint64 cacheKey;
    QPoint topLeft;
    QSize size;

    static ComposedPicture of(const PlacedPicture &placed)
    {
        return {placed.picture.cacheKey(), placed.topLeft, placed.size};
    }
    bool operator==(const ComposedPicture &) const = default;
};

/// What the output looks like where no layer covers it.
struct OutputStyle
{
    QSize size; ///< pixels; a side of 0 or less gives an empty output
    Colour background = NamedColour::black;
    Colour edge = NamedColour::black; ///< outline, one pixel wide, inside the output, source-over

    bool operator==(const OutputStyle &) const = default;
};

/// The visible layers of a document's list at their places, in list order (topmost first). The pictures share the
/// layers' rasters: let go of them before a layer renders again, or that render needs fresh memory.
std::vector<PlacedPicture> placedPictures(const std::vector<LayerPointer> &layers);

/// Composes outputs. A function of its arguments alone; the object keeps buffers and what it has learnt about pictures
/// (where they are opaque, how they look at another size), so that the next composition is cheap. What it keeps goes
/// soon after the picture is no longer shown, and takes at most the memory of one output for scaled pictures and 2 % of
/// theirs for where they are opaque.
class Composition
{
public:
    /// Pictures whose scaled copies would have more pixels together are lost; 4 GiB of memory.
    explicit Composition(qint64 mostFittedPixels = qint64{1} << 30);
    ~Composition();
    Composition(const Composition &) = delete;
    Composition &operator=(const Composition &) = delete;

    /// The background, its outline, then the pictures from the last to the first, source-atop: where the background is
    /// transparent they do not show. Only what can differ from the last composition is drawn. A picture that there is
    /// no memory to fit in is left out, and tried again by the next composition. Returns output().
    const QImage &compose(const std::vector<PlacedPicture> &topmostFirst, const OutputStyle &style);
    /// The output as it was composed last, `Format_ARGB32_Premultiplied`; a null image before, for an output that is
    /// empty or larger than a raster can be, or where the memory cannot be had. There is one, and the next composition
    /// writes into it: who shows it reads it here whenever he does. A copy that is kept has the next one ask for
    /// memory again. After each composition its cache key is another one.
    const QImage &output() const { return m_output.picture; }
    /// Whether these would give what compose() gave last; not where a picture was lost for want of memory.
    bool isLast(const std::vector<PlacedPicture> &topmostFirst, const OutputStyle &style) const;

    /// The same, where it was composed anew, and what is lost in it.
    const ComposedOutput &composed() const { return m_output; }

private:
    void paint(const std::vector<PlannedPicture> &pictures, const OutputStyle &style, const QRegion &where);

    class PictureMemory;
    std::unique_ptr<PictureMemory> m_pictures;
    ComposedOutput m_output;
    std::vector<ComposedPicture> m_composed; ///< into the output
    OutputStyle m_style;
};

/// The visible part of a picture's place, which may reach further than a QRect can say.
QRect boxOn(const QSize &output, const ComposedPicture &picture);

/// Rows of two lists of pictures, topmost first.
struct PictureRows
{
    std::span<const ComposedPicture> before;
    std::span<const PlacedPicture> now;

    /// Without those that both lists begin with, and end with.
    static PictureRows differing(std::span<const ComposedPicture> before, std::span<const PlacedPicture> now);
};

/// Where an output of `size` that shows the pictures of before differs from one that shows those of now: at most there.
/// Within the output.
QRegion changeBetween(const PictureRows &rows, const QSize &size);
