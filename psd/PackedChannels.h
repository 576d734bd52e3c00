#pragma once

#include "psd/ByteBuffer.h"

#include <QByteArray>
#include <QImage>
#include <QtGlobal>

#include <array>
#include <span>
#include <vector>

class MergedPicture;

/// Pixels of four bytes where they lie in memory, top row first; whoever made the view keeps them there.
struct PixelView
{
    const uchar *pixels = nullptr;
    qsizetype bytesPerRow = 0;
    qint64 width = 0;
    qint64 height = 0;
    /// Where in a pixel the bytes of red, green, blue and alpha lie.
    std::array<int, 4> channelBytes = {0, 1, 2, 3};

    /// The bytes of a raster (drawing/Raster.h).
    static PixelView ofRaster(const QImage &raster);
};

/// Where pixels stand in the rows that are packed; what they do not cover is blank.
struct Placement
{
    qint64 rows;       ///< of the whole channel
    qint64 blankWidth; ///< samples in a row without pixels
    qint64 top;        ///< rows above the pixels
    qint64 left;       ///< samples left of them
    qint64 right;      ///< samples right of them
    uchar blank;       ///< value of the samples around

    /// Pixels that fill the channel.
    static Placement filledBy(const PixelView &pixels);
};

/// Rows of one channel, each a PackBits stream of its own.
struct PackedRows
{
    std::vector<quint32> counts; ///< bytes of each row
    QByteArray bytes;            ///< all rows, one after the other
};

/// One channel: its rows in bands, from top to bottom.
using PackedChannel = std::vector<PackedRows>;

/// Appends channels as a layer has them: each with its compression, the byte counts of its rows, two bytes each (the
/// low ones of a count that is larger), and its rows. Returns the length of each channel.
std::vector<qint64> appendOneByOne(ByteBuffer &buffer, std::span<const PackedChannel> channels);
/// Appends channels as the merged picture has them: one compression, all counts, all rows.
void appendTogether(ByteBuffer &buffer, std::span<const PackedChannel> channels);

/// Packs layers' pixels, large ones in bands on several threads, keeping its memory from one layer to the next.
class ChannelPacker
{
public:
    ChannelPacker();
    ~ChannelPacker();
    ChannelPacker(const ChannelPacker &) = delete;
    ChannelPacker &operator=(const ChannelPacker &) = delete;

    /// Packs the first `count` (3 or 4) channels in the order red, green, blue, alpha. A row that repeats the one above
    /// is copied instead of being packed again. Rows of the pixels that lie below the last row are left out. The result
    /// is good until the next call. Memory that cannot be had is a std::bad_alloc.
    std::span<const PackedChannel> pack(const PixelView &pixels, const Placement &placement, int count);
    /// The same of a picture, which is drawn a few rows at a time.
    std::span<const PackedChannel> pack(const MergedPicture &picture, int count);

private:
    template <typename AppendRows>
    std::span<const PackedChannel> packBands(const PixelView &pixels, const Placement &placement, int count,
                                             const AppendRows &appendRows);

    std::vector<PackedChannel> m_channels;
};
