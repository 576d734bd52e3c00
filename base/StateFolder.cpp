#include "base/StateFolder.h"

#include <QDir>

QString StateFolder::path(const QString &name)
{
    // QStandardPaths knows this folder from Qt 6.7 on. A relative path in the variable does not count.
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    return (QDir::isAbsolutePath(state) ? state : QDir::homePath() + "/.local/state") + "/wallwright/" + name;
}
