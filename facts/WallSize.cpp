#include "facts/WallSize.h"

#include "grid/PanelKeys.h"
#include "screen/LWScreen.h"
#include "screen/LostWall.h"

#include <algorithm>

WallSize WallSize::of(const Layer &wall)
{
    const auto [width, height] = LostWall::sizeOf(wall);
    WallSize size;
    size.panels = qint64{std::max(wall.col(), 0)} * std::max(wall.row(), 0);
    size.pixels = width > 0 && height > 0 && size.panels > 0 ? Counted::product(width, height) : 0;
    size.width = width;
    size.height = height;
    size.isTooLargeToDraw = LostWall::isTooLarge(width, height);
    return size;
}

qint64 countOfPanelsOff(const LWScreen &wall)
{
    return wall.panelsOff().value_or(PanelKeys()).cellsInside(wall.col(), wall.row()).size();
}
