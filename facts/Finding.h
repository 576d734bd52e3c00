#pragma once

#include "grid/Cell.h"
#include "layer/PixelBox.h"

#include <QString>

#include <optional>

/// Something in a show that a check has found.
struct Finding
{
    enum class Level
    {
        Error,   ///< the show cannot be put on the wall, or not be written, as it is
        Warning, ///< it can, but hardly as it is meant
        Note,    ///< good to know
        Meant    ///< somebody means it so, see LayerRecord::meant: it counts as nothing
    };

    const char *check; ///< the check's name, "port-over-limit", which never changes
    Level level;
    std::optional<qsizetype> layer = {}; ///< from the top of the list, 0 the first; nullopt: the show as a whole
    std::optional<Cell> cell = {};       ///< the panel of that layer
    std::optional<qint64> port = {};     ///< 1 the first, of `processor` or, where that is empty, of the layer
    QString processor = {};              ///< the name of the processor that it is about; empty: none
    std::optional<PixelBox> box = {};    ///< where it is on the output; nullopt: nowhere, or where the layer is
    QString sentence;                    ///< what is wrong and what to do

    bool operator==(const Finding &) const = default;
};
