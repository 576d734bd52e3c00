#include "tests/app/LayeredFile.h"

#include <QDataStream>
#include <QFile>
#include <QPoint>

#include <gtest/gtest.h>

namespace {
template <typename T>
T taken(QDataStream &stream)
{
    T value{};
    stream >> value;
    return value;
}

QByteArray takenBytes(QDataStream &stream, quint32 count)
{
    QByteArray bytes(qMin<qint64>(count, stream.device()->bytesAvailable()), '\0');
    stream.readRawData(bytes.data(), static_cast<int>(bytes.size()));
    return bytes;
}

QByteArray unpacked(const QByteArray &packed)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < packed.size();) {
        const auto head = static_cast<signed char>(packed[i++]);
        if (head >= 0) {
            bytes += packed.mid(i, head + 1);
            i += head + 1;
        } else {
            bytes += QByteArray(1 - head, packed.at(i++));
        }
    }
    return bytes;
}

/// What a record tells beside the layer itself.
struct Record
{
    LayeredFile::Layer layer;
    std::vector<std::pair<qint16, quint32>> channels; ///< number and length
};

QString unicodeName(const QByteArray &extra)
{
    const qsizetype block = extra.indexOf("8BIMluni");
    QDataStream stream(extra.mid(block + 12));
    QString name;
    for (auto count = taken<quint32>(stream); count > 0 && !stream.atEnd(); --count)
        name += QChar(taken<quint16>(stream));
    return block < 0 ? QString("no Unicode name") : name;
}

Record takenRecord(QDataStream &stream)
{
    Record record;
    stream.skipRawData(16); // the whole document
    for (auto count = taken<quint16>(stream); count > 0 && !stream.atEnd(); --count) {
        const auto number = taken<qint16>(stream);
        record.channels.emplace_back(number, taken<quint32>(stream));
    }
    EXPECT_EQ(takenBytes(stream, 8), "8BIMnorm");
    record.layer.opacity = taken<quint8>(stream);
    stream.skipRawData(3);
    record.layer.name = unicodeName(takenBytes(stream, taken<quint32>(stream)));
    return record;
}

void takeChannel(QDataStream &stream, int number, QImage &picture)
{
    EXPECT_EQ(taken<quint16>(stream), 1U);
    std::vector<quint16> counts;
    for (int y = 0; y < picture.height(); ++y)
        counts.push_back(taken<quint16>(stream));
    const int shift = number < 0 ? 24 : 16 - 8 * number;
    for (int y = 0; y < picture.height(); ++y) {
        const QByteArray row = unpacked(takenBytes(stream, counts[static_cast<std::size_t>(y)]));
        ASSERT_EQ(row.size(), picture.width()) << "row " << y << " of channel " << number;
        auto *pixels = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            pixels[x] |= static_cast<QRgb>(static_cast<uchar>(row[x])) << shift;
    }
}
} // namespace

LayeredFile LayeredFile::read(const QByteArray &bytes)
{
    QDataStream stream(bytes);
    EXPECT_EQ(takenBytes(stream, 4), "8BPS");
    stream.skipRawData(10);
    LayeredFile file;
    file.size.setHeight(taken<qint32>(stream));
    file.size.setWidth(taken<qint32>(stream));
    stream.skipRawData(4);
    takenBytes(stream, taken<quint32>(stream)); // colour mode
    takenBytes(stream, taken<quint32>(stream)); // resources
    stream.skipRawData(8);

    std::vector<Record> records;
    for (auto count = taken<qint16>(stream); count > 0 && !stream.atEnd(); --count)
        records.push_back(takenRecord(stream));
    for (Record &record : records) {
        record.layer.picture = QImage(file.size, QImage::Format_ARGB32_Premultiplied);
        record.layer.picture.fill(Qt::transparent);
        for (const auto &[number, length] : record.channels) {
            const qint64 end = stream.device()->pos() + length;
            takeChannel(stream, number, record.layer.picture);
            EXPECT_EQ(stream.device()->pos(), end);
        }
        file.layers.push_back(record.layer);
    }
    EXPECT_EQ(stream.status(), QDataStream::Ok);
    return file;
}

LayeredFile LayeredFile::readFrom(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return read(file.readAll());
}

QStringList LayeredFile::names() const
{
    QStringList names;
    for (const Layer &layer : layers)
        names.append(layer.name);
    return names;
}

QList<int> LayeredFile::opacities() const
{
    QList<int> opacities;
    for (const Layer &layer : layers)
        opacities.append(layer.opacity);
    return opacities;
}
