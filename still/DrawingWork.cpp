#include "still/DrawingWork.h"

#include "still/DrawingOutline.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
constexpr double mostSide = 32768; // of a raster
constexpr double mostScale = 1e9;
constexpr double unitOfLength = 90; // an inch, the longest, in pixels

QStringView declared(QStringView style, QStringView name)
{
    for (QStringView declaration : style.tokenize(u';')) {
        const qsizetype colon = declaration.indexOf(u':');
        if (colon > 0 && declaration.first(colon).trimmed() == name)
            return declaration.sliced(colon + 1).trimmed();
    }
    return {};
}

QStringView attributeOf(const QXmlStreamAttributes &attributes, QStringView name)
{
    const auto found = std::ranges::find_if(
        attributes, [&](const QXmlStreamAttribute &attribute) { return attribute.qualifiedName() == name; });
    return found == attributes.end() ? QStringView() : found->value();
}

/// From the element's style or the property's own attribute; empty where there is none.
QStringView propertyOf(const QXmlStreamAttributes &attributes, QStringView name)
{
    const QStringView inStyle = declared(attributeOf(attributes, u"style"), name);
    return inStyle.isEmpty() ? attributeOf(attributes, name) : inStyle;
}

/// A length without its unit; 0 where there is none.
double lengthOf(QStringView text)
{
    const std::vector<double> numbers = DrawingOutline::numbersIn(text);
    return numbers.empty() ? 0 : std::abs(numbers.front());
}

/// A length in units of the drawing, or the largest that it may mean.
double largestLength(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    if (trimmed.endsWith(u'%'))
        return mostSide;
    return lengthOf(trimmed) * (!trimmed.isEmpty() && trimmed.back().isLetter() ? unitOfLength : 1);
}

/// How much one transformation makes larger, by its name and numbers.
double scaleOf(QStringView name, const std::vector<double> &numbers)
{
    const auto at = [&](std::size_t index) { return index < numbers.size() ? std::abs(numbers[index]) : 0; };
    if (name.endsWith(u"scale"))
        return std::max(at(0), at(1));
    if (name.endsWith(u"matrix"))
        return std::max(at(0) + at(2), at(1) + at(3));
    if (name.contains(u"skew"))
        return 1 + std::abs(std::tan(at(0) * std::numbers::pi / 180));
    return 1;
}

/// How much a list of transformations makes larger.
double scaleOf(QStringView transformations)
{
    double scale = 1;
    for (QStringView transformation : transformations.tokenize(u')')) {
        const qsizetype bracket = transformation.indexOf(u'(');
        if (bracket > 0)
            scale *= scaleOf(transformation.first(bracket).trimmed(),
                             DrawingOutline::numbersIn(transformation.sliced(bracket + 1)));
    }
    return std::min(scale, mostScale);
}

double sumOf(const std::vector<double> &numbers)
{
    double sum = 0;
    for (const double number : numbers)
        sum += std::abs(number);
    return sum;
}

DrawingOutline outlineOf(QStringView element, const QXmlStreamAttributes &attributes)
{
    const auto is = [&](QStringView name) { return element.endsWith(name, Qt::CaseInsensitive); };
    if (is(u"path"))
        return DrawingOutline::ofPath(attributeOf(attributes, u"d"));
    if (is(u"polygon") || is(u"polyline"))
        return DrawingOutline::ofPoints(attributeOf(attributes, u"points"));
    double side = 0;
    if (is(u"rect") || is(u"image") || is(u"video"))
        side = std::max(largestLength(attributeOf(attributes, u"width")),
                        largestLength(attributeOf(attributes, u"height")));
    if (is(u"circle") || is(u"ellipse")) {
        for (const QStringView name : {u"r", u"rx", u"ry"})
            side = std::max(side, 2 * largestLength(attributeOf(attributes, name)));
    }
    if (is(u"line")) {
        for (const QStringView name : {u"x1", u"y1", u"x2", u"y2"})
            side += largestLength(attributeOf(attributes, name));
    }
    return side > 0 ? DrawingOutline::ofBox(side) : DrawingOutline();
}

/// For the edges and what is inside them. An outline has its pixels along the edges, across and down.
double ofFilling(double cells, double size)
{
    const double strips = std::min(size, 1 + cells / 100);
    return 8 * cells * strips + size * size;
}

