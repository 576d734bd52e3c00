#include "formats/FileKind.h"

#include <QBuffer>
#include <QImageReader>
#include <QStringConverter>
#include <QStringDecoder>

namespace {
bool isXml(const QByteArray &bytes)
{
    constexpr qsizetype enough = 4096;
    const auto encoding = QStringConverter::encodingForData(bytes, u'<').value_or(QStringConverter::Utf8);
    const QString begin = QStringDecoder(encoding)(bytes.first(qMin(enough, bytes.size())));
    return begin.trimmed().startsWith(u'<') && !begin.contains("<svg");
}

bool isPicture(const QByteArray &bytes)
{
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    return QImageReader(&buffer).canRead();
}

/// What to do with a picture that is no project, or another thing.
tl::unexpected<Error> failPicture(const QString &noun)
{
    return fail(QString("this is no %1. To place a picture use Layer > Add image.").arg(noun));
}
} // namespace

namespace FileKind {

Result<void> checkArchive(const QByteArray &bytes, const QString &noun)
{
    if (bytes.startsWith("bplist") || isXml(bytes))
        return {};
    if (bytes.isEmpty())
        return fail(QString("this is no %1, the file is empty. Look for another copy of it.").arg(noun));
    if (bytes.startsWith("8BPS"))
        return fail(QString("this is no %1, but a layered picture, which is only written.").arg(noun));
    if (isPicture(bytes))
        return failPicture(noun);
    if (bytes.trimmed().startsWith('{'))
        return fail(QString("this is no %1, but text. If it is a project, let its name end in .json.").arg(noun));
    return fail(QString("this is no %1. Open a file that was saved as one.").arg(noun));
}

Result<void> checkText(const QByteArray &bytes)
{
    if (bytes.startsWith("bplist"))
        return fail("this is no text, but an archive. If it is a project, let its name end in .Orv.");
    if (!bytes.trimmed().startsWith('{') && isPicture(bytes))
        return failPicture("project");
    return {};
}

} // namespace FileKind
