#pragma once

#include "layer/Layer.h"

#include <QPoint>

#include <algorithm>

/// Columns or rows of the output from `from` to `to`, which is the first one behind. In 64 bits: a file may place a
/// layer at any 32-bit number and make it as large.
struct PixelSpan
{
    qint64 from = 0;
    qint64 to = 0;

    bool isEmpty() const { return to <= from; }
    bool contains(qint64 pixel) const { return pixel >= from && pixel < to; }
    bool meets(const PixelSpan &other) const { return from < other.to && other.from < to; }
    PixelSpan united(const PixelSpan &other) const { return {std::min(from, other.from), std::max(to, other.to)}; }

    bool operator==(const PixelSpan &) const = default;
};

/// A rectangle of output pixels, origin at the output's top left, y down.
struct PixelBox
{
    PixelSpan columns;
    PixelSpan rows;

    /// Where a layer stands.
    static PixelBox of(const Layer &layer)
    {
        return {{layer.xpoint(), qint64{layer.xpoint()} + layer.screenSizeWidth()},
                {layer.ypoint(), qint64{layer.ypoint()} + layer.screenSizeHeight()}};
    }

    bool isEmpty() const { return columns.isEmpty() || rows.isEmpty(); }
    PixelBox united(const PixelBox &other) const { return {columns.united(other.columns), rows.united(other.rows)}; }
    bool meets(const PixelBox &other) const { return columns.meets(other.columns) && rows.meets(other.rows); }
    bool contains(const QPoint &pixel) const { return columns.contains(pixel.x()) && rows.contains(pixel.y()); }

    bool operator==(const PixelBox &) const = default;
};
