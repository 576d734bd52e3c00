#pragma once

/// A panel of a wall by its column from the left and its row from the top, both from 0.
struct Cell
{
    int column = 0;
    int row = 0;

    bool operator==(const Cell &) const = default;
};
