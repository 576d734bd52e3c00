#pragma once

#include "formats/ProjectFile.h"

/// The document as readable, diffable JSON; `docs/json-format.md` describes it. It holds every property that a project
/// file keeps, under the property's own name, in the archive's order.
namespace ProjectText {

inline constexpr char extension[] = "json";
/// Larger files are refused before they are read.
inline constexpr qint64 mostBytes = qint64{64} << 20;

/// UTF-8, two blanks of indentation, one property a line.
[[nodiscard]] QByteArray encode(const Project &project);
/// A property that is not given has the value of a new layer; output sizes that are not given are 1920 and 1080.
/// `folder` is what relative picture addresses stand in.
/// Error: no JSON, an unknown name, a wrong type or an impossible value; the message names the place:
/// `layers[3].rectColor: expected a colour such as "#ff0000", found a number`.
[[nodiscard]] Result<Project> decode(const QByteArray &json, const QString &folder, LayerHost &host);

/// Error: the file cannot be read, or decode() refused it; the message begins with the path.
[[nodiscard]] Result<Project> read(const QString &path, LayerHost &host);
/// Replaces the file at `path` once the new one is complete on disk.
/// Error: it cannot be written, or read() would refuse it (ProjectFile::check()); the message begins with the path.
[[nodiscard]] Result<void> write(const QString &path, const Project &project);

} // namespace ProjectText
