#include "psd/PackedChannels.h"

#include "base/Bands.h"
#include "drawing/Raster.h"
#include "psd/MergedPicture.h"
#include "psd/PackBits.h"
#include "psd/PixelPlanes.h"
#include "psd/RowPacker.h"

#include <QSysInfo>

#include <algorithm>
#include <cstring>
#include <functional>
#include <new>
#include <utility>

namespace {
constexpr int bytesPerPixel = 4;

/// Where red, green, blue and alpha lie in a pixel of a raster.
constexpr std::array<int, 4> rasterBytes =
    QSysInfo::ByteOrder == QSysInfo::LittleEndian ? std::array{2, 1, 0, 3} : std::array{1, 2, 3, 0};

/// The packed stream of `count` equal samples; empty for none.
QByteArray packedBlank(qint64 count, uchar value)
{
    if (count <= 0)
        return {};
    const std::vector<uchar> samples(static_cast<std::size_t>(count + PixelPlanes::slack), value);
    QByteArray packed(RowPacker::roomFor(count), Qt::Uninitialized);
    const char *const end = RowPacker(count).pack(samples.data(), count, packed.data());
    packed.resize(end - packed.constData());
    return packed;
}

/// Rows of one channel as they come, from top to bottom; its memory is there already where it was packed before.
class ChannelRows
{
public:
    explicit ChannelRows(PackedRows &rows) : m_rows(rows)
    {
        m_rows.counts.clear();
        m_rows.bytes.resize(0); // keeps the memory
    }

    void append(const QByteArray &packedRow)
    {
        m_rows.bytes.append(packedRow);
        m_rows.counts.push_back(static_cast<quint32>(packedRow.size()));
    }

    void appendPacked(RowPacker &packer, const uchar *plane, qint64 width, const QByteArray &left,
                      const QByteArray &right)
    {
        const qsizetype start = m_rows.bytes.size();
        m_rows.bytes.append(left);
        const qsizetype row = m_rows.bytes.size();
        m_rows.bytes.resize(row + RowPacker::roomFor(width));
        char *const out = m_rows.bytes.data() + row;
        m_rows.bytes.resize(row + (packer.pack(plane, width, out) - out));
        m_rows.bytes.append(right);
        m_rows.counts.push_back(static_cast<quint32>(m_rows.bytes.size() - start));
    }

    void repeatLast()
    {
        const qsizetype length = m_rows.counts.back();
        const qsizetype end = m_rows.bytes.size();
        m_rows.bytes.resize(end + length);
        char *const out = m_rows.bytes.data() + end;
        std::memcpy(out, out - length, static_cast<std::size_t>(length));
        m_rows.counts.push_back(m_rows.counts.back());
    }

private:
    PackedRows &m_rows;
};

/// The bytes of a row of pixels, side by side by their place in the pixel.
class Planes
{
public:
    explicit Planes(qint64 width)
        : m_stride(width + PixelPlanes::slack), m_bytes(static_cast<std::size_t>(m_stride * bytesPerPixel))
    {}

    void split(const uchar *pixels, qint64 width)
    {
        PixelPlanes::split(pixels, width, {plane(0), plane(1), plane(2), plane(3)});
    }

    uchar *plane(int byteInPixel) { return m_bytes.data() + byteInPixel * m_stride; }

private:
    qint64 m_stride;
    std::vector<uchar> m_bytes;
};

/// One band of the channels of a layer, row by row.
class BandRows
{
public:
    BandRows(const PixelView &pixels, const Placement &placement, std::vector<PackedChannel> &channels, qint64 band)
        : m_pixels(pixels), m_rows(rowsOf(channels, band)), m_packer(pixels.width), m_planes(pixels.width),
          m_planesAbove(pixels.width), m_left(packedBlank(placement.left, placement.blank)),
          m_right(packedBlank(placement.right, placement.blank)),
          m_blank(packedBlank(placement.blankWidth, placement.blank))
    {}

    void appendBlankRows(qint64 count)
    {
        for (ChannelRows &rows : m_rows) {
            for (qint64 i = 0; i < count; ++i)
                rows.append(m_blank);
        }
    }

