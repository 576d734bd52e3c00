#pragma once

#include <QString>

/// A current as people read it.
namespace AmpereText {

/// "10.91": two decimals of the number as it is stored, a tie to the even digit. Qt's own formatting rounds a tie up.
QString of(float amperes);

} // namespace AmpereText
