#include "tests/psd/LayeredDocument.h"

#include "tests/psd/DocumentCursor.h"
#include "tests/psd/ReadEffects.h"

#include <utility>

namespace {

using Layer = LayeredDocument::Layer;
using Plane = LayeredDocument::Plane;

/// Unpacks one row; empty where its packets are cut off or one is the header -128, which has no meaning.
QByteArray unpackedRow(QByteArrayView packets)
{
    QByteArray row;
    while (!packets.isEmpty()) {
        const auto header = static_cast<qint8>(packets[0]);
        const qsizetype used = header >= 0 ? header + 2 : 2;
        if (header == -128 || packets.size() < used)
            return {};
        if (header >= 0)
            row.append(packets.sliced(1, header + 1));
        else
            row.append(1 - header, packets[1]);
        packets = packets.sliced(used);
    }
    return row;
}

/// Walks through the sections of a file, from the first byte to the last.
class DocumentReader
{
public:
    explicit DocumentReader(QByteArrayView bytes) : m_file(bytes) {}
    Result<LayeredDocument> read();

private:
    /// What a record says of its channels.
    using ChannelLengths = std::vector<quint32>;

    void readHeader();
    void readResources();
    void readResolution();
    void readLayersAndMasks();
    void readPad(qsizetype start, qsizetype end);
    ChannelLengths readRecord(Layer &layer);
    ChannelLengths readChannelTable();
    void readExtraData(Layer &layer);
    void readBlock(Layer &layer, const QByteArray &key);
    void readSection(Layer &layer);
    QString readUnicodeName();
    void expectPaddedName(qsizetype place, const QByteArray &padded, const QString &name);
    void checkRecord(qsizetype place, const Layer &layer, qsizetype channels);
    void checkGroups();
    Plane readChannel(const Layer &layer, quint32 length);
    std::vector<quint32> readRowCounts();
    Plane readRows(const std::vector<quint32> &counts);
    void readMergedImage();

