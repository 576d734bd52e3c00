#pragma once

#include "base/FileBytes.h"
#include "base/Result.h"
#include "show/Project.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The document as a layered file for editors of pictures, extension "psd": one layer of the file for each layer of the
/// document, hidden ones with opacity 0. Layers that have no picture or lie wholly outside the output are left out.
/// Beside the document it takes the memory of the file and of two outputs.
namespace PSDExport {

inline constexpr char extension[] = "psd";

using FileBytes::Outcome;
using FileBytes::Progress;

/// The bytes of the file; none where `progress` cancelled. Each layer counts `screenNumber` up by one, from the last to
/// the first, and one without a label gets, and keeps, the name "Untitled" with that number.
/// Error: that of PsdLimits::checkOutputSize(), before anything is changed; a visible wall could not be drawn; there is
/// no layer to show; the document is more than a file or the memory can hold.
[[nodiscard]] Result<QByteArray> encode(const Project &project, int &screenNumber, const Progress &progress = {});

/// The same into exactly the file at `path`, which is replaced once the new one is complete on disk; a cancelled one
/// leaves it as it was.
/// Error: that of encode(), or the file cannot be written; the message begins with the path.
[[nodiscard]] Result<Outcome> write(const QString &path, const Project &project, int &screenNumber,
                                    const Progress &progress = {});

/// The layers that the file does not hold since they have no picture, hidden ones too, a sentence without a full stop
/// each.
QStringList leftOut(const Project &project);
/// The pictures that stand in the file in their own pixels, for the editor to scale, while the output shows them in
/// another size: likewise.
QStringList resized(const Project &project);

} // namespace PSDExport
