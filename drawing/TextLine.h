#pragma once

#include "drawing/CoverageMask.h"

#include <QPainterPath>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <vector>

/// One line of text in the house's font (Inter, embedded, so that a wall looks the same on every machine), shaped once
/// and drawn any number of times. One point is one pixel. Glyphs are not hinted and stand at whole pixels, so that a
/// glyph has one mask per size. What Inter lacks comes from the machine's fonts; line breaks and tabs become blanks.
/// Main thread only.
class TextLine
{
public:
    /// Sizes outside these give an empty line: nobody could read it.
    static constexpr double smallestPointSize = 1;
    static constexpr double largestPointSize = 16384;
    /// Longer texts are cut here, so that a damaged file cannot keep the program busy.
    static constexpr qsizetype longestText = 1024;
    /// What is shown of a text from a file, here and in the window: shaping takes longer the longer a text is, whatever
    /// room it has in the end.
    static QString shown(const QString &text) { return text.left(longestText); }

    TextLine() = default;
    TextLine(const QString &text, double pointSize);

    /// The text's box in pixels: the sum of the advances by the font's ascent and descent. (0, 0) for an empty line.
    QSize size() const { return m_size; }

    /// Where the text puts pixels, its box included, from the box's top left; glyphs may reach out of their box.
    QRect reach() const;

    /// Lines that are equal draw the same; the same text may give two that are not.
    bool operator==(const TextLine &) const = default;

    /// The outline of each glyph, y down, with the top left of the text's box at (0, 0). Glyphs are filled one after
    /// the other: where two share a pixel, the second lies over the first.
    std::vector<QPainterPath> outlines() const;

    /// The glyphs' coverage, placed in the text's box. Empty for a size whose masks would be too large to keep; then
    /// outlines() serves.
    const std::vector<CoverageMask> &masks() const { return m_masks; }
    bool hasMasks() const { return m_pointSize <= largestMaskSize; }

private:
    static constexpr double largestMaskSize = 256;

    struct PlacedOutline
    {
        QPainterPath path; ///< y down, origin at the glyph's own
        QPoint origin;     ///< in the text's box

        bool operator==(const PlacedOutline &) const = default;
    };

    QSize m_size{0, 0};
    double m_pointSize = 0;
    std::vector<PlacedOutline> m_outlines;
    std::vector<CoverageMask> m_masks;
};
