#pragma once

#include <QImage>
#include <QRect>
#include <QStringList>

#include <optional>
#include <vector>

/// A place that is lit on the wall.
struct WallLight
{
    QRect place;            ///< pixels of the output, from its top left
    QStringList words = {}; ///< what stands in it: the panel's name, its place on the port
    bool hasCross = false;  ///< lines through its middle across the whole output

    bool operator==(const WallLight &) const = default;
};

/// What stands on the wall in the output's place, or over it. Of several the first one here is seen.
struct WallLook
{
    bool isBlack = false;
    /// Lit places on black; an empty list: nothing is lit. Nullopt: the picture is there.
    std::optional<std::vector<WallLight>> lights = {};
    QImage frozen = {}; ///< an older picture of the output; null: the one that there is
    int level = 100;    ///< per cent of each channel

    bool operator==(const WallLook &) const = default;
};
