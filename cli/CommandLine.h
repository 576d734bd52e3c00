#pragma once

#include "base/Result.h"

#include <QStringList>
#include <QTextStream>

/// How the program ends when it is used without a window.
enum class ExitStatus
{
    Done = 0,
    Failed = 1, ///< it could not be done; one line on standard error, beginning with the file
    Misused = 2 ///< the arguments make no sense; one line on standard error says what would
};

/// Whether these arguments (without the program's name) ask for the window: none at all, or one file that exists.
bool asksForWindow(const QStringList &arguments);

/// Whether these arguments are one file's name, and there is no such file.
bool namesMissingFile(const QStringList &arguments);

/// The program's arguments as texts. Error: one that is not written in UTF-8 and would name another file.
[[nodiscard]] Result<QStringList> argumentsOf(const QByteArrayList &values);

/// Runs the command that `arguments` (without the program's name) ask for. Results go to `out`, reasons to `err`; both
/// are flushed. Needs a QGuiApplication, of any platform.
ExitStatus runCommandLine(const QStringList &arguments, QTextStream &out, QTextStream &err);
