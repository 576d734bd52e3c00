#pragma once

#include "grid/Cell.h"
#include "layer/CableRun.h"

#include <memory>
#include <optional>
#include <vector>

/// What hangs on one port in one wall, as the wall's picture shows it.
struct WallCable
{
    PortName port;                       ///< its number is 0 where no processor has a port for it
    std::optional<PortName> backup = {}; ///< where the other end of the cable goes
    std::vector<Cell> cells = {};        ///< those that are on, in the order of the cable
    int firstPlace = 1;                  ///< of the first of these panels among all on the port, 1 the first
    bool begins = true;                  ///< it comes from the processor, not from another wall
    bool ends = true;                    ///< nothing hangs behind it in another wall

    bool operator==(const WallCable &) const = default;
};

/// In the order of the wall's ports. Never changes; who shows them shares them.
using WallCables = std::vector<WallCable>;
using WallCablesPointer = std::shared_ptr<const WallCables>;
