#pragma once

#include "charts/ChartLevels.h"

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QString>

#include <algorithm>
#include <cstring>
#include <vector>

/// Writes whole pixels into the parts of a raster that are asked for. Boxes may reach beyond it.
class ChartPainter
{
public:
    /// The raster outlives the painter and is not shared meanwhile.
    ChartPainter(QImage &raster, const QRegion &parts, LevelRange range);

    const ChartLevels &levels() const { return m_levels; }
    QRect whole() const { return m_whole; }
    bool isAsked(const QRect &box);

    void fill(const QRect &box, QRgb colour);
    /// `inside` within a region, `outside` beside it: each pixel is written once.
    void fillApart(const QRegion &region, QRgb inside, QRgb outside);
    /// Fills the outermost `width` pixels within a box.
    void outline(const QRect &box, QRgb colour, int width = 1);

    /// `colourAt(x)`: rows are alike.
    template <typename ColourAt>
    void columns(const QRect &box, ColourAt colourAt);
    /// `colourAt(y)`
    template <typename ColourAt>
    void rows(const QRect &box, ColourAt colourAt);
    /// `colourAt(x, y)`
    template <typename ColourAt>
    void pixels(const QRect &box, ColourAt colourAt);

    /// As large as it fits into the box, in the middle; nothing where it could not be read. No pixel beside the box is
    /// touched.
    void text(const QRect &box, const QString &text, QRgb colour);

private:
    template <typename Work>
    void forEachPart(const QRect &box, Work work);
    void blend(const QRect &box, const QImage &mask, const QPoint &place, int scale, QRgb colour);
    // As QRect does it, but a call into Qt for each panel costs more than drawing its pixel.
    static bool holds(const QRect &part, const QRect &box)
    {
        return box.left() >= part.left() && box.right() <= part.right() && box.top() >= part.top() &&
               box.bottom() <= part.bottom();
    }
    static QRect common(const QRect &one, const QRect &other)
    {
        return QRect(QPoint(std::max(one.left(), other.left()), std::max(one.top(), other.top())),
                     QPoint(std::min(one.right(), other.right()), std::min(one.bottom(), other.bottom())));
    }
    void fillRows(const QRect &part, QRgb colour);
    QRgb *row(int x, int y) const { return reinterpret_cast<QRgb *>(m_bits + y * m_stride) + x; }

    QRegion m_parts;
    const QRect *m_near; ///< the last part that was drawn in
    QRect m_whole;
    uchar *m_bits;
    qsizetype m_stride;
    ChartLevels m_levels;
    std::vector<QRgb> m_line; ///< pixels of one colour to copy from
};

/// The region of some boxes; fast where they come row by row, as panels do.
QRegion regionOf(std::vector<QRect> boxes);

template <typename Work>
void ChartPainter::forEachPart(const QRect &box, Work work)
{
    if (box.isEmpty())
        return;
    const QRect *const end = m_parts.end();
    // What is drawn panel by panel mostly lies within one part, and the next one in the part behind.
    for (const QRect *near = m_near; near != end && near < m_near + 2; ++near) {
        if (holds(*near, box)) {
            m_near = near;
            work(box);
            return;
        }
    }
    // A region's rectangles stand in bands of one height.
    const QRect *band = std::lower_bound(m_parts.begin(), end, box.top(),
                                         [](const QRect &part, int top) { return part.bottom() < top; });
    while (band != end && band->top() <= box.bottom()) {
        const QRect *const next =
            std::upper_bound(band, end, band->top(), [](int top, const QRect &part) { return top < part.top(); });
        const QRect *part =
            std::lower_bound(band, next, box.left(), [](const QRect &known, int left) { return known.right() < left; });
        for (; part != next && part->left() <= box.right(); ++part) {
            m_near = part;
            work(common(*part, box));
        }
        band = next;
    }
}

template <typename ColourAt>
void ChartPainter::columns(const QRect &box, ColourAt colourAt)
{
    forEachPart(box, [&](const QRect &part) {
        QRgb *const first = row(part.left(), part.top());
        for (int i = 0; i < part.width(); ++i)
            first[i] = colourAt(part.left() + i);
        for (int y = part.top() + 1; y <= part.bottom(); ++y)
            std::memcpy(row(part.left(), y), first, static_cast<std::size_t>(part.width()) * sizeof(QRgb));
    });
}

template <typename ColourAt>
void ChartPainter::rows(const QRect &box, ColourAt colourAt)
{
    forEachPart(box, [&](const QRect &part) {
        for (int y = part.top(); y <= part.bottom(); ++y)
            std::fill_n(row(part.left(), y), part.width(), colourAt(y));
    });
}

template <typename ColourAt>
void ChartPainter::pixels(const QRect &box, ColourAt colourAt)
{
    forEachPart(box, [&](const QRect &part) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            QRgb *const out = row(part.left(), y);
            for (int i = 0; i < part.width(); ++i)
                out[i] = colourAt(part.left() + i, y);
        }
    });
}
