#include "psd/PackedChannels.h"

#include "psd/PixelPlanes.h"
#include "psd/RowPacker.h"

#include <QSysInfo>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {
constexpr int bytesPerPixel = 4;

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
    explicit ChannelRows(PackedChannel &channel) : m_channel(channel)
    {
        m_channel.counts.clear();
        m_channel.rows.resize(0); // keeps the memory
    }

    void append(const QByteArray &packedRow)
    {
        m_channel.rows.append(packedRow);
        m_channel.counts.push_back(static_cast<quint32>(packedRow.size()));
    }

    void appendPacked(RowPacker &packer, const uchar *plane, qint64 width, const QByteArray &left,
                      const QByteArray &right)
    {
        const qsizetype start = m_channel.rows.size();
        m_channel.rows.append(left);
        const qsizetype row = m_channel.rows.size();
        m_channel.rows.resize(row + RowPacker::roomFor(width));
        char *const out = m_channel.rows.data() + row;
        m_channel.rows.resize(row + (packer.pack(plane, width, out) - out));
        m_channel.rows.append(right);
        m_channel.counts.push_back(static_cast<quint32>(m_channel.rows.size() - start));
    }

    void repeatLast()
    {
        const qsizetype length = m_channel.counts.back();
        const qsizetype end = m_channel.rows.size();
        m_channel.rows.resize(end + length);
        char *const out = m_channel.rows.data() + end;
        std::memcpy(out, out - length, static_cast<std::size_t>(length));
        m_channel.counts.push_back(m_channel.counts.back());
    }

private:
    PackedChannel &m_channel;
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

/// The channels of one layer, row by row.
class LayerRows
{
public:
    LayerRows(const PixelView &pixels, const Placement &placement, std::vector<PackedChannel> &channels)
        : m_pixels(pixels), m_rows(channels.begin(), channels.end()), m_packer(pixels.width), m_planes(pixels.width),
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

    void appendPixelRows(qint64 count)
    {
        for (qint64 y = 0; y < count; ++y)
            appendPixelRow(y);
    }

private:
    const uchar *row(qint64 y) const { return m_pixels.pixels + y * m_pixels.bytesPerRow; }

    /// Test charts repeat their rows, and where not whole rows, then those of one channel.
    void appendPixelRow(qint64 y)
    {
        const auto rowLength = static_cast<std::size_t>(m_pixels.width * bytesPerPixel);
        if (y > 0 && std::memcmp(row(y), row(y - 1), rowLength) == 0) {
            for (ChannelRows &rows : m_rows)
                rows.repeatLast();
            return;
        }
        std::swap(m_planes, m_planesAbove);
        m_planes.split(row(y), m_pixels.width);
        for (std::size_t channel = 0; channel < m_rows.size(); ++channel) {
            const int byte = m_pixels.channelBytes[channel];
            const uchar *const plane = m_planes.plane(byte);
            if (y > 0 && std::memcmp(plane, m_planesAbove.plane(byte), static_cast<std::size_t>(m_pixels.width)) == 0)
                m_rows[channel].repeatLast();
            else
                m_rows[channel].appendPacked(m_packer, plane, m_pixels.width, m_left, m_right);
        }
    }

    const PixelView &m_pixels;
    std::vector<ChannelRows> m_rows;
    RowPacker m_packer;
    Planes m_planes;
    Planes m_planesAbove;
    QByteArray m_left;
    QByteArray m_right;
    QByteArray m_blank;
};
} // namespace

PixelView PixelView::ofRaster(const QImage &raster)
{
    constexpr bool isLittleEndian = QSysInfo::ByteOrder == QSysInfo::LittleEndian;
    const std::array<int, 4> channelBytes = isLittleEndian ? std::array{2, 1, 0, 3} : std::array{1, 2, 3, 0};
    return {raster.constBits(), raster.bytesPerLine(), raster.width(), raster.height(), channelBytes};
}

Placement Placement::filledBy(const PixelView &pixels)
{
    return {pixels.height, pixels.width, 0, 0, 0, 0};
}

ChannelPacker::ChannelPacker() = default;
ChannelPacker::~ChannelPacker() = default;

std::span<const PackedChannel> ChannelPacker::pack(const PixelView &pixels, const Placement &placement, int count)
{
    const qint64 above = std::clamp<qint64>(placement.top, 0, placement.rows);
    const qint64 withPixels = pixels.width > 0 ? std::clamp<qint64>(pixels.height, 0, placement.rows - above) : 0;

    m_channels.resize(static_cast<std::size_t>(count));
    LayerRows rows(pixels, placement, m_channels);
    rows.appendBlankRows(above);
    rows.appendPixelRows(withPixels);
    rows.appendBlankRows(placement.rows - above - withPixels);
    return m_channels;
}

std::vector<PackedChannel> packChannels(const PixelView &pixels, const Placement &placement, int count)
{
    ChannelPacker packer;
    const std::span<const PackedChannel> channels = packer.pack(pixels, placement, count);
    return {channels.begin(), channels.end()};
}
