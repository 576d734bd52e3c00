#include "formats/FileFormat.h"

#include "base/FileBytes.h"
#include "facts/UnknownValues.h"
#include "formats/PSDExport.h"
#include "formats/PortsTable.h"
#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "show/ShowProcessors.h"
#include "still/PictureKind.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {
Result<void> writeProject(const QString &path, const Project &project, const PictureSettings & /*settings*/)
{
    return ProjectFile::write(path, project);
}

Result<void> writeText(const QString &path, const Project &project, const PictureSettings & /*settings*/)
{
    return ProjectText::write(path, project);
}

Result<void> writePsd(const QString &path, const Project &project, const PictureSettings & /*settings*/)
{
    return PictureOutput::writePsd(path, project);
}

Result<void> writePorts(const QString &path, const Project &project, const PictureSettings & /*settings*/)
{
    return PortsTable::write(path, project);
}

using Kind = FileFormat::Kind;
using Gives = FileFormat::Gives;
using Appended = FileFormat::Appended;

constexpr std::array formats{
    FileFormat{
        .kind = Kind::Project,
        .extension = ProjectFile::extension,
        .content = "project",
        .gives = Gives::Project,
        .isSaved = true,
        .leavesOut = &UnknownValues::areOfText,
        .mimeType = "application/x-wallwright",
        .read = &ProjectFile::read,
        .write = &writeProject,
    },
    FileFormat{
        .kind = Kind::Text,
        .extension = ProjectText::extension,
        .content = "project as readable text",
        .gives = Gives::Project,
        .leavesOut = &UnknownValues::areOfArchive,
        .read = &ProjectText::read,
        .write = &writeText,
    },
    FileFormat{
        .kind = Kind::Png,
        .extension = "png",
        .content = "picture of the output",
        .gives = Gives::Nothing,
        .isPicture = true,
        .usesSettings = true,
        .write = &PictureOutput::writePng,
    },
    FileFormat{
        .kind = Kind::Psd,
        .extension = PSDExport::extension,
        .content = "layered picture, each layer of the project one of its own, hidden ones too",
        .gives = Gives::Nothing,
        .appended = Appended::Always,
        .isPicture = true,
        .isLayered = true,
        .write = &writePsd,
    },
    FileFormat{
        .kind = Kind::Ports,
        .extension = PortsTable::extension,
        .content = "table of the panels on the show's ports, in the order of their cables",
        .gives = Gives::Nothing,
        .write = &writePorts,
    },
    FileFormat{
        .kind = Kind::Presets,
        .extension = "",
        .content = "preset library",
        .gives = Gives::Presets,
        .appended = Appended::Never,
    },
    FileFormat{
        .kind = Kind::Picture,
        .extension = "",
        .content = "picture",
        .gives = Gives::Layer,
    },
};

/// ".Orv, .json, .png or .psd": of the formats of which `isMeant`.
template <typename Condition>
QString extensionsWhere(Condition isMeant)
{
    QStringList extensions;
    for (const FileFormat &format : formats) {
        if (isMeant(format))
            extensions.append(QString(".") + format.extension);
    }
    return extensions.mid(0, extensions.size() - 1).join(", ") + " or " + extensions.last();
}

QString readableExtensions()
{
    return extensionsWhere([](const FileFormat &format) { return format.read != nullptr; });
}

/// Pictures are those that are shown and that Qt's plugins read; names with an extension are listed in lower case too.
QStringList patternsOf(const FileFormat &format)
{
    QStringList patterns;
    if (format.gives == Gives::Layer) {
        for (const QByteArray &suffix : PictureKind::readable())
            patterns.append("*." + QString::fromLatin1(suffix));
    } else if (*format.extension) {
        patterns = {QString("*.") + format.extension, QString("*.") + QString(format.extension).toLower()};
    }
    patterns.removeDuplicates();
    return patterns;
}
} // namespace

std::span<const FileFormat> FileFormat::all()
{
    return formats;
}

const FileFormat &FileFormat::of(Kind kind)
{
    return formats[static_cast<std::size_t>(kind)];
}

const FileFormat *FileFormat::named(const QString &path)
{
    const QString extension = QFileInfo(path).suffix();
    const auto *const format = std::find_if(formats.begin(), formats.end(), [&](const FileFormat &known) {
        return *known.extension && extension.compare(QLatin1StringView(known.extension), Qt::CaseInsensitive) == 0;
    });
    return format == formats.end() ? nullptr : format;
}

Result<FileFormat> FileFormat::toRead(const QString &path)
{
    const FileFormat *format = named(path);
    if (!format)
        return fail(QString("%1: the name must end in %2").arg(path, readableExtensions()));
    if (!format->read)
        return fail(QString("%1: a .%2 file holds no project and can only be written; read a %3 file")
                        .arg(path, format->extension, readableExtensions()));
    return *format;
}

Result<FileFormat> FileFormat::toWrite(const QString &path)
{
    const FileFormat *format = named(path);
    if (!format)
        return fail(QString("%1: the name must end in %2").arg(path, extensionsWhere([](const FileFormat &known) {
                                                                   return known.write != nullptr;
                                                               })));
    return *format;
}

Result<Project> FileFormat::readProject(const QString &path, LayerHost &host)
{
    return toRead(path)
        .and_then([&](const FileFormat &format) { return format.read(path, host); })
        .map([](const Project &project) {
            ShowProcessors::followLimits(project.layers, project.processors,
                                         {project.outputWidth, project.outputHeight});
            return project;
        });
}

const FileFormat &FileFormat::toOpen(const QString &path)
{
    const FileFormat *format = named(path);
    return format && format->read ? *format : of(Kind::Project);
}

QStringList FileFormat::patternsOf(Gives gives)
{
    QStringList patterns;
    for (const FileFormat &format : formats) {
        if (format.gives == gives)
            patterns += ::patternsOf(format);
    }
    return patterns;
}

QString FileFormat::finalPath(const QString &typed) const
{
    switch (appended) {
    case Appended::WhereMissing:
        return FileBytes::withExtension(typed, extension);
    case Appended::Always:
        return typed + '.' + extension;
    case Appended::Never:
        break;
    }
    return typed;
}
