#pragma once

#include "drawing/TextLine.h"

#include <QImage>

/// The joint coverage of texts that stand in one line and may overlap: where shapes lie over each other, what is left
/// uncovered is the product of what each leaves uncovered.
class CoverageStrip
{
public:
    /// Nothing covered yet. What is united beyond `width` and `height` is cut off. `opacity` (0 to 255) is that of the
    /// colour the strip is for: each text covers so much only, and the strip is then laid with the opaque colour.
    CoverageStrip(int width, int height, int opacity = 255);

    /// Adds a text with the left of its box at `left` and its top at the strip's top. The text has masks.
    void unite(const TextLine &text, int left);
    /// Adds another strip of the same height, `left` (0 or more) to the right.
    void unite(const CoverageStrip &strip, int left);

    /// The coverage, placed at the top left of the strip.
    CoverageMask mask() const;

private:
    void unite(const QImage &added, const QPoint &topLeft);

    QImage m_coverage;
    int m_opacity;
};
