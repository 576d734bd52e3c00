#include "drawing/DrawingSurface.h"

#include "drawing/PixelRows.h"

#include <QTransform>

#include <algorithm>
#include <cmath>

namespace {
/// Beyond this distance from the raster, coordinates are no drawing any more and only endanger the rasteriser.
constexpr double farthestCoordinate = 1 << 22;

/// From this many pixels on what is painted is out of the caches afterwards.
constexpr qint64 largerThanCaches = 2 << 20;
/// Length of a mitre, in line widths, up to which corners are pointed.
constexpr double sharpestMiter = 10;

QPainter::CompositionMode painterMode(Compositing mode)
{
    switch (mode) {
    case Compositing::Replace:
        return QPainter::CompositionMode_Source;
    case Compositing::SourceOver:
        return QPainter::CompositionMode_SourceOver;
    case Compositing::SourceAtop:
        return QPainter::CompositionMode_SourceAtop;
    }
    Q_UNREACHABLE();
}

bool isWithinReach(const QRectF &bounds)
{
    return std::abs(bounds.left()) < farthestCoordinate && std::abs(bounds.right()) < farthestCoordinate &&
           std::abs(bounds.top()) < farthestCoordinate && std::abs(bounds.bottom()) < farthestCoordinate;
}

/// The part of a mask that lies on the raster: where, and the coverage of its first row.
struct VisibleMask
{
    QRect place;
    const uchar *coverage;
    qsizetype stride;
};

QPen penOf(const Colour &colour, double width, const std::vector<double> &dash)
{
    // Corners sharper than the limit are cut flat, so that a line that turns back does not grow a spike.
    QPen pen(colour.toQColor(), width, Qt::SolidLine, Qt::FlatCap, Qt::SvgMiterJoin);
    pen.setMiterLimit(sharpestMiter);
    if (!dash.empty() && width > 0) {
        QList<qreal> inPenWidths;
        for (const double length : dash)
            inPenWidths.append(length / width);
        pen.setDashPattern(inPenWidths);
    }
    return pen;
}
} // namespace

DrawingSurface::DrawingSurface(QImage &raster, const QRect &part)
    : m_raster(raster), m_part(part & raster.rect()), m_bits(raster.bits()), m_painter(&raster)
{
    if (m_part != raster.rect())
        clipToPart();
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
}

DrawingSurface::~DrawingSurface()
{
    for (const auto &[place, pixel] : m_corners)
        pixels(place.y())[place.x()] = pixel;
}

/// Qt cuts straight strokes off where the clip's bounds end, which moves their edges by a hair. With the raster's
/// corners in the clip its bounds are the raster's; what is drawn over there is put back in the end.
void DrawingSurface::clipToPart()
{
    QRegion clip(m_part);
    for (const QPoint &corner : {m_raster.rect().topLeft(), m_raster.rect().bottomRight()}) {
        if (m_part.contains(corner))
            continue;
        clip += QRect(corner, QSize(1, 1));
        m_corners.emplace_back(corner, pixels(corner.y())[corner.x()]);
    }
    m_painter.setClipRegion(clip);
}

void DrawingSurface::setColour(const OptionalColour &colour)
{
    if (colour)
        m_colours = {*colour, *colour};
}

void DrawingSurface::setFillColour(const OptionalColour &colour)
{
    m_colours.fill = colour.value_or(m_colours.fill);
}

void DrawingSurface::fillRect(const QRect &rect, Compositing mode)
{
    const QRect target = toDevice(rect) & m_part;
    if (target.isEmpty())
        return;
    if (mode == Compositing::Replace)
        return replacePixels(target, m_colours.fill.toPremultipliedPixel());
    paintRect(target, m_colours.fill, mode);
}

void DrawingSurface::frameRect(const QRect &rect, int width)
{
    if (width <= 0 || rect.isEmpty())
        return;
    const int across = std::min(width, rect.width());
    const int up = std::min(width, rect.height());
    fillRect(QRect(rect.left(), rect.top(), rect.width(), up));
    fillRect(QRect(rect.left(), rect.top() + rect.height() - up, rect.width(), up));
    fillRect(QRect(rect.left(), rect.top(), across, rect.height()));
    fillRect(QRect(rect.left() + rect.width() - across, rect.top(), across, rect.height()));
}

void DrawingSurface::fillPath(const QPainterPath &path)
{
    const QPainterPath devicePath = toDevice(path);
    const QRectF bounds = devicePath.controlPointRect();
    if (!isWithinReach(bounds) || isOutside(bounds))
        return;
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    m_painter.fillPath(devicePath, m_colours.fill.toQColor());
}

void DrawingSurface::strokePath(const QPainterPath &path, double width, const std::vector<double> &dash)
{
    if (!(width >= 0) || path.isEmpty())
        return;
    const QPainterPath devicePath = toDevice(path);
    const QRectF bounds = devicePath.controlPointRect();
    const double reach = sharpestMiter * width + 2; // mitres and antialiasing
    if (!isWithinReach(bounds.adjusted(-reach, -reach, reach, reach)) ||
        isOutside(bounds.adjusted(-reach, -reach, reach, reach)))
        return;
    prefetchAlong(devicePath);
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    m_painter.strokePath(devicePath, penOf(m_colours.stroke, width, dash));
}

