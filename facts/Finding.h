#pragma once

#include "grid/Cell.h"

#include <QString>

#include <optional>

/// Something in a show that a check has found.
struct Finding
{
    enum class Level
    {
        Error,   ///< the show cannot be put on the wall, or not be written, as it is
        Warning, ///< it can, but hardly as it is meant
        Note     ///< good to know
    };

    const char *check; ///< the check's name, "port-over-limit", which never changes
    Level level;
    std::optional<qsizetype> layer = {}; ///< from the top of the list, 0 the first; nullopt: the show as a whole
    std::optional<Cell> cell = {};       ///< the panel of that layer
    std::optional<qint64> port = {};     ///< the port of that layer, 1 the first
    QString sentence;                    ///< what is wrong and what to do
};
