#include "formats/FileFormat.h"

#include "formats/PSDExport.h"
#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"

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

constexpr std::array formats{
    FileFormat{ProjectFile::extension, false, false, false, &ProjectFile::read, &writeProject},
    FileFormat{ProjectText::extension, false, false, false, &ProjectText::read, &writeText},
    FileFormat{"png", true, false, true, nullptr, &PictureOutput::writePng},
    FileFormat{PSDExport::extension, true, true, false, nullptr, &writePsd},
};

/// ".Orv, .json, .png or .psd"
QString listOf(const QStringList &extensions)
{
    return extensions.mid(0, extensions.size() - 1).join(", ") + " or " + extensions.last();
}

QString readableExtensions()
{
    QStringList extensions;
    for (const FileFormat &format : formats) {
        if (format.read)
            extensions.append(QString(".") + format.extension);
    }
    return listOf(extensions);
}

QString writableExtensions()
{
    QStringList extensions;
    for (const FileFormat &format : formats)
        extensions.append(QString(".") + format.extension);
    return listOf(extensions);
}

const FileFormat *formatOf(const QString &path)
{
    const QString extension = QFileInfo(path).suffix();
    const auto *const format = std::find_if(formats.begin(), formats.end(), [&](const FileFormat &known) {
        return extension.compare(QLatin1StringView(known.extension), Qt::CaseInsensitive) == 0;
    });
    return format == formats.end() ? nullptr : format;
}
} // namespace

Result<FileFormat> FileFormat::toRead(const QString &path)
{
    const FileFormat *format = formatOf(path);
    if (!format)
        return fail(QString("%1: the name must end in %2").arg(path, readableExtensions()));
    if (!format->read)
        return fail(QString("%1: a .%2 file holds no project and can only be written; read a %3 file")
                        .arg(path, format->extension, readableExtensions()));
    return *format;
}

Result<FileFormat> FileFormat::toWrite(const QString &path)
{
    const FileFormat *format = formatOf(path);
    if (!format)
        return fail(QString("%1: the name must end in %2").arg(path, writableExtensions()));
    return *format;
}
