#pragma once

#include "base/Result.h"
#include "layer/Layer.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// Preset library files: a keyed archive of the list of presets, each under the keys of its kind, and nothing else.
/// Most presets are walls; a picture that was put among them is kept as well. A library has none or
/// more presets, at most as many as LayerLimits allows. Its file has the name that the person gave it, without an
/// extension.
namespace PresetLibrary {

/// Error: a list that decode() would refuse.
/// Memory that cannot be had is a std::bad_alloc, here and in decode().
[[nodiscard]] Result<QByteArray> encode(const std::vector<LayerPointer> &presets);
/// The presets in their stored order.
/// Error: no library, or damaged; the message names the preset, counted from 0, and the key where it can:
/// `preset 3: "rectcolor" is a number, expected a colour`.
[[nodiscard]] Result<std::vector<LayerPointer>> decode(const QByteArray &bytes, LayerHost &host);

/// Error: the file cannot be read, or decode() refused it; the message begins with the path.
[[nodiscard]] Result<std::vector<LayerPointer>> read(const QString &path, LayerHost &host);
/// Replaces the file at `path`, as it is spelled, once the new one is complete on disk.
/// Error: it cannot be written, or encode() refused; the message begins with the path.
[[nodiscard]] Result<void> write(const QString &path, const std::vector<LayerPointer> &presets);

} // namespace PresetLibrary
