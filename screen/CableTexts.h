#pragma once

#include "drawing/DrawingSurface.h"
#include "layer/WallCables.h"

#include <QString>

class ScreenChart;

/// What a wall's picture says of its ports: their names at the ends of the cables, and the place of each panel.
class CableTexts
{
public:
    /// For a chart that has a raster. `cables`: cells of no panel are passed over.
    CableTexts(const ScreenChart &chart, const WallCables &cables);

    /// "A3.12" where the panels' labels stand otherwise, in their colour and size; nothing where no port feeds.
    void drawPlaces(DrawingSurface &surface) const;
    /// The name of its port at each cable's first panel; where the cable is a loop, "A1/A11" at its last one.
    /// `colours`: of each cable.
    void drawNames(DrawingSurface &surface, const std::vector<Colour> &colours) const;

    /// As the chart's form has it. A port that no processor has is called "?".
    static QString nameOf(const PortName &port, const QString &form);

private:
    void drawName(DrawingSurface &surface, const Cell &cell, const QString &text, const Colour &colour) const;
    QString nameOf(const PortName &port) const;

    const ScreenChart &m_chart;
    const WallCables &m_cables;
};
