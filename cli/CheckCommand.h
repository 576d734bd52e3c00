#pragma once

#include "base/Result.h"

#include <QString>
#include <QStringList>

/// `check INPUT`: what is wrong in a project, for people or as JSON.
struct CheckCommand
{
    struct Report
    {
        QString text; ///< the whole of it
        bool hasErrors = false;
    };

    QString input;
    bool isJson = false;

    /// Error: arguments that make no sense, a format that cannot be read among them.
    [[nodiscard]] static Result<CheckCommand> parse(const QStringList &arguments);

    /// Error: the file cannot be read; the message begins with its path.
    [[nodiscard]] Result<Report> run() const;
};