    /// Rows one below the other; the last one is looked at again when the next ones come.
    void appendPixelRows(const uchar *first, qint64 count)
    {
        for (const uchar *row = first; count > 0; --count, row += m_pixels.bytesPerRow) {
            appendPixelRow(row);
            m_above = row;
        }
    }

private:
    static std::vector<ChannelRows> rowsOf(std::vector<PackedChannel> &channels, qint64 band)
    {
        std::vector<ChannelRows> rows;
        rows.reserve(channels.size());
        for (PackedChannel &channel : channels)
            rows.emplace_back(channel[static_cast<std::size_t>(band)]);
        return rows;
    }

    /// Test charts repeat their rows, and where not whole rows, then those of one channel.
    void appendPixelRow(const uchar *row)
    {
        const auto rowLength = static_cast<std::size_t>(m_pixels.width * bytesPerPixel);
        if (m_above && std::memcmp(row, m_above, rowLength) == 0) {
            for (ChannelRows &rows : m_rows)
                rows.repeatLast();
            return;
        }
        std::swap(m_planes, m_planesAbove);
        m_planes.split(row, m_pixels.width);
        for (std::size_t channel = 0; channel < m_rows.size(); ++channel) {
            const int byte = m_pixels.channelBytes[channel];
            const uchar *const plane = m_planes.plane(byte);
            if (m_above && std::memcmp(plane, m_planesAbove.plane(byte), static_cast<std::size_t>(m_pixels.width)) == 0)
                m_rows[channel].repeatLast();
            else
                m_rows[channel].appendPacked(m_packer, plane, m_pixels.width, m_left, m_right);
        }
    }

    const PixelView &m_pixels;
    const uchar *m_above = nullptr; ///< the last row of pixels
    std::vector<ChannelRows> m_rows;
    RowPacker m_packer;
    Planes m_planes;
    Planes m_planesAbove;
    QByteArray m_left;
    QByteArray m_right;
    QByteArray m_blank;
};

/// As many as keep all processors busy, each with enough pixels to be worth waking one.
qint64 bandsFor(qint64 pixels)
{
    constexpr qint64 leastPixels = qint64{1} << 17;
    return std::clamp<qint64>(pixels / leastPixels, 1, Bands::mostThreads());
}

/// Rows of a picture that is drawn only as they are needed.
class DrawnRows
{
public:
    explicit DrawnRows(const MergedPicture &picture) : m_picture(picture)
    {
        for (QImage &rows : m_drawn)
            rows = Raster::make(picture.size().width(), mostRows);
        if (m_drawn.front().isNull() || m_drawn.back().isNull())
            throw std::bad_alloc();
    }

    void appendTo(BandRows &band, qint64 first, qint64 end)
    {
        for (qint64 y = first; y < end; y += mostRows) {
            std::swap(m_drawn.front(), m_drawn.back()); // the rows above stay
            QImage &rows = m_drawn.front();
            const auto count = static_cast<int>(std::min<qint64>(mostRows, end - y));
            uchar *const bytes = rows.bits();
            QImage part(bytes, rows.width(), count, rows.bytesPerLine(), Raster::format);
            m_picture.drawRows(static_cast<int>(y), part);
            band.appendPixelRows(bytes, count);
        }
    }

private:
    static constexpr int mostRows = 16; ///< few enough for a processor's cache

