#include "live/WallRegion.h"

#include "drawing/Raster.h"

#include <QStringList>

#include <algorithm>
#include <array>

QString WallRegion::text() const
{
    return QString("%1 %2 %3").arg(offset.x()).arg(offset.y()).arg(turn);
}

std::optional<WallRegion> WallRegion::of(const QString &text)
{
    const QStringList parts = text.split(' ');
    if (parts.size() != 3)
        return std::nullopt;
    std::array<bool, 3> areNumbers{};
    const WallRegion region{{parts[0].toInt(&areNumbers[0]), parts[1].toInt(&areNumbers[1])},
                            parts[2].toInt(&areNumbers[2])};
    const bool isTurn = region.turn == 0 || region.turn == 90 || region.turn == 180 || region.turn == 270;
    const bool isPlace = areNumbers[0] && areNumbers[1] && within(region.offset) == region.offset;
    if (!areNumbers[2] || !isPlace || !isTurn)
        return std::nullopt;
    return region;
}

QPoint WallRegion::within(const QPoint &offset)
{
    constexpr int most = Raster::longestSide;
    return {std::clamp(offset.x(), -most, most), std::clamp(offset.y(), -most, most)};
}
