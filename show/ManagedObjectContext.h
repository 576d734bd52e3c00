#pragma once

#include "base/Result.h"

/// A store of objects with edits that are not saved yet, of which quitting has to take care. The program itself has
/// none: its documents are files.
class ManagedObjectContext
{
public:
    virtual ~ManagedObjectContext() = default;

    /// Ends the edits under way in controls. Returns whether their values could be taken.
    virtual bool commitEditing() = 0;
    virtual bool hasChanges() const = 0;
    [[nodiscard]] virtual Result<void> save() = 0;
};
