#pragma once

#include "base/Result.h"

#include <QByteArray>

#include <new>

/// Memory that cannot be had. It ends in a std::bad_alloc, which becomes an error where the file is known that is read
/// or written.
namespace Memory {

/// The Result that `work` gives. Error: that of `work`, or `sentence` where there is not enough memory for it.
template <typename Work>
[[nodiscard]] auto orError(const Work &work,
                           const char *sentence = "there is not enough memory; close other programs and try again")
    -> decltype(work())
{
    try {
        return work();
    } catch (const std::bad_alloc &) {
        return fail(sentence);
    }
}

/// A std::bad_alloc where so many bytes cannot be had; for libraries that take it for granted that they can.
inline void require(qsizetype bytes)
{
    QByteArray().reserve(bytes);
}

} // namespace Memory
