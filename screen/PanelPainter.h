#pragma once

#include "base/Colour.h"
#include "grid/CellSet.h"
#include "grid/PanelAxis.h"

#include <QImage>

#include <array>
#include <vector>

class ScreenChart;

/// The colours that panels and frames get, nil colours resolved: a nil colour leaves the colour in force, which is what
/// the panels before it, in a walk over twice the wall in each direction, have left.
struct PanelColours
{
    std::array<Colour, 2> panel; ///< where row + column is even, and where it is odd
    std::array<Colour, 2> frame; ///< likewise
    Colour firstPanel;           ///< of the bottom-left panel, which has no panel before it
    Colour firstFrame;
    Colour strokeAfterwards; ///< in force for strokes when all panels are drawn

    static PanelColours of(const ScreenChart &chart);
};

/// Writes the panels of a wall, row of pixels by row of pixels: within a row of panels all rows of pixels are alike but
/// for the frames at its top and bottom, and every second row of panels repeats.
class PanelPainter
{
public:
    /// For a wall whose raster can be had.
    explicit PanelPainter(const ScreenChart &chart);

    /// Replaces every pixel of a part of the raster; the part is not empty and lies within it. Rows of panels are
    /// shared out over the processors.
    void paint(QImage &raster, const QRect &part) const;

private:
    using PixelRow = std::vector<QRgb>;

    /// The frame's share of a panel side.
    int frameInset(int side) const;
    void fillPanels(PixelRow &pixels, const std::array<Colour, 2> &colours, int phase) const;
    void addUprightFrames(PixelRow &pixels, int phase) const;
    struct Target;
    void paintPanelRow(const Target &target, int panelRow) const;
    void clearPanels(PixelRow &pixels, std::span<const Cell> panels) const;
    void paintFirstPanel(PixelRow &inner, PixelRow &edge) const;

    PanelAxis m_columns;
    PanelAxis m_rows; ///< from the bottom
    int m_frameWidth;
    PanelColours m_colours;
    bool m_firstIsSpecial;
    CellSet m_hidden;
    std::array<PixelRow, 2> m_inner; ///< by parity of the panel row: between the frames
    std::array<PixelRow, 2> m_edge;  ///< the frames along top and bottom
};
