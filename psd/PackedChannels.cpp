#include "psd/PackedChannels.h"

#include "psd/PixelPlanes.h"
#include "psd/RowPacker.h"

#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <cstring>
#include <functional>
#include <future>
#include <system_error>
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

    void appendPixelRows(qint64 first, qint64 end)
    {
        for (qint64 y = first; y < end; ++y)
            appendPixelRow(y, y > first);
    }

private:
    static std::vector<ChannelRows> rowsOf(std::vector<PackedChannel> &channels, qint64 band)
    {
        std::vector<ChannelRows> rows;
        for (PackedChannel &channel : channels)
            rows.emplace_back(channel[static_cast<std::size_t>(band)]);
        return rows;
    }

    const uchar *row(qint64 y) const { return m_pixels.pixels + y * m_pixels.bytesPerRow; }

    /// Test charts repeat their rows, and where not whole rows, then those of one channel.
    void appendPixelRow(qint64 y, bool hasRowAbove)
    {
        const auto rowLength = static_cast<std::size_t>(m_pixels.width * bytesPerPixel);
        if (hasRowAbove && std::memcmp(row(y), row(y - 1), rowLength) == 0) {
            for (ChannelRows &rows : m_rows)
                rows.repeatLast();
            return;
        }
        std::swap(m_planes, m_planesAbove);
        m_planes.split(row(y), m_pixels.width);
        for (std::size_t channel = 0; channel < m_rows.size(); ++channel) {
            const int byte = m_pixels.channelBytes[channel];
            const uchar *const plane = m_planes.plane(byte);
            if (hasRowAbove &&
                std::memcmp(plane, m_planesAbove.plane(byte), static_cast<std::size_t>(m_pixels.width)) == 0)
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

/// As many as keep all processors busy, each with enough pixels to be worth waking one.
qint64 bandsFor(qint64 pixels)
{
    constexpr qint64 leastPixels = qint64{1} << 17;
    return std::clamp<qint64>(pixels / leastPixels, 1, std::max(1, QThread::idealThreadCount()));
}

/// Begins `work` on another thread; where none can be had it is done when its end is waited for.
std::future<void> begun(const std::function<void(qint64)> &work, qint64 number)
{
    try {
        return std::async(std::launch::async, work, number);
    } catch (const std::system_error &) {
        return std::async(std::launch::deferred, work, number);
    }
}

/// Does `work` for 0 to `count` - 1 and throws what it throws.
void inParallel(qint64 count, const std::function<void(qint64)> &work)
{
    std::vector<std::future<void>> others;
    for (qint64 number = 1; number < count; ++number)
        others.push_back(begun(work, number));
    work(0);
    for (std::future<void> &other : others)
        other.get();
}
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

void appendCounts(ByteBuffer &buffer, const PackedChannel &channel)
{
    for (const PackedRows &rows : channel) {
        for (const quint32 count : rows.counts)
            buffer.kxAppendValue(count, 2);
    }
}

void appendRows(ByteBuffer &buffer, const PackedChannel &channel)
{
    for (const PackedRows &rows : channel)
        buffer.append(rows.bytes);
}

ChannelPacker::ChannelPacker() = default;
ChannelPacker::~ChannelPacker() = default;

std::span<const PackedChannel> ChannelPacker::pack(const PixelView &pixels, const Placement &placement, int count)
{
    const qint64 above = std::clamp<qint64>(placement.top, 0, placement.rows);
    const qint64 withPixels = pixels.width > 0 ? std::clamp<qint64>(pixels.height, 0, placement.rows - above) : 0;
    const qint64 bands = bandsFor(pixels.width * withPixels);
    m_channels.resize(static_cast<std::size_t>(count));
    for (PackedChannel &channel : m_channels)
        channel.resize(static_cast<std::size_t>(bands));

    inParallel(bands, [&](qint64 band) {
        BandRows rows(pixels, placement, m_channels, band);
        if (band == 0)
            rows.appendBlankRows(above);
        rows.appendPixelRows(withPixels * band / bands, withPixels * (band + 1) / bands);
        if (band == bands - 1)
            rows.appendBlankRows(placement.rows - above - withPixels);
    });
    return m_channels;
}
