#pragma once

#include "output/LayerRows.h"

#include <QImage>
#include <QRegion>

#include <span>
#include <vector>

/// Where a picture is opaque, to blocks of a few pixels: what lies below need not be drawn there.
class OpaqueSpans
{
public:
    /// Pixels `left` to `right` - 1 of a row; Opaque holds for each of them, Mixed promises nothing.
    struct Span
    {
        int left;
        int right;
        LayerRows::Coverage coverage;

        bool operator==(const Span &) const = default;
    };

    /// Rows from `top` to the next band's top, all alike; spans from left to right, transparent ones left out.
    struct Band
    {
        int top;
        std::vector<Span> spans;
    };

    OpaqueSpans() = default;
    /// Looks through a picture in `Format_ARGB32_Premultiplied`; reads each pixel once.
    explicit OpaqueSpans(const QImage &picture);

    /// The spans of a picture of the same size that differs only in `where`, which alone is looked through.
    [[nodiscard]] OpaqueSpans mended(const QImage &picture, const QRegion &where) const;

    /// From the top; the first starts at row 0. None for a null picture.
    const std::vector<Band> &bands() const { return m_bands; }
    /// The spans of row `y`, which the picture has.
    std::span<const Span> at(int y) const;

private:
    void append(int top, std::vector<Span> spans);

    std::vector<Band> m_bands;
};
