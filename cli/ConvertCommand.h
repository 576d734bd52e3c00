#pragma once

#include "base/Result.h"
#include "formats/PictureOutput.h"

#include <QString>
#include <QStringList>

#include <functional>

/// `convert INPUT OUTPUT...`: a project in other formats, each known by its extension.
struct ConvertCommand
{
    QString input;
    QStringList outputs;
    PictureSettings picture;
    int corners = 0; ///< which corner coordinates are drawn, as LayerHost::popupIndex()
    int volts = 0;   ///< 0: as the project says
    int phases = 0;  ///< 0: as the project says

    /// Error: arguments that make no sense, a format that cannot be read or written among them.
    [[nodiscard]] static Result<ConvertCommand> parse(const QStringList &arguments);

    using Teller = std::function<void(const QString &)>;
    /// Writes the outputs one by one and hands each path to `written` when the file is complete; stops at the first
    /// that fails. Once all are written, `notice` is told in a sentence each what the pictures, or the JSON, had to
    /// leave out. Error: a file that cannot be read or written; the message begins with its path.
    [[nodiscard]] Result<void> run(const Teller &written, const Teller &notice) const;
};
