#pragma once

#include "base/Result.h"
#include "wiring/OwnModel.h"

#include <QString>
#include <QStringList>

#include <vector>

/// The models of processors that a person has described, for all shows: a folder with a file each.
namespace OwnModels {

/// Beside the unsaved work.
QString standardPath();

struct Found
{
    std::vector<OwnModel> models; ///< by name
    QStringList faults;           ///< of files that hold none, a sentence each
};
/// Nothing where there is no such folder.
Found in(const QString &folder);

/// Keeps another one. Error: there is one of that name, here or in the program, or it cannot be written.
[[nodiscard]] Result<void> keep(const OwnModel &model, const QString &folder);

} // namespace OwnModels
