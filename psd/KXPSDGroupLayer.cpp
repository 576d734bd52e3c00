#include "psd/KXPSDGroupLayer.h"

namespace {
/// What a group's lower bound is called in files.
constexpr QStringView boundName = u"</Layer group>";

/// What a record of a group is within a "lsct" block.
enum Divider : qint64
{
    OpenedGroup = 1,
    ClosedGroup = 2,
    LowerBound = 3,
};

/// The head of a record's extra data: neither a mask nor blending ranges.
void writeNoMaskNorRanges(ByteBuffer &buffer)
{
    buffer.kxAppendValue(0, 4);
    buffer.kxAppendValue(0, 4);
}

void writeDivider(ByteBuffer &buffer, Divider divider, qint64 length)
{
    buffer.kxAppendUTF8String(u"8BIM");
    buffer.kxAppendUTF8String(u"lsct");
    buffer.kxAppendValue(length, 4);
    buffer.kxAppendValue(divider, 4);
}
} // namespace

KXPSDGroupLayer::KXPSDGroupLayer(const QString &name, float opacity, bool isOpened) : m_isOpened(isOpened)
{
    setName(name);
    setOpacity(opacity);
}

void KXPSDGroupLayer::copyGroupInformationFrom(const KXPSDGroupLayer &other)
{
    setName(other.name());
    setOpacity(other.opacity());
    setIsOpened(other.isOpened());
    effects() = other.effects();
}

std::vector<qint64> KXPSDGroupLayer::writeChannels(ByteBuffer &buffer, ChannelPacker &, KXPSDError *) const
{
    constexpr qint64 compressionBytes = 2;
    buffer.appendZeros(numberOfChannels() * compressionBytes);
    return std::vector(static_cast<std::size_t>(numberOfChannels()), compressionBytes);
}

ByteBuffer KXPSDGroupOpeningLayer::extraLayerInformation()
{
    ByteBuffer extra;
    writeNoMaskNorRanges(extra);
    writeName(extra, boundName);
    writeDivider(extra, LowerBound, 4);
    writeUnicodeName(extra, boundName);
    return extra;
}

void KXPSDGroupClosingLayer::takeOverOpeningLayer()
{
    if (m_groupOpeningLayer)
        copyGroupInformationFrom(*m_groupOpeningLayer);
}

void KXPSDGroupClosingLayer::writeLayerRecordOn(ByteBuffer &buffer, std::span<const qint64> channelLengths)
{
    takeOverOpeningLayer(); // before the opacity is written
    KXPSDGroupLayer::writeLayerRecordOn(buffer, channelLengths);
}

ByteBuffer KXPSDGroupClosingLayer::extraLayerInformation()
{
    takeOverOpeningLayer();
    ByteBuffer extra;
    writeNoMaskNorRanges(extra);
    writeNameOn(extra);
    writeDivider(extra, isOpened() ? OpenedGroup : ClosedGroup, 12);
    extra.kxAppendUTF8String(u"8BIM");
    extra.append(KXPSDBlendMode::passThrough.key());
    writeEffectsLayerOn(extra);
    writeUnicodeNameOn(extra);
    return extra;
}
