#pragma once

#include "output/RowPlan.h"

#include <QImage>
#include <QRect>
#include <QRgb>

#include <vector>

struct OutputStyle;

/// Draws what an output shows: the background, its outline, and pictures atop.
class OutputPainter
{
public:
    /// The pictures, topmost first, outlive the painter.
    OutputPainter(const std::vector<PlannedPicture> &topmostFirst, const OutputStyle &style);

    /// Writes each pixel of a part of the output, which lies within it; the others stay. What it writes depends on
    /// nothing that was there, nor on the part.
    void paint(QImage &output, const QRect &part) const;

private:
    void paintRows(uchar *firstRow, qsizetype bytesPerLine, const QRect &rows, LayerRows::Stores stores) const;
    std::vector<int> seamsOf(const QRect &rows, const std::vector<PlannedPicture> &pictures) const;
    std::vector<RowPlan::Base> basesOfRow(int y, const QRect &part) const;

    const std::vector<PlannedPicture> &m_pictures;
    QSize m_size;
    QRgb m_background;
    QRgb m_edge; ///< over the background
};
