#pragma once

#include "formats/PictureOutput.h"
#include "show/Project.h"

#include <QString>
#include <QStringList>

#include <span>

/// A kind of file that is read or written. One table holds them all, for the window's panels and what is dropped on it,
/// for the command line and for what desktops are told.
struct FileFormat
{
    /// The rows of the table, in their order.
    enum class Kind
    {
        Project,
        Text,
        Png,
        Psd,
        Ports,
        Presets,
        Picture
    };
    /// What is had from such a file when it is opened.
    enum class Gives
    {
        Nothing, ///< it is only written
        Project,
        Presets,
        Layer
    };
    /// How the extension joins the name that a person typed.
    enum class Appended
    {
        WhereMissing, ///< "show" and "show.png" both become "show.png"; upper and lower case differ
        Always,       ///< "show.psd" becomes "show.psd.psd"
        Never         ///< the name as it was typed
    };

    Kind kind;
    const char *extension; ///< as it is written; empty: files have any name
    const char *content;   ///< for people: "project as readable text"
    Gives gives;
    Appended appended = Appended::WhereMissing;
    bool isSaved = false;      ///< the window saves the document into such a file
    bool isPicture = false;    ///< shows the project instead of holding it
    bool isLayered = false;    ///< holds every layer, hidden ones too, in its own pixels
    bool usesSettings = false; ///< can be a single layer, and shows what is behind: PictureSettings concern it
    /// Whether values of the project that this version does not know cannot stand in such a file; null: it shows the
    /// project, or holds none.
    bool (*leavesOut)(const Project &project) = nullptr;
    const char *mimeType = nullptr; ///< by which desktops open such files with the program; null: they do not
    /// Null: no project comes from it.
    Result<Project> (*read)(const QString &path, LayerHost &host) = nullptr;
    /// Null: no project goes into it.
    Result<void> (*write)(const QString &path, const Project &project, const PictureSettings &settings) = nullptr;

    static std::span<const FileFormat> all();
    static const FileFormat &of(Kind kind);
    /// By the extension of a file's name, in upper or lower case; null: there is none such.
    static const FileFormat *named(const QString &path);

    /// The format of a file that a project is to be read from. Error: there is none, or files of it are only written.
    [[nodiscard]] static Result<FileFormat> toRead(const QString &path);
    /// The format of a file that a project is to be written to. Error: there is none.
    [[nodiscard]] static Result<FileFormat> toWrite(const QString &path);
    /// The project in a file; pixels per port that walls leave to their processor are what that carries. Error: that of
    /// toRead(), or it cannot be read; the message begins with the path.
    [[nodiscard]] static Result<Project> readProject(const QString &path, LayerHost &host);
    /// The format in which a person's file is opened, whatever its name: a project's own where the name tells no other.
    static const FileFormat &toOpen(const QString &path);

    /// What a panel lists of the files that give it: "*.Orv *.orv *.json"; empty: they have any name.
    static QStringList patternsOf(Gives gives);

    /// The file that is written when a person typed this name.
    QString finalPath(const QString &typed) const;
};
