#pragma once

#include <QtNumeric>

#include <limits>
#include <optional>

/// Counts that a file may claim to be larger than any number.
namespace Counted {

/// Nullopt: more than 64 bits can count. Both factors are 0 or more.
inline std::optional<qint64> product(qint64 one, qint64 other)
{
    qint64 result = 0;
    return qMulOverflow(one, other, &result) ? std::nullopt : std::optional(result);
}

/// What is read aloud: the largest number there is in the place of one that is larger.
inline qint64 limited(std::optional<qint64> count)
{
    return count.value_or(std::numeric_limits<qint64>::max());
}

/// Adds likewise.
inline void add(qint64 &total, qint64 more)
{
    if (qAddOverflow(total, more, &total))
        total = std::numeric_limits<qint64>::max();
}

} // namespace Counted
