#pragma once

#include <QString>

/// Where the program keeps what a person has made and does not save by hand.
namespace StateFolder {

/// A folder or file there, of that name; it may not be there yet.
QString path(const QString &name);

} // namespace StateFolder
