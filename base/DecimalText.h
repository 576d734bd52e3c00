#pragma once

#include <QString>

/// A current or a load as people read it.
namespace DecimalText {

/// "10.91": two decimals of the number as it is stored, a tie to the even digit. Qt's own formatting rounds a tie up.
QString of(float number);
QString of(double number);

} // namespace DecimalText
