#pragma once

#include "base/Colour.h"
#include "base/Result.h"

#include <QByteArray>

#include <initializer_list>

/// Colours as archives write them: decimal numbers between blanks, alpha last, one NUL at the end.
namespace ColourComponents {

/// The colour in `text`, whose components mean white (1), red, green and blue (3) or ink (4), by their number; `models`
/// names the ones that may stand here. They are taken at face value: white is equal parts, ink is taken from white.
/// Alpha may be missing unless `alphaIsGiven`. Error: not finite, too few or too many; a noun phrase.
[[nodiscard]] Result<Colour> read(const QByteArray &text, std::initializer_list<int> models, bool alphaIsGiven);

/// Red, green and blue with the fewest digits that read back as the same numbers, alpha where it is not 1, a NUL.
/// Error: a component that is no finite number.
[[nodiscard]] Result<QByteArray> write(const Colour &colour);

} // namespace ColourComponents
