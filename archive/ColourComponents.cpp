#include "archive/ColourComponents.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace {
/// Five numbers of seventeen digits each are far below.
constexpr qsizetype longestText = 1000;

Colour colourOf(const std::vector<double> &numbers, int model)
{
    const std::size_t alphaAt = static_cast<std::size_t>(model);
    const double alpha = numbers.size() > alphaAt ? numbers[alphaAt] : 1;
    if (model == 1)
        return Colour::gray(numbers[0], alpha);
    if (model == 3)
        return {numbers[0], numbers[1], numbers[2], alpha};
    const double paper = 1 - numbers[3];
    return {(1 - numbers[0]) * paper, (1 - numbers[1]) * paper, (1 - numbers[2]) * paper, alpha};
}

Result<std::vector<double>> readNumbers(QByteArray text)
{
    if (text.endsWith('\0'))
        text.chop(1);
    if (text.size() > longestText)
        return fail("a colour with far too many components");
    std::vector<double> numbers;
    for (const QByteArray &word : text.simplified().split(' ')) {
        bool isNumber = false;
        const double number = word.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number))
            return fail(QString("a colour with the component \"%1\"").arg(QString::fromLatin1(word.left(40))));
        numbers.push_back(number);
    }
    return numbers;
}
} // namespace

Result<Colour> ColourComponents::read(const QByteArray &text, std::initializer_list<int> models, bool alphaIsGiven)
{
    const Result<std::vector<double>> numbers = readNumbers(text);
    if (!numbers)
        return tl::unexpected(numbers.error());
    const int count = static_cast<int>(numbers->size());
    const auto fits = [=](int model) { return count == model + 1 || (count == model && !alphaIsGiven); };
    const auto *const model = std::find_if(models.begin(), models.end(), fits);
    if (model == models.end())
        return fail(QString("a colour of %1 components").arg(count));
    return colourOf(*numbers, *model);
}

Result<QByteArray> ColourComponents::write(const Colour &colour)
{
    QByteArray text;
    for (const double component : {colour.red, colour.green, colour.blue, colour.alpha}) {
        if (!std::isfinite(component))
            return fail("A colour has a component that is no number.");
        std::array<char, 32> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), component).ptr;
        text.append(digits.data(), end - digits.data()).append(' ');
    }
    if (colour.alpha == 1)
        text.chop(2);
    text.back() = '\0';
    return text;
}
