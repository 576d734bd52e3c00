#pragma once

#include "base/Result.h"

#include <QByteArray>

/// Looks at the bytes of a property list before libplist does. libplist copies out whatever is referred to more than
/// once, so that a few hundred bytes can ask for all memory there is, and follows nesting as deep as it goes.
/// A size that the file gives is never believed: nothing is allocated for it before it was held against the bytes.
namespace PropertyListGuard {

/// Arrays and dictionaries inside each other.
inline constexpr int maximumDepth = 64;
/// Values of a list as it is copied out, keys included; also entries of a binary list's table.
inline constexpr quint64 maximumValues = 8'000'000;
/// Bytes of a list's file, and of its texts and data as they are copied out.
inline constexpr quint64 maximumBytes = 512ULL << 20;
/// Bytes of an XML file, which takes several times its size while it is read.
inline constexpr quint64 maximumXmlBytes = 32ULL << 20;

/// Error: a binary list whose trailer, offset table or markers do not fit the file, that contains itself, or that
/// passes a limit. Time and memory follow the size of the file, whatever is in it.
[[nodiscard]] Result<void> checkBinary(const QByteArray &bytes);

/// The XML list in its plainest form, UTF-8: elements and their text, nothing else. This is what libplist gets, so that
/// the two parsers cannot take one file for two different things.
/// Error: not well formed, no property list, a type declaration with contents (entities), or past a limit.
[[nodiscard]] Result<QByteArray> rewriteXml(const QByteArray &bytes);

} // namespace PropertyListGuard
