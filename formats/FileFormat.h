#pragma once

#include "formats/PictureOutput.h"
#include "show/Project.h"

#include <QString>

/// A kind of file that projects are read from or written to, known by the extension, in upper or lower case.
struct FileFormat
{
    const char *extension;
    bool isPicture;    ///< shows the project instead of holding it
    bool isLayered;    ///< holds every layer, hidden ones too, in its own pixels
    bool usesSettings; ///< can be a single layer, and shows what is behind the layers: PictureSettings concern it
    /// Null: files of this format are only written.
    Result<Project> (*read)(const QString &path, LayerHost &host);
    Result<void> (*write)(const QString &path, const Project &project, const PictureSettings &settings);

    /// The format of a file that is to be read. Error: there is none, or files of it are only written.
    [[nodiscard]] static Result<FileFormat> toRead(const QString &path);
    /// The format of a file that is to be written. Error: there is none.
    [[nodiscard]] static Result<FileFormat> toWrite(const QString &path);
};
