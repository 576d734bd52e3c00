#pragma once

#include "base/Colour.h"
#include "show/Project.h"

#include <QString>

#include <optional>

/// What a picture of a project shows, beside the project itself.
struct PictureSettings
{
    std::optional<int> layer; ///< the one layer to show, 0 the topmost; nullopt: the composed output
    Colour background = NamedColour::black;
    Colour edge = NamedColour::black;
};

/// Pictures of projects, without a window.
namespace PictureOutput {

/// Writes the composed output, or the raster of the one layer asked for.
/// Error: visible layers of the output could not be drawn; there is no such layer; it has no picture; or the file
/// cannot be written; the message begins with the path.
[[nodiscard]] Result<void> writePng(const QString &path, const Project &project, const PictureSettings &settings);

/// Writes all layers as a layered file; the project stays as it is.
/// Error: that of PSDExport::write(); the message begins with the path.
[[nodiscard]] Result<void> writePsd(const QString &path, const Project &project);

/// Why a layer has no picture, told as `layer 2 has no picture: it is 0 x 0 pixels`. Nullopt: it has
/// one.
std::optional<QString> reasonForNoPicture(const Project &project, int layer);

} // namespace PictureOutput
