#pragma once

#include "archive/Result.h"
#include "layer/Layer.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// A whole document as files hold it.
struct Project
{
    int outputHeight = 0;
    int outputWidth = 0;
    std::vector<LayerPointer> layers; ///< topmost first
};

/// Project files, extension "Orv": a keyed archive of the list [output height, output width, layers], height first.
namespace ProjectFile {

inline constexpr char extension[] = "Orv";
/// Larger files are refused before they are read.
inline constexpr qint64 mostBytes = qint64{512} << 20;

/// Whether an output of this size can be drawn at all.
/// Error: it cannot; the message names the size and the limits.
[[nodiscard]] Result<void> checkOutputSize(qint64 width, qint64 height);

/// Whether so many layers can be kept. Error: more than `mostLayers`; a small file may name one layer very many times.
[[nodiscard]] Result<void> checkLayerCount(qint64 count);
inline constexpr qint64 mostLayers = 100'000;

/// Whether the layers can be held together.
/// Error: there are too many (checkLayerCount()), or the walls have more pixels than `mostWallPixels`; a small file may
/// name many large walls.
[[nodiscard]] Result<void> checkLayers(const std::vector<LayerPointer> &layers);
/// Pixels of all walls of a document together: 4 GiB of memory.
inline constexpr qint64 mostWallPixels = qint64{1} << 30;

/// Whether a project can be opened again once it is written.
/// Error: that of checkOutputSize() or checkLayers().
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