    DocumentCursor m_file;
    LayeredDocument m_document;
};

Result<LayeredDocument> DocumentReader::read()
{
    readHeader();
    m_file.expect(0, 4, "the length of the colour mode data");
    readResources();
    readLayersAndMasks();
    readMergedImage();
    if (m_file.bytesLeft() > 0)
        m_file.refuse(m_file.position(), "there is more behind the merged image");
    if (!m_file.isGood())
        return fail(m_file.fault());
    return std::move(m_document);
}

void DocumentReader::readHeader()
{
    m_file.key({"8BPS"}, "the signature");
    m_file.expect(1, 2, "the version");
    m_file.expectZeros(6, "the reserved space");
    m_document.channels = int(m_file.number(2, 3, 4, "the number of channels"));
    m_document.height = int(m_file.number(4, 1, 30000, "the height"));
    m_document.width = int(m_file.number(4, 1, 30000, "the width"));
    m_file.expect(8, 2, "the depth");
    m_file.expect(3, 2, "the colour mode");
}

void DocumentReader::readResources()
{
    const qsizetype end = m_file.blockEnd("the image resources");
    readResolution();
    m_file.key({"8BIM"}, "the layer state's signature");
    m_file.expect(1024, 2, "the layer state's number");
    m_file.expect(0, 2, "the layer state's name");
    m_file.expect(2, 4, "the layer state's size");
    m_file.expect(0, 2, "the layer state");
    if (m_file.isBefore(end)) {
        m_file.key({"8BIM"}, "the colour profile's signature");
        m_file.expect(1039, 2, "the colour profile's number");
        m_file.expect(0, 2, "the colour profile's name");
        const qsizetype profileEnd = m_file.blockEnd("the colour profile");
        m_document.colourProfile = m_file.take(profileEnd - m_file.position(), "the colour profile");
    }
    m_file.expectEnd(end, "the image resources");
}

void DocumentReader::readResolution()
{
    m_file.key({"8BIM"}, "the resolution's signature");
    m_file.expect(1005, 2, "the resolution's number");
    m_file.expect(0, 2, "the resolution's name");
    m_file.expect(16, 4, "the resolution's size");
    m_document.horizontalResolution = m_file.number(4, "the horizontal resolution");
    m_document.resolutionUnit = m_file.number(2, 1, 2, "the resolution's unit");
    m_file.expect(1, 2, "the width's unit");
    m_document.verticalResolution = m_file.number(4, "the vertical resolution");
    m_file.expect(m_document.resolutionUnit, 2, "the vertical resolution's unit");
    m_file.expect(1, 2, "the height's unit");
}

void DocumentReader::readLayersAndMasks()
{
    const qsizetype sectionEnd = m_file.blockEnd("the layer and mask information");
    const qsizetype layersEnd = m_file.blockEnd("the layer information");
    const qsizetype start = m_file.position();
    const quint32 count = m_file.number(2, 1, 0x7fff, "the number of layers");
    std::vector<ChannelLengths> lengths;
    for (quint32 i = 0; i < count && m_file.isGood(); ++i)
        lengths.push_back(readRecord(m_document.layers.emplace_back()));
    checkGroups();
    for (std::size_t i = 0; m_file.isGood() && i < lengths.size(); ++i)
        for (const quint32 length : lengths[i])
            m_document.layers[i].planes.push_back(readChannel(m_document.layers[i], length));
    readPad(start, layersEnd);
    m_file.expectEnd(sectionEnd, "the layer and mask information");
}

void DocumentReader::readPad(qsizetype start, qsizetype end)
{
    if ((m_file.position() - start) % 2 == 1)
        m_file.expectZeros(1, "the byte that makes the layer information even");
    m_file.expectEnd(end, "the layer information");
}

DocumentReader::ChannelLengths DocumentReader::readRecord(Layer &layer)
{
    const qsizetype place = m_file.position();
    m_file.expect(0, 4, "a layer's top");
    m_file.expect(0, 4, "a layer's left edge");
    m_file.expect(quint32(m_document.height), 4, "a layer's bottom");
    m_file.expect(quint32(m_document.width), 4, "a layer's right edge");
    ChannelLengths lengths = readChannelTable();
    layer.blendMode = readBlendMode(m_file);
    layer.opacity = m_file.number(1, "a layer's opacity");
    m_file.expectZeros(3, "a layer's clipping, flags and filler");
    readExtraData(layer);
    checkRecord(place, layer, qsizetype(lengths.size()));
    return lengths;
}

DocumentReader::ChannelLengths DocumentReader::readChannelTable()
{
    static constexpr quint32 ids[] = {0, 1, 2, 0xffff};
    const quint32 count = m_file.number(2, 3, 4, "a layer's number of channels");
    ChannelLengths lengths;
    for (quint32 i = 0; i < count; ++i) {
        m_file.expect(ids[i], 2, "a channel's number");
        lengths.push_back(m_file.number(4, "a channel's length"));
    }
    return lengths;
}

void DocumentReader::readExtraData(Layer &layer)
{
    const qsizetype end = m_file.blockEnd("a layer's extra data");
    m_file.expect(0, 4, "the length of a layer's mask");
    m_file.expect(0, 4, "the length of a layer's blending ranges");

    const qsizetype namePlace = m_file.position();
    const quint32 nameLength = m_file.number(1, "a name's length");
    const QByteArray paddedName = m_file.take((nameLength + 4) / 4 * 4 - 1, "a name");

    const QByteArrayList order{"lsct", "lrFX", "luni"};
    QByteArray last;
    while (m_file.isBefore(end)) {
        const qsizetype place = m_file.position();
        m_file.key({"8BIM"}, "a block's signature");
        const QByteArray key = m_file.key({"lsct", "lrFX", "luni"}, "a block's key");
        if (!last.isEmpty() && order.indexOf(key) <= order.indexOf(last))
            m_file.refuse(place, QString("a block \"%1\" behind \"%2\"").arg(key, last));
        readBlock(layer, key);
        last = key;
    }
    m_file.expectEnd(end, "a layer's extra data");
    if (last != "luni")
        m_file.refuse(end, "a layer without a Unicode name");
    if (quint32(layer.name.size()) != nameLength)
        m_file.refuse(namePlace, "a name's length is not that of the Unicode name");
    expectPaddedName(namePlace, paddedName, layer.name);
}

void DocumentReader::readBlock(Layer &layer, const QByteArray &key)
{
    const qsizetype end = m_file.blockEnd("a block");
    if (key == "lsct")
        readSection(layer);
    else if (key == "lrFX")
        layer.effects = readEffects(m_file);
    else
        layer.name = readUnicodeName();
    m_file.expectEnd(end, "a block");
}

/// The lower bound of a group has nothing but its type; the group says that its members meet what lies below it.
void DocumentReader::readSection(Layer &layer)
{
    layer.section = LayeredDocument::Section(m_file.number(4, 1, 3, "a section's type"));
    if (layer.section == LayeredDocument::GroupBound)
        return;
    m_file.key({"8BIM"}, "a section's signature");
    m_file.key({"pass"}, "a section's blend mode");
}

QString DocumentReader::readUnicodeName()
{
    const quint32 count = m_file.number(4, 0, 255, "the length of a Unicode name");
    QString name;
    for (quint32 i = 0; i < count; ++i)
        name.append(QChar(quint16(m_file.number(2, "a Unicode name"))));
    return name;
}

/// The first bytes of the name in UTF-8, a space and zeros. The length counts UTF-16 units, so that names beyond ASCII
/// are cut off.
void DocumentReader::expectPaddedName(qsizetype place, const QByteArray &padded, const QString &name)
{
    const QByteArray text = name.toUtf8() + ' ' + QByteArray(4, '\0');
    if (m_file.isGood() && padded != text.first(padded.size()))
        m_file.refuse(place, "a name is not the Unicode name");
}

void DocumentReader::checkRecord(qsizetype place, const Layer &layer, qsizetype channels)
{
    const bool isPicture = layer.section == LayeredDocument::Picture;
    if (isPicture && channels != m_document.channels)
        m_file.refuse(place, "a layer does not have the document's number of channels");
    if (!isPicture && channels != 4)
        m_file.refuse(place, "a group does not have four channels");
    if (layer.section != LayeredDocument::GroupBound)
        return;
    if (layer.name != "</Layer group>")
        m_file.refuse(place, "the lower bound of a group has a name of its own");
    if (layer.effects.has_value())
        m_file.refuse(place, "the lower bound of a group has effects");
}

void DocumentReader::checkGroups()
{
    int depth = 0;
    for (const Layer &layer : m_document.layers) {
        if (layer.section == LayeredDocument::GroupBound)
            ++depth;
        else if (layer.section != LayeredDocument::Picture && --depth < 0)
            m_file.refuse(m_file.position(), "a group without a lower bound");
    }
    if (depth > 0)
        m_file.refuse(m_file.position(), "the lower bound of no group");
}

/// A channel of a group is raw and has no samples.
Plane DocumentReader::readChannel(const Layer &layer, quint32 length)
{
    const qsizetype end = m_file.position() + length;
    Plane plane;
    if (layer.section != LayeredDocument::Picture) {
        m_file.expect(0, 2, "the compression of a group's channel");
    } else {
        m_file.expect(1, 2, "the compression of a channel");
        plane = readRows(readRowCounts());
    }
    m_file.expectEnd(end, "a channel");
    return plane;
}

std::vector<quint32> DocumentReader::readRowCounts()
{
    std::vector<quint32> counts;
    for (int row = 0; row < m_document.height && m_file.isGood(); ++row)
        counts.push_back(m_file.number(2, "the length of a row"));
    return counts;
}

Plane DocumentReader::readRows(const std::vector<quint32> &counts)
{
    Plane plane;
    for (const quint32 count : counts) {
        const qsizetype place = m_file.position();
        const QByteArray row = unpackedRow(m_file.take(count, "a row"));
        if (row.size() != m_document.width)
            m_file.refuse(place, QString("a row of %1 samples").arg(row.size()));
        if (!m_file.isGood())
            return {};
        plane.append(row);
    }
    return plane;
}

void DocumentReader::readMergedImage()
{
    m_file.expect(1, 2, "the compression of the merged image");
    std::vector<std::vector<quint32>> counts;
    for (int channel = 0; channel < m_document.channels; ++channel)
        counts.push_back(readRowCounts());
    for (const std::vector<quint32> &ofChannel : counts)
        m_document.merged.push_back(readRows(ofChannel));
}

} // namespace

Result<LayeredDocument> LayeredDocument::read(QByteArrayView file)
{
    return DocumentReader(file).read();
}

QImage LayeredDocument::picture(const std::vector<Plane> &planes, const QSize &size)
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    qsizetype sample = 0;
    for (int y = 0; y < size.height(); ++y) {
        auto *pixels = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x, ++sample) {
            const int alpha = planes.size() > 3 ? quint8(planes[3][sample]) : 255;
            pixels[x] = qRgba(quint8(planes[0][sample]), quint8(planes[1][sample]), quint8(planes[2][sample]), alpha);
        }
    }
    return picture;
}
