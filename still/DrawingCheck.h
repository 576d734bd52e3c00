#pragma once

#include <QByteArray>

#include <optional>

namespace DrawingCheck {

/// How long the picture in these bytes of a file takes to draw, as DrawingWork counts, rounded up; 0 unless it is a
/// drawing (SVG). nullopt: Qt's reader must not get it, since Qt follows the addresses in a drawing wherever they lead,
/// even into a pipe, and draws what is repeated as often as it is asked to. A drawing is refused
/// - that shows pictures or style sheets from elsewhere; what it embeds may be a drawing, for which the same holds,
/// - that is compressed, since it cannot be looked through,
/// - that has more than 128 MiB, or embeds more pixels than a raster can have,
/// - that draws more than 2^20 elements, repeated ones counted each time, or elements nested deeper than 1000,
/// - that would take more than 5 s, as DrawingWork counts, with what it embeds,
/// - whose gradients have more than 2^14 stops, or more than 2^31 elements times stops,
/// - that embeds a picture of a format that is not shown.
std::optional<qint64> nanoseconds(const QByteArray &bytes);

} // namespace DrawingCheck