double ofStroke(const DrawingOutline &outline, const DrawingWork::Style &style, double side)
{
    const double dashes = style.dashes > 0 ? outline.length / style.dashes : 0;
    const double corners = outline.numbers + 4 * dashes;
    const double width = style.strokeWidth * style.scale;
    const double length = 2 * outline.length * style.scale + 4 * corners * width + corners;
    const double cells = std::min(length, 4 * corners * 2 * side);
    if (width <= 1) // drawn pixel by pixel
        return 10 * cells + 100 * corners;
    return 100 * corners + ofFilling(cells, std::min(outline.extent * style.scale + 2 * width, side) + 1);
}
} // namespace

namespace DrawingWork {

Style Style::within(QStringView element, const QXmlStreamAttributes &attributes) const
{
    Style style = *this;
    style.scale = std::min(scale * scaleOf(propertyOf(attributes, u"transform")), mostScale);
    style.isText = isText || element.contains(u"text", Qt::CaseInsensitive);
    if (const QStringView stroke = propertyOf(attributes, u"stroke"); !stroke.isEmpty())
        style.hasStroke = stroke != u"none";
    if (const QStringView width = propertyOf(attributes, u"stroke-width"); !width.isEmpty())
        style.strokeWidth = largestLength(width);
    if (const QStringView dashArray = propertyOf(attributes, u"stroke-dasharray"); !dashArray.isEmpty())
        style.dashes = sumOf(DrawingOutline::numbersIn(dashArray));
    if (const double size = largestLength(propertyOf(attributes, u"font-size")); size > 0)
        style.fontSize = size;
    return style;
}

Style Style::with(const Style &other) const
{
    Style style = *this;
    style.hasStroke = hasStroke || other.hasStroke;
    style.strokeWidth = std::max(strokeWidth, other.strokeWidth);
    style.fontSize = std::max(fontSize, other.fontSize);
    if (other.dashes > 0)
        style.dashes = dashes > 0 ? std::min(dashes, other.dashes) : other.dashes;
    return style;
}

Style Style::ofSheet(QStringView sheet)
{
    Style all = nothing();
    for (const QStringView rule : sheet.tokenize(u'}')) {
        const QStringView declarations = rule.sliced(rule.lastIndexOf(u'{') + 1);
        const QStringView stroke = declared(declarations, u"stroke");
        all = all.with({.strokeWidth = largestLength(declared(declarations, u"stroke-width")),
                        .hasStroke = !stroke.isEmpty() && stroke != u"none",
                        .dashes = sumOf(DrawingOutline::numbersIn(declared(declarations, u"stroke-dasharray"))),
                        .fontSize = largestLength(declared(declarations, u"font-size"))});
    }
    return all;
}

double Style::growth(const Style &other) const
{
    const auto widthOf = [](const Style &style) { return 1 + (style.hasStroke ? style.strokeWidth : 0); };
    const auto dashesOf = [](const Style &style) { return style.dashes > 0 ? 1 + 1000 / style.dashes : 1; };
    const auto ratio = [](double now, double before) { return std::max(1.0, now / before); };
    const double larger = ratio(other.scale, scale) * ratio(widthOf(other), widthOf(*this));
    return larger * larger * ratio(dashesOf(other), dashesOf(*this));
}

Canvas Canvas::of(const QXmlStreamAttributes &attributes)
{
    const double width = lengthOf(attributeOf(attributes, u"width"));
    const double height = lengthOf(attributeOf(attributes, u"height"));
    const std::vector<double> view = DrawingOutline::numbersIn(attributeOf(attributes, u"viewBox"));
    const bool hasView = view.size() == 4 && view[2] > 0 && view[3] > 0;
    const bool hasSize = width > 0 && height > 0;
    if (!hasView)
        return {hasSize ? std::max(width, height) : mostSide, 1};
    if (!hasSize)
        return {std::max(view[2], view[3]), 1};
    return {std::max(width, height), std::max(width / view[2], height / view[3])};
}

double ofElement(QStringView element, const QXmlStreamAttributes &attributes, const Style &style, double side)
{
    constexpr double itself = 3000;
    const DrawingOutline outline = outlineOf(element, attributes);
    if (outline.numbers == 0)
        return itself;
    double work = itself + 150 * outline.numbers;
    if (propertyOf(attributes, u"fill") != u"none") {
        const double length = outline.length * style.scale + outline.numbers;
        const double cells = std::min(length, outline.numbers * 2 * side);
        work += ofFilling(cells, std::min(outline.extent * style.scale, side) + 1);
    }
    return style.hasStroke ? work + ofStroke(outline, style, side) : work;
}

double ofText(qsizetype letters, const Style &style, double side)
{
    const double size = std::min(style.fontSize * style.scale, side);
    return static_cast<double>(letters) * (2000 + size * size);
}

} // namespace DrawingWork
