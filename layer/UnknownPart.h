#pragma once

#include "archive/ArchiveObject.h"

#include <QByteArrayList>

#include <memory>

/// What a file says of a cable or a processor under names that this version does not know. It comes back into a file of
/// the same kind as it came.
struct UnknownPart
{
    ArchiveObjectPointer ofArchive = {}; ///< null: nothing
    QByteArrayList ofText = {};          ///< `"name": value` each, as it stood in a readable text

    /// What is unknown of an archive's object; null: nothing is.
    static std::shared_ptr<const UnknownPart> of(const ArchiveObject &object)
    {
        ArchiveObjectPointer part = object.unknownPart();
        return part->entries().empty() ? nullptr : std::make_shared<const UnknownPart>(UnknownPart{part, {}});
    }
    /// Null where there are none.
    static std::shared_ptr<const UnknownPart> ofNames(const QByteArrayList &names)
    {
        return names.isEmpty() ? nullptr : std::make_shared<const UnknownPart>(UnknownPart{{}, names});
    }
};

/// Null: nothing is unknown.
using UnknownPartPointer = std::shared_ptr<const UnknownPart>;
