#include "base/StateFolder.h"

#include "base/System.h"

QString StateFolder::path(const QString &name)
{
    return System::stateFolder() + "/wallwright/" + name;
}
