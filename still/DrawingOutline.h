#pragma once

#include <QStringView>

#include <vector>

/// What the outline of a shape in a drawing (SVG) measures, in the units of the shape; rather too much than too little.
struct DrawingOutline
{
    double numbers = 0; ///< that it is given by
    double length = 0;  ///< across and down, not aslant
    double extent = 0;  ///< of its longer side

    /// Of the text of a path's "d".
    static DrawingOutline ofPath(QStringView data);
    /// Of the text of a polygon's or a polyline's "points".
    static DrawingOutline ofPoints(QStringView points);
    /// Of what is no longer and no wider than that, such as a rectangle.
    static DrawingOutline ofBox(double side) { return {8, 4 * side, side}; }

    /// The numbers in a text, whatever is between them.
    static std::vector<double> numbersIn(QStringView text);
};
