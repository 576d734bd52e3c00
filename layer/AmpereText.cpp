#include "layer/AmpereText.h"

#include <array>
#include <charconv>

namespace AmpereText {

QString of(float amperes)
{
    std::array<char, 64> digits{}; // the largest float has 39 in front of the point
    const auto end = std::to_chars(digits.begin(), digits.end(), amperes, std::chars_format::fixed, 2).ptr;
    return QString::fromLatin1(digits.data(), end - digits.data());
}

} // namespace AmpereText
