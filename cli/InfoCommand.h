#pragma once

#include "base/Result.h"

#include <QString>
#include <QStringList>

/// `info INPUT`: what a project holds, for people or as JSON.
struct InfoCommand
{
    QString input;
    bool isJson = false;
    int volts = 0;  ///< 0: as the project says
    int phases = 0; ///< 0: as the project says

    /// Error: arguments that make no sense, a format that cannot be read among them.
    [[nodiscard]] static Result<InfoCommand> parse(const QStringList &arguments);

    /// The whole text. Error: the file cannot be read; the message begins with its path.
    [[nodiscard]] Result<QString> run() const;
};