void DrawingSurface::drawText(const QPoint &bottomLeft, const TextLine &text, const TextColours &colours)
{
    const QRect box = toDevice(QRect(bottomLeft, text.size()));
    if (colours.background && box.intersects(m_part))
        paintRect(box & m_part, *colours.background, Compositing::SourceOver);
    if (text.hasMasks())
        return drawMasks(bottomLeft, text.size().height(), text.masks(), colours.foreground);
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    for (const QPainterPath &outline : text.outlines()) {
        const QPainterPath glyph = outline.translated(box.topLeft());
        if (isWithinReach(glyph.controlPointRect()) && !isOutside(glyph.controlPointRect()))
            m_painter.fillPath(glyph, colours.foreground.toQColor());
    }
}

void DrawingSurface::drawMasks(const QPoint &bottomLeft, int boxHeight, std::span<const CoverageMask> masks,
                               const Colour &colour)
{
    const QPoint boxTopLeft = toDevice(QRect(bottomLeft, QSize(0, boxHeight))).topLeft();
    std::vector<VisibleMask> visible;
    visible.reserve(masks.size());
    QRect bounds;
    for (const auto &[mask, offset] : masks) {
        const QRect place(boxTopLeft + offset, mask->size());
        const QRect shown = place & m_part;
        if (shown.isEmpty())
            continue;
        const QPoint inMask = shown.topLeft() - place.topLeft();
        visible.push_back({shown, mask->constScanLine(inMask.y()) + inMask.x(), mask->bytesPerLine()});
        bounds |= shown;
    }

    const QRgb pixel = colour.toPremultipliedPixel();
    for (int y = bounds.top(); y <= bounds.bottom(); ++y) {
        QRgb *row = pixels(y);
        for (const auto &[place, coverage, stride] : visible) {
            if (y >= place.top() && y <= place.bottom())
                PixelRows::blend(row + place.left(), coverage + stride * (y - place.top()), place.width(), pixel);
        }
    }
}

void DrawingSurface::drawImage(const QImage &image, const QRectF &rect, Compositing mode, double opacity)
{
    const QRectF target(rect.x(), m_raster.height() - rect.y() - rect.height(), rect.width(), rect.height());
    m_painter.setCompositionMode(painterMode(mode));
    m_painter.setOpacity(opacity);
    m_painter.drawImage(target, image);
    m_painter.setOpacity(1);
}

void DrawingSurface::saveState()
{
    m_saved.push_back(m_colours);
}

void DrawingSurface::restoreState()
{
    if (m_saved.empty())
        return;
    m_colours = m_saved.back();
    m_saved.pop_back();
}

QRect DrawingSurface::toDevice(const QRect &rect) const
{
    return {rect.left(), m_raster.height() - rect.top() - rect.height(), rect.width(), rect.height()};
}

QPainterPath DrawingSurface::toDevice(const QPainterPath &path) const
{
    return QTransform(1, 0, 0, -1, 0, m_raster.height()).map(path);
}

bool DrawingSurface::isOutside(const QRectF &deviceBounds) const
{
    const QRectF part(m_part);
    return deviceBounds.bottom() <= part.top() || deviceBounds.top() >= part.bottom() ||
           deviceBounds.right() <= part.left() || deviceBounds.left() >= part.right();
}

void DrawingSurface::prefetchAlong(const QPainterPath &devicePath)
{
    if (qint64{m_part.width()} * m_part.height() < largerThanCaches)
        return;
    for (const QPolygonF &polygon : devicePath.toSubpathPolygons()) {
        for (qsizetype i = 1; i < polygon.size(); ++i) {
            const QLineF edge(polygon[i - 1], polygon[i]);
            const int steps = static_cast<int>(std::abs(edge.dy()));
            for (int step = 0; step < steps; ++step) {
                const QPoint pixel = edge.pointAt(double(step) / steps).toPoint();
                if (m_part.contains(pixel))
                    PixelRows::prefetch(pixels(pixel.y()) + pixel.x());
            }
        }
    }
}

void DrawingSurface::paintRect(const QRect &deviceRect, const Colour &colour, Compositing mode)
{
    // With antialiasing Qt treats the raster's outermost pixels as if they were partly covered.
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    m_painter.setCompositionMode(painterMode(mode));
    m_painter.fillRect(deviceRect, colour.toQColor());
    m_painter.setRenderHint(QPainter::Antialiasing, true);
}

void DrawingSurface::replacePixels(const QRect &deviceRect, QRgb pixel)
{
    for (int y = deviceRect.top(); y <= deviceRect.bottom(); ++y)
        std::fill_n(pixels(y) + deviceRect.left(), deviceRect.width(), pixel);
}

QRgb *DrawingSurface::pixels(int y)
{
    return reinterpret_cast<QRgb *>(m_bits + m_raster.bytesPerLine() * y);
}
