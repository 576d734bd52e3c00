#pragma once

#include <QStringView>
#include <QXmlStreamAttributes>

/// Estimates how long Qt's reader is at a drawing (SVG), by counting: the same drawing always comes to the same, in
/// nanoseconds of the machine that it was measured on (a core of 2.5 GHz, Qt 6.4). Rather too much than too little.
///
/// What was measured: Qt fills an outline in strips that hold few edges, and goes along all edges for each strip. So it
/// takes 8 ns for each pixel along the edges (`cells`) and each strip; there are as many strips as rows, unless there
/// are few edges. A polygon of 100 lines across 3000 x 3000 took 6.1 s (estimated: 7.3 s), of 500 points at random
/// 6.7 s, one of 1,000 lines across 1000 x 1000 9.1 s, and 2,000 blobs of 30 points and 200 px 0.14 s.
/// An element takes 3 us, a pixel that it covers 1 ns, a gradient of n stops the square of n / 4 ns.
namespace DrawingWork {

/// How the elements within an element are drawn.
struct Style
{
    double scale = 1;       ///< pixels a unit
    double strokeWidth = 1; ///< units
    bool hasStroke = false;
    double dashes = 0; ///< units from dash to dash; 0: no dashes
    double fontSize = 16;
    bool isText = false;

    /// That of an element in an element of this one.
    Style within(QStringView element, const QXmlStreamAttributes &attributes) const;
    /// The worst that this style and another together may mean.
    Style with(const Style &other) const;
    /// What a sheet of styles may ask of any element.
    static Style ofSheet(QStringView sheet);
    static Style nothing() { return {.strokeWidth = 0, .fontSize = 0}; }
    /// What work grows by that was estimated with this style, and is done with that of another.
    double growth(const Style &other) const;
};

/// The size of a drawing as its first element has it, in pixels where they are its units.
struct Canvas
{
    double side = 0;  ///< the longer
    double scale = 1; ///< pixels a unit of the drawing

    static Canvas of(const QXmlStreamAttributes &attributes);
};

/// For an element itself, without what is in it.
double ofElement(QStringView element, const QXmlStreamAttributes &attributes, const Style &style, double side);
/// For letters.
double ofText(qsizetype letters, const Style &style, double side);

} // namespace DrawingWork
