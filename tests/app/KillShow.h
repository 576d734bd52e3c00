#pragma once

#include "show/Project.h"

#include <algorithm>
#include <array>

/// The document of the program that is killed, and of each of its edits: by the number of the edit alone it is known
/// what the document has to be. Each edit changes one value, the next one another: first the panels of the three walls
/// in turn, then the output.
namespace KillShow {

inline constexpr int outputHeight = 60;
inline constexpr int firstWidth = 100;
inline constexpr std::size_t walls = 3;
inline constexpr int values = 4; ///< that are edited in turn

/// Which value the edit `number`, from 1 on, changes: a wall, or the output's width.
constexpr int valueOf(int number)
{
    return number % values;
}
constexpr int widthValue = 0;
constexpr int widthAfter(int number)
{
    return firstWidth + number / values % 50;
}
/// The power of a wall's panels after the edit `number`: the number of the last edit of that wall.
constexpr int powerAfter(int number, int wall)
{
    const int sinceEdit = (number - wall - 1 + values) % values;
    return std::max(0, number - sinceEdit);
}

/// Which edit left the project like that; -1 where none did.
inline int editOf(const Project &project)
{
    if (project.layers.size() != walls || project.outputHeight != outputHeight)
        return -1;
    std::array<int, walls> powers{};
    std::transform(project.layers.begin(), project.layers.end(), powers.begin(),
                   [](const LayerPointer &layer) { return layer->powerOnCell(); });
    const int last = *std::max_element(powers.begin(), powers.end());
    for (const int number : {last, last + 1}) { // the one after may be of the output
        bool isIt = widthAfter(number) == project.outputWidth;
        for (int wall = 0; wall < static_cast<int>(walls); ++wall)
            isIt = isIt && powerAfter(number, wall) == powers[static_cast<std::size_t>(wall)];
        if (isIt)
            return number;
    }
    return -1;
}

} // namespace KillShow
