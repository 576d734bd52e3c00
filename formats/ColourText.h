#pragma once

#include "base/Colour.h"
#include "base/Result.h"

#include <QJsonValue>

/// Colours as a person writes them: "#rrggbb", "#rrggbbaa", or a list of four numbers, red, green, blue and alpha,
/// where eight bits would not hold them exactly.
namespace ColourText {

/// The shortest of these forms that loses nothing; null for no colour.
QJsonValue encode(const OptionalColour &colour);

/// Error: anything else; the message tells what was expected and found.
[[nodiscard]] Result<OptionalColour> decode(const QJsonValue &value);

/// The same of a text alone, as a command line gives it: "#ff0000" or "[1, 0.5, 0, 1]".
[[nodiscard]] Result<Colour> decodeText(const QString &text);

} // namespace ColourText
