#include "base/DecimalText.h"

#include <array>
#include <charconv>

namespace {
template <typename Number>
QString withTwoDecimals(Number number)
{
    std::array<char, 320> digits{}; // the largest double has 309 in front of the point
    const auto end = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed, 2).ptr;
    return QString::fromLatin1(digits.data(), end - digits.data());
}
} // namespace

namespace DecimalText {

QString of(float number)
{
    return withTwoDecimals(number);
}

QString of(double number)
{
    return withTwoDecimals(number);
}

} // namespace DecimalText
