#pragma once

#include "base/Result.h"
#include "layer/Layer.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// Why a wall that has pixels has no picture, in the same words wherever it is told.
namespace LostWall {

/// In pixels, of a wall whether it can be drawn or not.
struct Size
{
    qint64 width;
    qint64 height;
};
Size sizeOf(const Layer &wall);

/// A wall of this size, in pixels, has some, but more than a raster can hold.
bool isTooLarge(qint64 width, qint64 height);

/// "32,896 x 320 pixels are too large to draw; make the wall smaller"; of a size that could be drawn, that there was no
/// memory for it.
QString reason(qint64 width, qint64 height);

/// The same with the wall's name in front: "MAIN: 32,896 x 320 pixels ...".
QString sentence(const QString &label, qint64 width, qint64 height);
/// That of a layer; nullopt where it is no wall, has no pixels or has its picture. A wall that is still to be drawn is
/// drawn by this, unless its size alone tells.
std::optional<QString> sentenceOf(const Layer &layer);
/// Those of all such walls, in the order of the layers; hidden ones are not drawn, only their size is looked at.
QStringList sentencesOf(const std::vector<LayerPointer> &layers);

/// Whether a picture of the layers shows all that it should. Error: the sentences of the visible walls that are lost.
[[nodiscard]] Result<void> check(const std::vector<LayerPointer> &layers);

} // namespace LostWall
