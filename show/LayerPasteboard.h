#pragma once

#include "base/Result.h"
#include "layer/Layer.h"

#include <QByteArray>

#include <vector>

class LayerHost;

/// Layers on the platform's pasteboard, for this and other windows of the program: the keyed archive of their list.
namespace LayerPasteboard {

/// The type under which they stand.
inline constexpr char type[] = "application/x-wallwright-layers";

/// Error: what no archive can hold.
[[nodiscard]] Result<void> write(const std::vector<LayerPointer> &layers);
/// The layers, at least one. Error: there are none, or they are damaged.
[[nodiscard]] Result<std::vector<LayerPointer>> read(LayerHost &host);
/// Those that stand in such bytes.
[[nodiscard]] Result<std::vector<LayerPointer>> decode(const QByteArray &bytes, LayerHost &host);
/// Whether read() has something to read; it may be damaged.
bool hasLayers();

} // namespace LayerPasteboard
