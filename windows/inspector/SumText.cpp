#include "windows/inspector/SumText.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace {
constexpr qsizetype longestText = 200;
constexpr QStringView digits = u"0123456789.";
constexpr QStringView signs = u"0123456789.+-*/() ";

bool isOfSigns(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar sign) { return signs.contains(sign); });
}

/// Sum = product { (+|-) product }; product = factor { (*|/) factor }; factor = [-|+] (number | "(" sum ")").
class Reader
{
public:
    explicit Reader(const QString &text) : m_text(text) {}

    std::optional<double> whole()
    {
        const std::optional<double> value = sum();
        return m_at == m_text.size() ? value : std::nullopt;
    }

private:
    bool take(char sign)
    {
        if (m_at >= m_text.size() || m_text[m_at] != QLatin1Char(sign))
            return false;
        ++m_at;
        return true;
    }

    std::optional<double> sum()
    {
        std::optional<double> value = product();
        while (value) {
            const bool adds = take('+');
            if (!adds && !take('-'))
                break;
            const std::optional<double> next = product();
            value = next ? std::optional(adds ? *value + *next : *value - *next) : std::nullopt;
        }
        return value;
    }

    std::optional<double> product()
    {
        std::optional<double> value = factor();
        while (value) {
            const bool multiplies = take('*');
            if (!multiplies && !take('/'))
                break;
            const std::optional<double> next = factor();
            value = next ? std::optional(multiplies ? *value * *next : *value / *next) : std::nullopt;
        }
        return value;
    }

    std::optional<double> factor()
    {
        if (take('-')) {
            const std::optional<double> value = factor();
            return value ? std::optional(-*value) : std::nullopt;
        }
        if (take('+'))
            return factor();
        if (!take('('))
            return number();
        const std::optional<double> value = sum();
        return take(')') ? value : std::nullopt;
    }

    std::optional<double> number()
    {
        const qsizetype begin = m_at;
        while (m_at < m_text.size() && (m_text[m_at].isDigit() || m_text[m_at] == u'.'))
            ++m_at;
        bool isNumber = false;
        const double value = m_text.mid(begin, m_at - begin).toDouble(&isNumber);
        return isNumber ? std::optional(value) : std::nullopt;
    }

    const QString &m_text;
    qsizetype m_at = 0;
};
} // namespace

namespace SumText {

std::optional<double> value(QStringView text)
{
    if (text.size() > longestText)
        return std::nullopt;
    const QString dense = text.toString().remove(' ');
    const std::optional<double> value = Reader(dense).whole();
    return value && std::isfinite(*value) ? value : std::nullopt;
}

bool isNumber(QStringView text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](QChar sign) { return digits.contains(sign); });
}

bool isUnfinished(QStringView text)
{
    return text.size() <= longestText && isOfSigns(text) && !value(text);
}

QString fault(QStringView text)
{
    if (value(text))
        return {};
    if (text.empty())
        return "There is no number; type one.";
    if (text.size() > longestText)
        return "That is too long; shorten the sum.";
    const QString quoted = '"' + text.toString() + '"';
    if (text.contains(u','))
        return quoted + " has a comma; leave it out.";
    if (!isOfSigns(text))
        return quoted + (text.front().isDigit() ? " is more than digits; write them all." : " is no number.");
    const std::optional<double> infinite = Reader(text.toString().remove(' ')).whole();
    return infinite ? "Nothing can be divided by 0; divide by another." : "The sum is not finished; type on.";
}

} // namespace SumText
