#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <plist/plist.h>
#include <vector>

/// libplist's nodes, owned and asked in the words of this program. A `plist_t` that is passed on belongs to its list.
namespace PropertyList {

struct Deleter
{
    void operator()(void *node) const { plist_free(node); }
};
/// A whole list; its root node frees all others.
using Pointer = std::unique_ptr<void, Deleter>;

/// A list from bytes, binary or XML, once the guard has let them pass.
/// Error: not a property list, damaged, or past one of the guard's limits.
[[nodiscard]] Result<Pointer> parse(const QByteArray &bytes);
/// Nodes of their own. libplist takes it for granted that there is memory for them: a std::bad_alloc tells where there
/// is none, here and wherever a list is parsed or written.
[[nodiscard]] plist_t newText(const QByteArray &utf8);
[[nodiscard]] plist_t newData(const QByteArray &bytes);
/// The list as a binary property list. Error: libplist produced none, or one that the guard refuses.
[[nodiscard]] Result<QByteArray> toBinary(plist_t root);

/// The text of a string node; none for another node. A text of no letters is empty, not null.
[[nodiscard]] std::optional<QString> text(plist_t node);
/// The bytes of a data node.
[[nodiscard]] std::optional<QByteArray> data(plist_t node);
/// The value of an integer node; none where it is beyond 64 bits.
[[nodiscard]] std::optional<qint64> integer(plist_t node);
/// The table index in a reference: a UID, or what stands for one in XML, a dictionary with the one key "CF$UID".
[[nodiscard]] std::optional<quint64> reference(plist_t node);
/// The value of a key, nullptr where there is none or `node` is no dictionary.
[[nodiscard]] plist_t value(plist_t node, const char *key);
/// The entries of an array node, in their order; none for another node.
[[nodiscard]] std::vector<plist_t> entries(plist_t node);
/// The keys and values of a dictionary node, in their order; none for another node.
[[nodiscard]] std::vector<std::pair<QString, plist_t>> members(plist_t node);

} // namespace PropertyList
