#pragma once

#include <QString>

#include <tl/expected.hpp>
#include <utility>

/// Why something could not be done: one sentence for a person, saying what, where and what to do.
struct Error
{
    QString text;

    bool operator==(const Error &) const = default;
};

/// A value, or the reason why there is none.
template <typename T>
using Result = tl::expected<T, Error>;

/// Makes the failed state of any Result: `return fail("...");`.
[[nodiscard]] inline tl::unexpected<Error> fail(QString text)
{
    return tl::unexpected<Error>(Error{std::move(text)});
}

/// The same failure told from one level further out: "layer 3: " + what was wrong inside it.
[[nodiscard]] inline tl::unexpected<Error> failWithin(const QString &where, const Error &error)
{
    return tl::unexpected<Error>(Error{where + ": " + error.text});
}
