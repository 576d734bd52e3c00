#pragma once

#include "base/Colour.h"

#include <QString>

#include <array>

/// Values that all screens draw their overlay with, kept for the life of the process.
struct ChartConstants
{
    double arrowSize;     ///< half the width and height of an arrowhead, in pixels
    Colour startColor;    ///< arrowhead where a run begins
    Colour endColor;      ///< arrowhead where it ends
    Colour pathColor;     ///< the line, the other arrowheads, all outlines
    double pathLineWidth; ///< of the serpentine line, in pixels
    /// Left, right, down, up and stop. All arrows are drawn as triangles; the glyphs are for texts about them.
    std::array<QString, 5> arrowGlyphs;
    double labelMargin; ///< inset of the panel labels, in pixels

    /// Fills the values the first time, from whichever thread, and gives them ever after.
    static const ChartConstants &init2();
};
