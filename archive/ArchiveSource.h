#pragma once

#include "archive/PropertyList.h"

#include <vector>

/// An archive that was read, for what of it was not decoded.
struct ArchiveSource
{
    PropertyList::Pointer list;
    std::vector<plist_t> objects; ///< the table
    quint64 root = 0;             ///< the root's number in it
};
