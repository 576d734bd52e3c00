#include "screen/PanelPainter.h"

#include "base/Bands.h"
#include "drawing/PixelRows.h"
#include "drawing/Raster.h"
#include "layer/WallGrid.h"
#include "screen/ScreenChart.h"

#include <algorithm>

namespace {
/// So many pixels are worth a second processor.
constexpr qint64 bandPixels = 1 << 18;
} // namespace

struct PanelPainter::Target
{
    uchar *bits; ///< taken once: asking the picture for its rows is for one thread alone
    qsizetype bytesPerLine;
    int height;
    QRect part;

    QRgb *row(int y) const { return reinterpret_cast<QRgb *>(bits + y * bytesPerLine) + part.left(); }
};

PanelColours PanelColours::of(const ScreenChart &chart)
{
    const OptionalColour frame = chart.BoarderEnable ? chart.boarderColor : OptionalColour();
    const Colour initial = NamedColour::black;
    PanelColours colours;
    if (chart.bgEnable) {
        // What a panel without a colour of its own finds: the last frame's, or else the other panels'.
        const Colour left = frame.value_or(chart.rectColor.value_or(chart.rectColor2.value_or(initial)));
        colours.panel = {chart.rectColor.value_or(left), chart.rectColor2.value_or(left)};
        colours.firstPanel = chart.rectColor.value_or(initial);
        colours.strokeAfterwards = frame.value_or(colours.panel[0]);
    } else {
        colours.panel = {NamedColour::clear, NamedColour::clear};
        colours.firstPanel = NamedColour::clear;
        colours.strokeAfterwards = frame.value_or(initial);
    }
    colours.frame = {frame.value_or(colours.panel[0]), frame.value_or(colours.panel[1])};
    colours.firstFrame = frame.value_or(colours.firstPanel);
    if (chart.row <= 0 || chart.col <= 0)
        colours.strokeAfterwards = initial;
    return colours;
}

PanelPainter::PanelPainter(const ScreenChart &chart)
    : m_columns(panelGridOf(chart).columns), m_rows(panelGridOf(chart).rowsFromBottom()),
      m_frameWidth(chart.BoarderEnable ? std::max(chart.boarderWidth, 0) : 0), m_colours(PanelColours::of(chart)),
      m_firstIsSpecial(m_colours.firstPanel != m_colours.panel[0]),
      m_hidden(chart.hiddenBoxes.value_or(PanelKeys()).cellsInside(chart.col, chart.row))
{
    const auto width = static_cast<std::size_t>(chart.wallWidth());
    for (int phase = 0; phase < 2; ++phase) {
        m_inner[phase].resize(width);
        fillPanels(m_inner[phase], m_colours.panel, phase);
        addUprightFrames(m_inner[phase], phase);
        m_edge[phase].resize(width);
        fillPanels(m_edge[phase], m_colours.frame, phase);
    }
}

void PanelPainter::paint(QImage &raster, const QRect &part) const
{
    if (m_columns.count() <= 0 || m_rows.count() <= 0) // a wall counted in negative panels has pixels, but no panel
        return Raster::clear(raster, part);
    const auto rowAt = [&](int y) { return static_cast<int>(m_rows.lineAt(raster.height() - 1 - y).value()); };
    const int lowest = rowAt(part.bottom());
    const qint64 rowPixels = qint64{part.width()} * std::max(m_rows.lineSize(), 1);
    const Target target{raster.bits(), raster.bytesPerLine(), raster.height(), part};
    Bands::forEach(rowAt(part.top()) - lowest + 1, static_cast<int>(bandPixels / rowPixels) + 1,
                   [&](int first, int count) {
                       for (int panelRow = lowest + first; panelRow < lowest + first + count; ++panelRow)
                           paintPanelRow(target, panelRow);
                       PixelRows::finishCopies();
                   });
}

void PanelPainter::paintPanelRow(const Target &target, int panelRow) const
{
    const QRect &part = target.part;
    const int height = m_rows.sizeOf(panelRow);
    const int bottom = target.height - 1 - static_cast<int>(m_rows.edge(panelRow));
    const int first = std::max(bottom - part.bottom(), 0);
    const int last = std::min(bottom - part.top(), height - 1);
    if (first > last)
        return;
    const PixelRow *inner = &m_inner[panelRow % 2];
    const PixelRow *edge = &m_edge[panelRow % 2];
    PixelRow ownInner;
    PixelRow ownEdge;
    const bool isFirst = panelRow == 0 && m_firstIsSpecial;
    const std::span<const Cell> hidden = m_hidden.inRow(m_rows.count() - 1 - panelRow);
    if (isFirst || !hidden.empty()) {
        ownInner = *inner;
        ownEdge = *edge;
        if (isFirst)
            paintFirstPanel(ownInner, ownEdge);
        clearPanels(ownInner, hidden);
        inner = &ownInner;
        edge = &ownEdge;
    }

    const int inset = frameInset(height);
    for (int inPanel = first; inPanel <= last; ++inPanel) {
        const bool isEdge = inPanel < inset || inPanel >= height - inset;
        PixelRows::copyPastCache(target.row(bottom - inPanel), (isEdge ? edge : inner)->data() + part.left(),
                                 part.width());
    }
}

int PanelPainter::frameInset(int side) const
{
    return std::min(m_frameWidth, side);
}

void PanelPainter::fillPanels(PixelRow &pixels, const std::array<Colour, 2> &colours, int phase) const
{
    for (int column = 0; column < m_columns.count(); ++column) {
        const Colour &colour = colours[static_cast<std::size_t>((phase + column) % 2)];
        std::fill_n(pixels.begin() + m_columns.edge(column), m_columns.sizeOf(column), colour.toPremultipliedPixel());
    }
}

void PanelPainter::addUprightFrames(PixelRow &pixels, int phase) const
{
    for (int column = 0; column < m_columns.count(); ++column) {
        const QRgb pixel = m_colours.frame[static_cast<std::size_t>((phase + column) % 2)].toPremultipliedPixel();
        const int inset = frameInset(m_columns.sizeOf(column));
        std::fill_n(pixels.begin() + m_columns.edge(column), inset, pixel);
        std::fill_n(pixels.begin() + m_columns.edge(column + 1) - inset, inset, pixel);
    }
}

void PanelPainter::clearPanels(PixelRow &pixels, std::span<const Cell> panels) const
{
    for (const Cell &panel : panels) {
        const int width = m_columns.sizeOf(panel.column);
        const int inset = frameInset(width);
        std::fill_n(pixels.begin() + m_columns.edge(panel.column) + inset, std::max(width - 2 * inset, 0), QRgb{0});
    }
}

void PanelPainter::paintFirstPanel(PixelRow &inner, PixelRow &edge) const
{
    const QRgb frame = m_colours.firstFrame.toPremultipliedPixel();
    const int width = m_columns.sizeOf(0);
    const int inset = frameInset(width);
    std::fill_n(edge.begin(), width, frame);
    std::fill_n(inner.begin(), width, m_colours.firstPanel.toPremultipliedPixel());
    std::fill_n(inner.begin(), inset, frame);
    std::fill_n(inner.begin() + width - inset, inset, frame);
}
