#pragma once

#include "layer/PixelBox.h"

#include <vector>

/// What attracts a thing that is moved along one axis of the output: the lines through both edges and the centre of
/// each thing that stays.
class Attraction
{
public:
    Attraction() = default;
    /// Empty spans have no lines.
    explicit Attraction(const std::vector<PixelSpan> &staying);

    /// How much further than `way` the thing has to go so that one of its edges or its centre meets the nearest line;
    /// 0 where none is within `reach` pixels. A line at half a pixel is met by what lies half a pixel beside it.
    qint64 pull(const PixelSpan &thing, qint64 way, double reach) const;
    /// The lines that a thing meets with an edge or the centre: edges of pixels, so 0 is the output's own edge; in
    /// rising order.
    std::vector<double> met(const PixelSpan &thing) const;

private:
    std::vector<qint64> m_lines; ///< in half pixels, rising
};
