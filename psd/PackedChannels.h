#pragma once

#include <QByteArray>
#include <QImage>
#include <QtGlobal>

#include <array>
#include <span>
#include <vector>

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

/// One channel, row after row, each row a PackBits stream of its own.
struct PackedChannel
{
    std::vector<quint32> counts; ///< bytes of each row
    QByteArray rows;             ///< all rows, one after the other
};

/// Packs layers' pixels, keeping its memory from one layer to the next.
class ChannelPacker
{
public:
    ChannelPacker();
    ~ChannelPacker();
    ChannelPacker(const ChannelPacker &) = delete;
    ChannelPacker &operator=(const ChannelPacker &) = delete;

    /// Packs the first `count` (3 or 4) channels in the order red, green, blue, alpha. A row that repeats the one above
    /// is copied instead of being packed again. Rows of the pixels that lie below the last row are left out. The result
    /// is good until the next call.
    std::span<const PackedChannel> pack(const PixelView &pixels, const Placement &placement, int count);

private:
    std::vector<PackedChannel> m_channels;
};

/// The same, once.
std::vector<PackedChannel> packChannels(const PixelView &pixels, const Placement &placement, int count);
