#include "screen/LostWall.h"

#include "drawing/Raster.h"
#include "drawing/TextLine.h"
#include "layer/WallGrid.h"
#include "screen/LWScreen.h"

#include <QLocale>

namespace {
QStringList sentencesOf(const std::vector<LayerPointer> &layers, bool (*isMeant)(const Layer &))
{
    QStringList sentences;
    for (const LayerPointer &layer : layers) {
        if (const std::optional<QString> lost = isMeant(*layer) ? LostWall::sentenceOf(*layer) : std::nullopt)
            sentences.append(*lost);
    }
    return sentences;
}
} // namespace

namespace LostWall {

Size sizeOf(const Layer &wall)
{
    const PanelGrid grid = panelGridOf(wall);
    return {grid.columns.size(), grid.rows.size()};
}

bool isTooLarge(qint64 width, qint64 height)
{
    return width > 0 && height > 0 && !Raster::canHold(width, height);
}

QString reason(qint64 width, qint64 height)
{
    const QLocale locale(QLocale::English);
    const QString pixels = locale.toString(width) + " x " + locale.toString(height) + " pixels";
    if (isTooLarge(width, height))
        return pixels + " are too large to draw; make the wall smaller";
    return QString("there is not enough memory to draw %1; close other programs or make the wall smaller").arg(pixels);
}

QString sentence(const QString &label, qint64 width, qint64 height)
{
    return (label.isEmpty() ? QString("A wall without a name") : TextLine::shown(label)) + ": " + reason(width, height);
}

std::optional<QString> sentenceOf(const Layer &layer)
{
    const auto [width, height] = sizeOf(layer);
    const bool isWallWithPixels = qobject_cast<const LWScreen *>(&layer) && width > 0 && height > 0;
    if (!isWallWithPixels || (!isTooLarge(width, height) && !layer.thumbnail().isNull()))
        return std::nullopt;
    return sentence(layer.label(), width, height);
}

QStringList sentencesOf(const std::vector<LayerPointer> &layers)
{
    return ::sentencesOf(layers, [](const Layer &layer) {
        const auto [width, height] = sizeOf(layer);
        return layer.visible() || isTooLarge(width, height);
    });
}

Result<void> check(const std::vector<LayerPointer> &layers)
{
    const QStringList lost = ::sentencesOf(layers, [](const Layer &layer) { return layer.visible(); });
    return lost.isEmpty() ? Result<void>() : fail(lost.join(". "));
}

} // namespace LostWall
