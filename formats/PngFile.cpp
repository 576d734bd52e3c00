#include "formats/PngFile.h"

#include "base/Bands.h"
#include "base/FileBytes.h"
#include "base/Memory.h"
#include "drawing/PixelRows.h"
#include "drawing/Raster.h"
#include "formats/PngRows.h"

#include <QtEndian>

#include <algorithm>
#include <atomic>
#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace {
constexpr char signature[] = "\x89PNG\r\n\x1a\n";
constexpr char bitsPerChannel = 8;
constexpr char truecolour = 2;
constexpr char truecolourWithAlpha = 6;
constexpr uchar filterUp = 2;

/// The data chunks hold one stream (https://www.rfc-editor.org/rfc/rfc1950): a header that promises little, sections
/// that end on whole bytes and know nothing of each other, an empty last block, a checksum.
constexpr QByteArrayView streamHeader("\x78\x01", 2);
constexpr QByteArrayView lastBlock("\x03\x00", 2);
constexpr quint32 checksumOfNothing = 1;

/// Bytes of filtered rows in a section, which has a chunk of its own: few enough for a processor's cache.
constexpr qint64 sectionBytes = qint64{512} << 10;

/// What a section begins with uncompressed, and the encoder is told as that which came before. Told nothing, it takes
/// its own address for something that came before, and the same rows would not always give the same bytes.
constexpr std::size_t storedBytes = 8;

/// Rows that a thread looks through at a time for pixels that are not opaque.
constexpr int rowsPerLook = 128;

/// 32 bits a pixel, alpha in the highest of them where there is any.
QImage prepared(const QImage &picture)
{
    const bool isPrepared = picture.format() == Raster::format || picture.format() == QImage::Format_ARGB32 ||
                            picture.format() == QImage::Format_RGB32;
    QImage prepared = isPrepared ? picture : picture.convertToFormat(QImage::Format_ARGB32);
    if (prepared.isNull())
        throw std::bad_alloc();
    return prepared;
}

bool isOpaque(const QImage &picture)
{
    if (!picture.hasAlphaChannel())
        return true;
    std::atomic<bool> areOpaque = true;
    Bands::forEach(picture.height(), rowsPerLook, [&](int first, int count) {
        for (int y = first; y < first + count && areOpaque; ++y) {
            if (!PixelRows::areOpaque(reinterpret_cast<const QRgb *>(picture.constScanLine(y)), picture.width()))
                areOpaque = false;
        }
    });
    return areOpaque;
}

