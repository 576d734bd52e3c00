#pragma once

#include <QRgb>
#include <QtGlobal>

/// Vector code over pixels that lie side by side, in `QImage::Format_ARGB32_Premultiplied`. Roundings are those of Qt's
/// painter, so that a raster looks the same whichever of the two has drawn it.
namespace LayerRows {

/// Where written pixels go. Streamed ones go past the caches: right for rasters larger than those, wrong for pixels
/// that are read again soon.
enum class Stores
{
    Cached,
    Streamed
};

/// Waits until streamed pixels have arrived; once, after the last of them.
void finishStreams();

/// `count` pixels of one colour.
void fill(QRgb *out, qint64 count, QRgb pixel, Stores stores);
/// `count` pixels, exactly as they are. The rows do not overlap.
void copy(QRgb *out, const QRgb *in, qint64 count, Stores stores);
/// `count` opaque pixels over output pixels whose alpha is `alpha`, 0 to 255: in x alpha.
void scale(QRgb *out, const QRgb *in, qint64 count, int alpha, Stores stores);
/// `count` pixels source-atop output pixels whose alpha is `alpha`: in x alpha + out x (1 - alpha of in).
void atop(QRgb *out, const QRgb *in, qint64 count, int alpha);

/// Size in pixels of the blocks that coverage is found out for.
inline constexpr int blockWidth = 32;
inline constexpr int blockHeight = 8;

enum class Coverage : quint8
{
    Transparent,
    Mixed,
    Opaque
};

/// The coverage of `rows` (1 or more) rows of `width` pixels, `bytesPerLine` apart, for each `blockWidth` pixels of
/// them; the last block may be narrower. `blocks` has room for all.
void findCoverage(const uchar *firstRow, qint64 bytesPerLine, int rows, int width, Coverage *blocks);

} // namespace LayerRows
