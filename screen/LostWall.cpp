#include "screen/LostWall.h"

#include "drawing/Raster.h"

#include <QLocale>

namespace LostWall {

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
    return (label.isEmpty() ? QString("A wall without a name") : label) + ": " + reason(width, height);
}

} // namespace LostWall
