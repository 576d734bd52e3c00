#pragma once

#include "base/Result.h"
#include "show/Project.h"

#include <QByteArray>

/// Which panel hangs on which port, for spreadsheets: comma separated values after RFC 4180, in UTF-8, a row for each
/// panel that is on, in the order of the cables over all walls. `column` and `row` count from 1, from the wall's left
/// and top; `x` and `y` are the panel's corner on the output, in pixels from its top left; `order` counts the panels of
/// a port from 1. Walls without a processor are left out, and so are panels on no port.
namespace PortsTable {

inline constexpr char extension[] = "csv";

/// Texts that a spreadsheet would take for a formula begin with an apostrophe.
QByteArray encode(const Project &project);
/// Error: it cannot be written; the message begins with the path.
[[nodiscard]] Result<void> write(const QString &path, const Project &project);

} // namespace PortsTable
