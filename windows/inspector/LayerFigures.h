#pragma once

#include "layer/Layer.h"
#include "screen/PortSplit.h"

#include <initializer_list>
#include <optional>
#include <vector>

/// What is counted of layers and read aloud. A number that would be larger than any is the largest that there is: a
/// file may claim any wall.
struct LayerFigures
{
    qint64 walls = 0;
    qint64 pictures = 0;
    qint64 panels = 0; ///< of walls, those that are off too
    qint64 panelsOff = 0;
    qint64 pixels = 0; ///< of these panels
    qint64 ports = 0;  ///< of walls that have a data path
    qint64 portsOverLimit = 0;
    /// Whether their watts can be counted in the 32 bits in which currents are reckoned.
    bool isPowerCounted = true;

    static LayerFigures of(const std::vector<LayerPointer> &layers);
};

/// Nothing where the wall has no panels, or its pattern is not one of the eight.
std::optional<PortSplit> portSplitOf(const Layer &wall);
/// Whether all panels are on one port.
bool hangsOnOnePort(const PortSplit &split);
/// Whether the layer is a wall of which not even one row, or column, fits a port.
bool isOverPortLimit(const Layer &layer);

/// The product, or the largest number there is where that is smaller.
qint64 limitedProduct(std::initializer_list<qint64> factors);