    const MergedPicture &m_picture;
    std::array<QImage, 2> m_drawn;
};

void appendCounts(ByteBuffer &buffer, const PackedChannel &channel)
{
    for (const PackedRows &rows : channel) {
        char *out = buffer.at(buffer.appendRoom(2 * std::ssize(rows.counts)));
        for (const quint32 count : rows.counts) {
            *out++ = static_cast<char>(count >> 8);
            *out++ = static_cast<char>(count);
        }
    }
}

/// Rows that are packed, and where in the document they belong.
struct Piece
{
    const QByteArray &bytes;
    qsizetype position;
};

void appendRoomFor(const PackedChannel &channel, ByteBuffer &buffer, std::vector<Piece> &pieces)
{
    for (const PackedRows &rows : channel)
        pieces.push_back({rows.bytes, buffer.appendRoom(rows.bytes.size())});
}

/// The memory of a document is new, and the system clears its large pages when they are first written to: half of the
/// pieces for each of two threads, and none of them in turn.
void fill(const std::vector<Piece> &pieces, ByteBuffer &buffer)
{
    constexpr qsizetype leastBytes = qsizetype{1} << 20; // that are worth waking a thread
    const auto count = static_cast<int>(pieces.size());
    const bool isLarge = count > 0 && buffer.length() - pieces.front().position >= leastBytes;
    char *const document = buffer.at(0);
    Bands::forEach(count, std::max(1, isLarge ? count / 2 : count), [&](int first, int length) {
        for (const Piece &piece : std::span(pieces).subspan(first, length))
            std::copy_n(piece.bytes.constData(), piece.bytes.size(), document + piece.position);
    });
}
} // namespace

PixelView PixelView::ofRaster(const QImage &raster)
{
    return {raster.constBits(), raster.bytesPerLine(), raster.width(), raster.height(), rasterBytes};
}

Placement Placement::filledBy(const PixelView &pixels)
{
    return {pixels.height, pixels.width, 0, 0, 0, 0};
}

std::vector<qint64> appendOneByOne(ByteBuffer &buffer, std::span<const PackedChannel> channels)
{
    std::vector<qint64> lengths;
    std::vector<Piece> pieces;
    for (const PackedChannel &channel : channels) {
        const qsizetype start = buffer.length();
        buffer.kxAppendValue(PackBits::compression, 2);
        appendCounts(buffer, channel);
        appendRoomFor(channel, buffer, pieces);
        lengths.push_back(buffer.length() - start);
    }
    fill(pieces, buffer);
    return lengths;
}

void appendTogether(ByteBuffer &buffer, std::span<const PackedChannel> channels)
{
    std::vector<Piece> pieces;
    buffer.kxAppendValue(PackBits::compression, 2);
    for (const PackedChannel &channel : channels)
        appendCounts(buffer, channel);
    for (const PackedChannel &channel : channels)
        appendRoomFor(channel, buffer, pieces);
    fill(pieces, buffer);
}

ChannelPacker::ChannelPacker() = default;
ChannelPacker::~ChannelPacker() = default;

std::span<const PackedChannel> ChannelPacker::pack(const PixelView &pixels, const Placement &placement, int count)
{
    return packBands(pixels, placement, count, [&](BandRows &rows, qint64 first, qint64 end) {
        rows.appendPixelRows(pixels.pixels + first * pixels.bytesPerRow, end - first);
    });
}

std::span<const PackedChannel> ChannelPacker::pack(const MergedPicture &picture, int count)
{
    const PixelView pixels{nullptr, picture.size().width() * bytesPerPixel, picture.size().width(),
                           picture.size().height(), rasterBytes};
    return packBands(pixels, Placement::filledBy(pixels), count,
                     [&](BandRows &rows, qint64 first, qint64 end) { DrawnRows(picture).appendTo(rows, first, end); });
}

template <typename AppendRows>
std::span<const PackedChannel> ChannelPacker::packBands(const PixelView &pixels, const Placement &placement, int count,
                                                        const AppendRows &appendRows)
{
    const qint64 above = std::clamp<qint64>(placement.top, 0, placement.rows);
    const qint64 withPixels = pixels.width > 0 ? std::clamp<qint64>(pixels.height, 0, placement.rows - above) : 0;
    const qint64 bands = bandsFor(pixels.width * withPixels);
    m_channels.resize(static_cast<std::size_t>(count));
    for (PackedChannel &channel : m_channels)
        channel.resize(static_cast<std::size_t>(bands));

    Bands::forEach(static_cast<int>(bands), 1, [&](int band, int) {
        BandRows rows(pixels, placement, m_channels, band);
        if (band == 0)
            rows.appendBlankRows(above);
        appendRows(rows, withPixels * band / bands, withPixels * (band + 1) / bands);
        if (band == bands - 1)
            rows.appendBlankRows(placement.rows - above - withPixels);
    });
    return m_channels;
}
