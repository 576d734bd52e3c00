#pragma once

#include "output/OpaqueSpans.h"

#include <QImage>

#include <vector>

/// A picture at its place on the output, in raster format and in its own size.
struct PlannedPicture
{
    QImage picture; ///< not null
    const OpaqueSpans *opaque;
    qint64 left; ///< output pixels, y down; may lie outside
    qint64 top;
};

/// What writes each pixel of an output row once: the topmost picture that is opaque there, or else the base. Pictures
/// that let something through come on top of that, and only there.
class RowPlan
{
public:
    /// Columns `left` to `right` - 1 of the output and the pixel that lies under all pictures there.
    struct Base
    {
        int left;
        int right;
        QRgb pixel;
    };

    /// `topmostFirst` outlives the plan.
    explicit RowPlan(const std::vector<PlannedPicture> &topmostFirst) : m_pictures(topmostFirst) {}

    /// Plans output row `y`; the plan holds for the following rows too, as long as all pictures stay in their bands.
    void plan(int y, const std::vector<Base> &bases);
    /// Whether pixels that were written are read again.
    bool blends() const { return !m_blends.empty(); }
    /// Draws row `y` of the output.
    void draw(QRgb *row, int y, LayerRows::Stores stores) const;

private:
    struct Interval
    {
        int left;
        int right;
    };
    struct Step
    {
        int left;
        int right;
        int alpha; ///< of the base
        const PlannedPicture *picture;

        const QRgb *source(int y) const;
    };

    void planBase(int y, const Base &base);
    void planPicture(int y, const PlannedPicture &picture, int alpha);

    const std::vector<PlannedPicture> &m_pictures;
    std::vector<Base> m_fills;
    std::vector<Step> m_copies;
    std::vector<Step> m_blends;   ///< topmost first, within a base
    std::vector<Interval> m_open; ///< what no opaque picture covers yet, from left to right
    std::vector<Interval> m_stillOpen;
};