QByteArray bigEndian(quint32 number)
{
    QByteArray bytes(sizeof number, Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray chunkOf(QByteArrayView type, QByteArrayView data)
{
    QByteArray chunk = bigEndian(static_cast<quint32>(data.size()));
    chunk.reserve(data.size() + 12);
    chunk += type;
    chunk += data;
    const auto *checked = reinterpret_cast<const uchar *>(chunk.constData()) + sizeof(quint32);
    chunk += bigEndian(crc32_gzip_refl(0, checked, chunk.size() - sizeof(quint32)));
    return chunk;
}

/// The Adler-32 checksum of what `first` was made of, followed by the `bytes` that `second` was made of.
quint32 joinedChecksum(quint32 first, quint32 second, quint64 bytes)
{
    constexpr quint64 base = 65521;
    const quint64 sum = (first & 0xffff) + base - 1; // both begin with 1
    const quint64 low = (sum + (second & 0xffff)) % base;
    const quint64 high = ((first >> 16) + (second >> 16) + bytes % base * (sum % base)) % base;
    return static_cast<quint32>(high << 16 | low);
}

/// What is written: a picture that is not empty, and how its rows look in the file.
struct Rows
{
    explicit Rows(const QImage &original)
        : picture(prepared(original)), opaque(isOpaque(picture)), rowBytes(qint64{picture.width()} * (opaque ? 3 : 4)),
          perSection(static_cast<int>(std::clamp<qint64>(sectionBytes / rowBytes, 1, picture.height())))
    {}
    int sections() const { return (picture.height() + perSection - 1) / perSection; }

    const QImage picture;
    const bool opaque;
    const qint64 rowBytes;
    const int perSection;
};

struct Section
{
    QByteArray chunk;
    quint32 checksum = checksumOfNothing; ///< of the filtered rows
    quint64 bytes = 0;                    ///< of the filtered rows
};

using Bytes = std::span<const uchar>;

/// Writes few bytes as a block that holds them as they are, and is not the last; returns its length.
std::size_t store(Bytes bytes, std::span<uchar> out)
{
    const auto length = static_cast<quint16>(bytes.size());
    out[0] = 0;
    qToLittleEndian(length, &out[1]);
    qToLittleEndian(static_cast<quint16>(~length), &out[3]);
    std::copy(bytes.begin(), bytes.end(), out.begin() + 5);
    return 5 + bytes.size();
}

/// Makes sections, each from the picture alone; keeps its buffers from one to the next.
class SectionMaker
{
public:
    explicit SectionMaker(const Rows &rows) : m_rows(rows), m_levelBuffer(ISAL_DEF_LVL1_DEFAULT) {}

    /// Nullopt: its rows could not be compressed.
    std::optional<Section> section(int index);

private:
    void filter(int top, int bottom);
    QByteArrayView compress(); ///< empty: it failed
    /// Compresses what follows upon `before`, which may be repeated; the length, nullopt: it failed.
    std::optional<std::size_t> deflate(Bytes before, Bytes bytes, std::span<uchar> out);

    const Rows &m_rows;
    std::vector<uchar> m_filtered; ///< rows, each behind the number of its filter
    std::vector<uchar> m_levelBuffer;
    QByteArray m_compressed;
};

std::optional<Section> SectionMaker::section(int index)
{
    const int top = index * m_rows.perSection;
    filter(top, std::min(top + m_rows.perSection, m_rows.picture.height()));
    const QByteArrayView compressed = compress();
    if (compressed.isEmpty())
        return std::nullopt;
    return Section{chunkOf("IDAT", compressed), isal_adler32(checksumOfNothing, m_filtered.data(), m_filtered.size()),
                   m_filtered.size()};
}

void SectionMaker::filter(int top, int bottom)
{
    const QImage &picture = m_rows.picture;
    const int first = std::max(0, top - 1);
    QImage lines(picture.constScanLine(first), picture.width(), bottom - first, picture.bytesPerLine(),
                 picture.format());
    if (!m_rows.opaque)
        lines.convertTo(QImage::Format_RGBA8888);
    if (lines.isNull())
        throw std::bad_alloc();

    const std::vector<QRgb> nothing(picture.width());
    m_filtered.resize((bottom - top) * (1 + m_rows.rowBytes));
    uchar *out = m_filtered.data();
    for (int y = top; y < bottom; ++y) {
        const uchar *row = lines.constScanLine(y - first);
        const uchar *above = y == 0 ? reinterpret_cast<const uchar *>(nothing.data()) : row - lines.bytesPerLine();
        *out++ = filterUp;
        if (m_rows.opaque)
            PngRows::filterRgb(out, reinterpret_cast<const QRgb *>(row), reinterpret_cast<const QRgb *>(above),
                               picture.width());
        else
            PngRows::filterBytes(out, row, above, m_rows.rowBytes);
        out += m_rows.rowBytes;
    }
}

QByteArrayView SectionMaker::compress()
{
    // What cannot be made smaller is stored in blocks of 64 KiB with a few bytes around each.
    const std::size_t most = m_filtered.size() + m_filtered.size() / 1024 + 256;
    m_compressed.resize(static_cast<qsizetype>(most));
    const Bytes all(m_filtered);
    const Bytes first = all.first(std::min(all.size(), storedBytes));
    const std::span<uchar> out(reinterpret_cast<uchar *>(m_compressed.data()), m_compressed.size());
    const std::size_t begin = store(first, out);
    if (first.size() == all.size())
        return QByteArrayView(m_compressed).first(static_cast<qsizetype>(begin));

    const auto rest = deflate(first, all.subspan(first.size()), out.subspan(begin));
    const std::size_t length = begin + rest.value_or(0);
    return rest ? QByteArrayView(m_compressed).first(static_cast<qsizetype>(length)) : QByteArrayView();
}

std::optional<std::size_t> SectionMaker::deflate(Bytes before, Bytes bytes, std::span<uchar> out)
{
    isal_zstream stream;
    isal_deflate_init(&stream);
    stream.level = 1;
    stream.level_buf = m_levelBuffer.data();
    stream.level_buf_size = static_cast<quint32>(m_levelBuffer.size());
    stream.flush = FULL_FLUSH; // ends on a whole byte
    stream.next_in = const_cast<uchar *>(bytes.data());
    stream.avail_in = static_cast<quint32>(bytes.size());
    stream.next_out = out.data();
    stream.avail_out = static_cast<quint32>(out.size());
    const bool isDone = isal_deflate_set_dict(&stream, const_cast<uchar *>(before.data()),
                                              static_cast<quint32>(before.size())) == COMP_OK &&
                        isal_deflate(&stream) == COMP_OK && stream.avail_in == 0 && stream.avail_out > 0;
    return isDone ? std::optional<std::size_t>(stream.total_out) : std::nullopt;
}

std::vector<std::optional<Section>> allSections(const Rows &rows)
{
    std::vector<std::optional<Section>> sections(rows.sections());
    std::atomic<int> next = 0;
    Bands::shareOut(rows.sections() - 1, [&] {
        SectionMaker maker(rows);
        for (int index = next++; index < rows.sections(); index = next++)
            sections[index] = maker.section(index);
    });
    return sections;
}

QByteArray headerOf(const Rows &rows)
{
    QByteArray header = bigEndian(static_cast<quint32>(rows.picture.width()));
    header += bigEndian(static_cast<quint32>(rows.picture.height()));
    header += bitsPerChannel;
    header += rows.opaque ? truecolour : truecolourWithAlpha;
    header += QByteArray(3, 0); // deflate, the standard filters, not interlaced
    return header;
}

Result<QByteArray> fileOf(const Rows &rows)
{
    QByteArray file = signature + chunkOf("IHDR", headerOf(rows)) + chunkOf("IDAT", streamHeader);
    quint32 checksum = checksumOfNothing;
    for (std::optional<Section> &section : allSections(rows)) {
        if (!section)
            return fail("The picture could not be compressed; nothing is written.");
        file += std::exchange(section->chunk, {}); // the memory of one goes as that of the other comes
        checksum = joinedChecksum(checksum, section->checksum, section->bytes);
    }
    return file + chunkOf("IDAT", lastBlock.toByteArray() + bigEndian(checksum)) + chunkOf("IEND", {});
}

Result<void> checkSize(const QImage &picture)
{
    if (picture.isNull())
        return fail("The picture is empty; there is nothing to write.");
    if (!Raster::canHold(picture.width(), picture.height())) {
        return fail(QString("The picture has %1 x %2 pixels, more than a picture may have; make it smaller.")
                        .arg(picture.width())
                        .arg(picture.height()));
    }
    return {};
}
} // namespace

Result<QByteArray> PngFile::encode(const QImage &picture)
{
    if (const Result<void> fits = checkSize(picture); !fits)
        return tl::unexpected(fits.error());
    return Memory::orError([&] { return fileOf(Rows(picture)); });
}

Result<void> PngFile::write(const QString &path, const QImage &picture)
{
    const Result<QByteArray> file = encode(picture);
    if (!file)
        return failWithin(path, file.error());
    return FileBytes::write(path, *file);
}
