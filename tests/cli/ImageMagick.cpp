#include "tests/cli/ImageMagick.h"

#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace {

constexpr int patience = 120'000; // milliseconds

/// What a program writes; a failure of the test where it ends with an error.
QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(patience)) << qPrintable(program) << ": " << qPrintable(process.errorString());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return process.readAllStandardOutput();
}

bool isImageMagick(const QString &program)
{
    QProcess process;
    process.start(program, {"-version"});
    return process.waitForFinished(patience) && process.readAllStandardOutput().contains("ImageMagick");
}

QString firstOf(const QStringList &names)
{
    for (const QString &name : names) {
        QString program = QStandardPaths::findExecutable(name);
        if (!program.isEmpty() && isImageMagick(program))
            return program;
    }
    return {};
}

} // namespace

std::optional<ImageMagick> ImageMagick::find()
{
    const QString identify = firstOf({"identify", "identify-im6.q16"});
    const QString convert = firstOf({"magick", "convert-im6.q16", "convert"});
    if (identify.isEmpty() || convert.isEmpty())
        return {};
    return ImageMagick(identify, convert);
}

QList<ImageMagick::Frame> ImageMagick::frames(const QString &path) const
{
    QList<Frame> frames;
    const QByteArray lines = outputOf(m_identify, {"-format", "%w %h %l\\n", path});
    for (const QByteArray &line : lines.chopped(lines.endsWith('\n')).split('\n')) {
        const QString text = QString::fromUtf8(line);
        frames.append({{text.section(' ', 0, 0).toInt(), text.section(' ', 1, 1).toInt()}, text.section(' ', 2)});
    }
    return frames;
}

QImage ImageMagick::picture(const QString &path, int frame) const
{
    const QString source = QString("%1[%2]").arg(path).arg(frame);
    const QList<QByteArray> size = outputOf(m_identify, {"-format", "%w %h", source}).split(' ');
    const QByteArray pixels = outputOf(m_convert, {source, "-depth", "8", "rgba:-"});
    if (size.size() != 2 || pixels.size() != size[0].toLongLong() * size[1].toLongLong() * 4) {
        ADD_FAILURE() << qPrintable(source) << ": " << pixels.size() << " bytes";
        return {};
    }
    const auto *bytes = reinterpret_cast<const uchar *>(pixels.constData());
    return QImage(bytes, size[0].toInt(), size[1].toInt(), QImage::Format_RGBA8888).copy();
}
