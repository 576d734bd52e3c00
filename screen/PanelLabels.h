#pragma once

#include "drawing/DrawingSurface.h"
#include "drawing/TextLine.h"
#include "grid/PanelAxis.h"

#include <QString>

#include <vector>

class ScreenChart;

/// The label in the top-left corner of every panel: letters for the column and a number for the row, or the other way
/// round, and a blank.
class PanelLabels
{
public:
    /// For a chart that has a raster and a label colour.
    explicit PanelLabels(const ScreenChart &chart);

    /// Draws the labels from the bottom row up, from left to right. Where they lie over each other many times, a
    /// row's labels are joined first and laid over the raster as one; that rounds once instead of many times, which can
    /// differ by 3 steps in 255 from drawing them singly, and by 8 where their colour is translucent. Labels that would
    /// keep the machine busy for seconds are left out, with a log line.
    void draw(DrawingSurface &surface) const;

    /// "A" to "Z", "AA" to "ZZ", "AAA": a letter repeated; column 0 is the leftmost.
    static QString columnLetters(int column);
    /// The one character of a row: 'A' for the top row, running on behind 'Z'.
    static QString rowLetter(int rowFromTop);

private:
    /// A text that stands `repeats` times in a row.
    struct Part
    {
        TextLine text;
        int repeats = 1;

        int width() const { return repeats * text.size().width(); }
    };

    void makeLetters();
    void makeNumbers();
    const Part &letters(int row, int column) const;
    const Part &number(int row, int column) const;
    /// The bottom left of a label's box.
    QPoint labelPoint(int row, int column) const;
    /// About how many pixels the labels cover together, each counted as often as it is covered; `letter` is the size
    /// of the widest one.
    double estimatedPixels(const QSize &letter) const;

    class JoinedRows;

    void drawOutlines(DrawingSurface &surface) const;
    void drawMasks(DrawingSurface &surface) const;
    void drawJoinedMasks(DrawingSurface &surface) const;
    /// The masks of a row's labels, from left to right.
    std::vector<CoverageMask> rowMasks(int row) const;
    /// The x where a panel's number begins.
    int numberLeft(int row, int column) const;
    int boxHeight() const { return m_letters.front().text.size().height(); }

    int m_rasterWidth;
    int m_rasterHeight;
    int m_columns;
    int m_rows;
    PanelAxis m_fromLeft;
    PanelAxis m_fromBottom;
    double m_fontSize;
    Colour m_colour;
    bool m_lettersByColumn;
    bool m_isAffordable = true;
    double m_labelPixels = 0;
    std::vector<Part> m_letters; ///< by column, or by row from the bottom
    std::vector<Part> m_numbers; ///< by row from the bottom, or by column
};
