#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QModelIndexList>

#include <vector>

class QMimeData;

/// What a drag of table rows carries: a keyed archive of the set of their indexes. Which table they were dragged from,
/// whoever started the drag remembers.
namespace RowPasteboard {

/// The one type under which the rows stand.
inline constexpr char type[] = "BasicTableViewDragAndDropDataType";

/// The archive of the set of `rows`, in any order, each named once or more often.
/// Error: no row, or one below 0.
[[nodiscard]] Result<QByteArray> encode(std::vector<qsizetype> rows);
/// The rows in rising order, at least one. They are what the bytes claim: a row may be beyond the list.
/// Error: not the archive of an index set, no rows, or more than a list can have.
[[nodiscard]] Result<std::vector<qsizetype>> decode(const QByteArray &bytes);

/// A drag of the rows of `indexes`, owned by the caller; null where there are none.
[[nodiscard]] QMimeData *write(const QModelIndexList &indexes);
/// Error: a drag of something else, or that of decode().
[[nodiscard]] Result<std::vector<qsizetype>> read(const QMimeData &pasteboard);

} // namespace RowPasteboard
