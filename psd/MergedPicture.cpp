#include "psd/MergedPicture.h"

#include "base/Bands.h"
#include "drawing/PixelRows.h"
#include "drawing/Raster.h"

#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {
/// Rows that a thread draws at a time: few enough for a processor's cache.
constexpr int leastRows = 16;

bool isWhole(const QPointF &point)
{
    return point.x() == std::trunc(point.x()) && point.y() == std::trunc(point.y());
}
} // namespace

/// Some rows of the picture on their way into a raster. What lies below opaque images is not even read.
class MergedPicture::Band
{
public:
    Band(const MergedPicture &picture, int first, QImage &rows)
        : m_picture(picture), m_first(first), m_rows(rows), m_bits(rows.bits()), m_open(rows.rect())
    {}

    void draw()
    {
        findParts();
        if (!m_open.isEmpty())
            fillGround();
        QPainter painter(&m_rows);
        for (auto part = m_parts.rbegin(); part != m_parts.rend(); ++part) {
            if (part->isOpaque)
                copy(*part);
            else
                paint(painter, part->drawn, m_first);
        }
    }

private:
    struct Part
    {
        const Drawn &drawn;
        QRect place;   ///< of the whole image
        QRegion shown; ///< what nothing opaque hides
        bool isOpaque = false;

        const QRgb *pixels(int x, int y) const
        {
            return reinterpret_cast<const QRgb *>(drawn.image.constScanLine(y - place.top())) + (x - place.left());
        }
    };

    /// From top to bottom, as far down as something shows.
    void findParts()
    {
        const std::vector<Drawn> &all = m_picture.m_drawn;
        for (auto drawn = all.rbegin(); drawn != all.rend() && !m_open.isEmpty(); ++drawn) {
            const QRect place = drawn->target.toRect().translated(0, -m_first);
            Part part{*drawn, place, m_open & place};
            if (part.shown.isEmpty())
                continue;
            part.isOpaque =
                drawn->opacity == 1 && std::all_of(part.shown.begin(), part.shown.end(),
                                                   [&](const QRect &rect) { return isOpaqueIn(part, rect); });
            if (part.isOpaque)
                m_open -= part.shown;
            m_parts.push_back(part);
        }
    }

    static bool isOpaqueIn(const Part &part, const QRect &rect)
    {
        int y = rect.top();
        while (y <= rect.bottom() && PixelRows::areOpaque(part.pixels(rect.left(), y), rect.width()))
            ++y;
        return y > rect.bottom();
    }

    void fillGround()
    {
        const QImage &ground = m_picture.m_pixels;
        const auto rowBytes = static_cast<std::size_t>(m_rows.width()) * sizeof(QRgb);
        for (int y = 0; y < m_rows.height(); ++y) {
            if (ground.isNull())
                std::memset(row(y), static_cast<uchar>(m_picture.m_background), rowBytes);
            else
                std::memcpy(row(y), ground.constScanLine(m_first + y), rowBytes);
        }
    }

    void copy(const Part &part)
    {
        for (const QRect &rect : part.shown) {
            const auto bytes = static_cast<std::size_t>(rect.width()) * sizeof(QRgb);
            for (int y = rect.top(); y <= rect.bottom(); ++y)
                std::memcpy(row(y) + rect.left(), part.pixels(rect.left(), y), bytes);
        }
    }

    QRgb *row(int y) { return reinterpret_cast<QRgb *>(m_bits + y * m_rows.bytesPerLine()); }

    const MergedPicture &m_picture;
    const int m_first; ///< row of the picture that is row 0 here
    QImage &m_rows;
    uchar *const m_bits;
    QRegion m_open; ///< what nothing opaque covers
    std::vector<Part> m_parts;
};

MergedPicture::MergedPicture(qint64 width, qint64 height, Background background) : m_background(background)
{
    if (Raster::canHold(width, height))
        m_size = QSize(static_cast<int>(width), static_cast<int>(height));
}

bool MergedPicture::draw(const QImage &image, const QRectF &target, double opacity)
{
    if (isNull())
        return false;
    const Drawn drawn{image, target, opacity};
    if (isWhole(target.topLeft())) {
        m_drawn.push_back(drawn);
        return true;
    }
    // What the painter makes of it depends on where its surface begins.
    m_pixels = pixels();
    m_pixels.detach(); // from what others took
    if (m_pixels.isNull()) {
        *this = {};
        return false;
    }
    QPainter painter(&m_pixels);
    paint(painter, drawn, 0);
    return true;
}

void MergedPicture::drawRows(int first, QImage &rows) const
{
    Band(*this, first, rows).draw();
}

void MergedPicture::paint(QPainter &painter, const Drawn &drawn, int first)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(drawn.opacity);
    painter.drawImage(drawn.target.translated(0, -first), drawn.image);
}

QImage MergedPicture::pixels() const
{
    if (isNull() || (!m_pixels.isNull() && m_drawn.empty()))
        return m_pixels;
    QImage whole = Raster::reuse({}, m_size.width(), m_size.height());
    if (whole.isNull())
        return {};
    uchar *const bytes = whole.bits();
    Bands::forEach(m_size.height(), leastRows, [&](int first, int count) {
        const qsizetype rowBytes = whole.bytesPerLine();
        QImage rows(bytes + first * rowBytes, m_size.width(), count, rowBytes, Raster::format);
        drawRows(first, rows);
    });
    m_pixels = whole;
    m_drawn.clear();
    return m_pixels;
}
