#include "output/AreaReduction.h"

#include "base/Bands.h"
#include "output/AreaRows.h"

#include <algorithm>
#include <limits>
#include <vector>

using AreaRows::Weights;
using AreaRows::wholeWeight;

namespace {
/// So many pixels that are read are worth a second processor.
constexpr qint64 bandPixels = 1 << 18;

/// What the pixels along one side of a picture count in each pixel of the smaller one.
class Side
{
public:
    /// Of `count` pixels from `first` on, where `whole` pixels become `reduced`.
    Side(qint64 whole, qint64 reduced, int first, int count)
    {
        m_weights.reserve(static_cast<std::size_t>(count) * static_cast<std::size_t>(whole / reduced + 2));
        m_pixels.reserve(static_cast<std::size_t>(count));
        for (qint64 pixel = first; pixel < qint64{first} + count; ++pixel)
            addPixel(whole, reduced, pixel);
    }

    const std::vector<Weights> &pixels() const { return m_pixels; }
    int begin() const { return m_pixels.front().first; }
    int end() const { return m_pixels.back().first + static_cast<int>(m_pixels.back().of.size()); }

private:
    void addPixel(qint64 whole, qint64 reduced, qint64 pixel)
    {
        // In units of which `reduced` make a pixel of the picture and `whole` one of the smaller picture.
        const qint64 left = pixel * whole;
        const qint64 first = left / reduced;
        const qint64 end = (left + whole + reduced - 1) / reduced;
        const auto covered = [&](qint64 edge) {
            return (std::clamp<qint64>(edge * reduced - left, 0, whole) * wholeWeight + whole / 2) / whole;
        };
        const std::size_t begin = m_weights.size();
        for (qint64 source = first; source < end; ++source)
            m_weights.push_back(static_cast<quint16>(covered(source + 1) - covered(source)));
        m_pixels.push_back({static_cast<int>(first), std::span(m_weights).subspan(begin)});
    }

    std::vector<quint16> m_weights; ///< as many as were reserved at most: the spans stay where they are
    std::vector<Weights> m_pixels;
};

/// A side as AreaRows::finish() reads it, from its own first pixel on.
class ReadSide
{
public:
    explicit ReadSide(const Side &side)
    {
        constexpr std::size_t four = AreaRows::channelCount;
        constexpr std::size_t atOnce = four * AreaRows::readAtOnce;
        std::size_t room = 0;
        for (const Weights &pixel : side.pixels())
            room += four * pixel.of.size() + atOnce;
        m_weights.reserve(room);
        for (const Weights &pixel : side.pixels()) {
            const std::size_t begin = m_weights.size();
            for (const int weight : pixel.of)
                m_weights.insert(m_weights.end(), four, static_cast<quint16>(std::min(weight * wholeWeight, most)));
            m_weights.resize(begin + (m_weights.size() - begin + atOnce - 1) / atOnce * atOnce);
            m_pixels.push_back({pixel.first - side.begin(), std::span(m_weights).subspan(begin)});
        }
        m_sumCount = four * static_cast<std::size_t>(m_pixels.back().first) + m_pixels.back().of.size();
    }

    const std::vector<Weights> &pixels() const { return m_pixels; }
    std::size_t sumCount() const { return m_sumCount; }

private:
    static constexpr int most = std::numeric_limits<quint16>::max();

    std::vector<quint16> m_weights; ///< as many as were reserved at most: the spans stay where they are
    std::vector<Weights> m_pixels;
    std::size_t m_sumCount = 0;
};
} // namespace

namespace AreaReduction {

void reduce(QImage &reduced, const QPoint &topLeft, const QImage &picture, const QSize &size, const QRect &part)
{
    if (part.isEmpty())
        return;
    const Side columns(picture.width(), size.width(), part.left(), part.width());
    const Side rows(picture.height(), size.height(), part.top(), part.height());
    const ReadSide readColumns(columns);

    const qint64 read = columns.end() - columns.begin();
    uchar *const out = reduced.bits();
    const qint64 readPerRow = read * (rows.end() - rows.begin()) / part.height() + 1;
    Bands::forEach(part.height(), static_cast<int>(bandPixels / readPerRow) + 1, [&](int first, int count) {
        std::vector<quint16> sums(readColumns.sumCount());
        for (int y = first; y < first + count; ++y) {
            const auto &[top, weights] = rows.pixels()[static_cast<std::size_t>(y)];
            const uchar *const source = picture.constScanLine(top) + 4 * qsizetype{columns.begin()};
            AreaRows::sumRows(sums.data(), source, picture.bytesPerLine(), weights, 4 * read);
            uchar *const row = out + (topLeft.y() + y) * reduced.bytesPerLine() + 4 * qsizetype{topLeft.x()};
            AreaRows::finish(reinterpret_cast<QRgb *>(row), readColumns.pixels(), sums.data());
        }
    });
}

QRect shownIn(const QRect &part, const QSize &picture, const QSize &size)
{
    const auto first = [](qint64 pixel, qint64 whole, qint64 reduced) {
        return static_cast<int>(pixel * reduced / whole);
    };
    const auto last = [](qint64 end, qint64 whole, qint64 reduced) {
        return static_cast<int>((end * reduced + whole - 1) / whole - 1);
    };
    return {
        QPoint(first(part.left(), picture.width(), size.width()), first(part.top(), picture.height(), size.height())),
        QPoint(last(part.right() + 1, picture.width(), size.width()),
               last(part.bottom() + 1, picture.height(), size.height()))};
}

} // namespace AreaReduction
