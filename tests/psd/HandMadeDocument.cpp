#include "tests/psd/HandMadeDocument.h"

namespace {

QByteArray fromHex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

QByteArray effect(const QByteArray &key, const QByteArray &content)
{
    return "8BIM" + key + counted(content);
}

QByteArray rowsBehindCounts(const QByteArrayList &packedRows)
{
    QByteArray counts;
    for (const QByteArray &row : packedRows)
        counts += bigEndian(quint64(row.size()), 2);
    return counts + packedRows.join();
}

const QByteArray redChannels = fromHex("0000 ffff 0000 0000 0000");
const QByteArray gray = fromHex("0000 7fff 7fff 7fff 0000");

} // namespace

QByteArray bigEndian(quint64 number, int length)
{
    QByteArray bytes;
    for (int i = length - 1; i >= 0; --i)
        bytes.append(char(number >> (8 * i)));
    return bytes;
}

QByteArray counted(const QByteArray &bytes)
{
    return bigEndian(quint64(bytes.size()), 4) + bytes;
}

QByteArray HandMadeDocument::resource(quint32 number, const QByteArray &content)
{
    return "8BIM" + bigEndian(number, 2) + bigEndian(0, 2) + counted(content);
}

QByteArray HandMadeDocument::block(const QByteArray &key, const QByteArray &content)
{
    return "8BIM" + key + counted(content);
}

QByteArray HandMadeDocument::unicodeName(const QByteArray &name)
{
    QByteArray units;
    for (const char unit : name)
        units += bigEndian(quint8(unit), 2);
    return bigEndian(quint64(name.size()), 4) + units;
}

QByteArray HandMadeDocument::channel(const QByteArrayList &packedRows)
{
    return bigEndian(1, 2) + rowsBehindCounts(packedRows);
}

QByteArrayList HandMadeDocument::effectRecords()
{
    const QByteArray version = bigEndian(2, 4);
    const QByteArray shadow = version + bigEndian(7, 2) + bigEndian(0, 4) + bigEndian(120, 4) + bigEndian(500, 4) +
                              bigEndian(0, 2) + redChannels + "8BIMnorm" + fromHex("01 00 7f") + redChannels;
    const QByteArray glow = version + bigEndian(9, 2) + bigEndian(0, 6) + gray + "8BIMscrn" + fromHex("00 fe");
    return {effect("cmnS", bigEndian(0, 4) + fromHex("01 0000")),
            effect("dsdw", shadow),
            effect("isdw", shadow),
            effect("oglw", glow + gray),
            effect("iglw", glow + fromHex("01") + gray),
            effect("bevl", version + bigEndian(30, 2) + bigEndian(1, 4) + bigEndian(12, 4) + bigEndian(0, 2) +
                               "8BIMscrn8BIMmul " + redChannels + gray + fromHex("02 fd fe 01 01 01") + redChannels +
                               gray),
            effect("sofi", version + "8BIMdiff" + redChannels + fromHex("fe 01") + redChannels)};
}

QByteArray HandMadeDocument::effects(const QByteArrayList &records, quint32 count, quint32 version)
{
    return block("lrFX", bigEndian(version, 2) + bigEndian(count, 2) + records.join());
}

HandMadeDocument::HandMadeDocument()
{
    const QByteArray resolution = bigEndian(72 << 16, 4) + bigEndian(1, 2) + bigEndian(1, 2);
    resources = {resource(1005, resolution + resolution), resource(1024, bigEndian(0, 2)), resource(1039, "icc")};

    const QByteArray raw = bigEndian(0, 2);
    bound.paddedName = "\x0e</Layer group> ";
    bound.blocks = {block("lsct", bigEndian(3, 4)), block("luni", unicodeName("</Layer group>"))};
    bound.channels = {raw, raw, raw, raw};

    // A name beyond ASCII: one unit, but two bytes.
    layer.paddedName = fromHex("01 c3a9 20");
    layer.blocks = {effects(effectRecords()), block("luni", unicodeName("\xe9"))};
    const QByteArray even = fromHex("fe 05");
    const QByteArray mixed = fromHex("02 010203");
    layer.channels = {channel({even, mixed}), channel({fromHex("00 01 01 0203"), even}), channel({mixed, mixed}),
                      channel({fromHex("fe ff"), fromHex("fe ff")})};

    group.paddedName = fromHex("04") + "Wall" + fromHex("20 0000");
    group.blocks = {block("lsct", bigEndian(1, 4) + "8BIMpass"), block("luni", unicodeName("Wall"))};
    group.channels = {raw, raw, raw, raw};

    mergedRows = {even, mixed, even, even, mixed, mixed, fromHex("fe ff"), fromHex("fe ff")};
}

QByteArray HandMadeDocument::Record::bytes() const
{
    QByteArray table = bigEndian(quint64(channelIds.size()), 2);
    for (qsizetype i = 0; i < channelIds.size(); ++i)
        table += channelIds[i] + bigEndian(quint64(channels.value(i).size()), 4);
    return rectangle + table + state + counted(maskAndRanges + paddedName + blocks.join());
}

QByteArray HandMadeDocument::bytes() const
{
    QByteArray layers = bigEndian(layerCount.value_or(quint32(order.size())), 2);
    for (const Record *record : order)
        layers += record->bytes();
    for (const Record *record : order)
        layers += record->channels.join();
    return header + colourMode + counted(resources.join()) + counted(counted(layers + behindChannels) + behindLayers) +
           mergedCompression + rowsBehindCounts(mergedRows) + behindAll;
}
