#pragma once

#include "base/Result.h"
#include "show/Project.h"

#include <QByteArray>
#include <QString>

/// Project files, extension "Orv": a keyed archive of the list [output height, output width, layers], height first.
/// Beside it stands, only where there is something to hold, the dictionary of the values of the whole show.
namespace ProjectFile {

inline constexpr char extension[] = "Orv";

/// Whether an output of this size can be drawn at all.
/// Error: it cannot; the message names the size and the limits.
[[nodiscard]] Result<void> checkOutputSize(qint64 width, qint64 height);

/// The supply of these volts and phases. Error: there is none such; the message names both and what may be.
[[nodiscard]] Result<Supply> checkSupply(qint64 volts, qint64 phases);

/// Whether a project can be opened again once it is written.
/// Error: that of checkOutputSize(), LayerLimits::check() or ProcessorList::checkCount().
[[nodiscard]] Result<void> check(const Project &project);

/// Error: a project that decode() would refuse, as check() tells.
[[nodiscard]] Result<QByteArray> encode(const Project &project);
/// Error: not a project, or damaged; the message names the layer and the key where it can:
/// `layer 3: "rectcolor" is a number, expected a colour` (layer 0 is the topmost).
[[nodiscard]] Result<Project> decode(const QByteArray &bytes, LayerHost &host);

/// Error: the file cannot be read, or decode() refused it; the message begins with the path.
[[nodiscard]] Result<Project> read(const QString &path, LayerHost &host);
/// Replaces the file at `path` once the new one is complete on disk.
/// Error: it cannot be written, or encode() refused; the message begins with the path.
[[nodiscard]] Result<void> write(const QString &path, const Project &project);

} // namespace ProjectFile
