#include "psd/KXPSDWriter.h"
#include "psd/WholeNumbers.h"

#include <QFile>

#include <new>

namespace {
/// Of blocks within the image resources.
enum ResourceId : qint64
{
    Resolution = 1005,
    LayerState = 1024,
    IccProfile = 1039,
};

void writeResourceHead(ByteBuffer &buffer, ResourceId id, qint64 size)
{
    buffer.kxAppendUTF8String(u"8BIM");
    buffer.kxAppendValue(id, 2);
    buffer.kxAppendValue(0, 2); // no name
    buffer.kxAppendValue(size, 4);
}

/// 16 bits before the binary point, 16 behind.
qint64 fixedPoint(float value)
{
    return WholeNumbers::truncated(static_cast<double>(value) * 65536 + 0.5);
}

/// The bytes of an embedded profile; none of one that is not known.
QByteArray profileBytes(qint32 profile)
{
    QString name;
    if (profile == KXPSDWriter::GenericRGB)
        name = "GenericRGB";
    else if (profile == KXPSDWriter::SRGB)
        name = "sRGB";
    else if (profile == KXPSDWriter::AdobeRGB1998)
        name = "AdobeRGB1998";
    QFile file(":/colour-profiles/" + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Fills in a 4-byte length that stands before what it counts.
void closeLength(ByteBuffer &buffer, qsizetype position)
{
    buffer.replaceValue(position, buffer.length() - position - 4, 4);
}

bool fitsFile(const ByteBuffer &buffer, KXPSDError *error)
{
    if (buffer.length() <= KXPSDWriter::mostBytes)
        return true;
    return KXPSDError::tell(error, KXPSDError::TooMuchForFile,
                            "A layered document cannot have more than 2 GB; make it smaller or leave layers out.");
}
} // namespace

void KXPSDWriter::writeFileHeaderSectionOn(ByteBuffer &buffer) const
{
    buffer.kxAppendUTF8String(u"8BPS");
    buffer.kxAppendValue(1, 2); // version
    buffer.kxAppendValue(0, 6);
    buffer.kxAppendValue(numberOfChannels(), 2);
    buffer.kxAppendValue(WholeNumbers::truncated(m_documentSize.height()), 4);
    buffer.kxAppendValue(WholeNumbers::truncated(m_documentSize.width()), 4);
    buffer.kxAppendValue(8, 2); // bits of a channel
    buffer.kxAppendValue(3, 2); // RGB
}

void KXPSDWriter::writeColorModeDataSectionOn(ByteBuffer &buffer) const
{
    buffer.kxAppendValue(0, 4);
}

void KXPSDWriter::writeImageResourceSectionOn(ByteBuffer &buffer) const
{
    const qsizetype section = buffer.length();
    buffer.kxAppendValue(0, 4);

    writeResourceHead(buffer, Resolution, 16);
    buffer.kxAppendValue(fixedPoint(m_documentResolution.hResolution), 4);
    buffer.kxAppendValue(m_documentResolutionUnit, 2);
    buffer.kxAppendValue(1, 2); // widths in inches
    buffer.kxAppendValue(fixedPoint(m_documentResolution.vResolution), 4);
    buffer.kxAppendValue(m_documentResolutionUnit, 2);
    buffer.kxAppendValue(1, 2); // heights in inches

    writeResourceHead(buffer, LayerState, 2);
    buffer.kxAppendValue(0, 2); // the lowest layer is selected

    if (m_colorProfile != NoProfile) {
        const QByteArray profile = profileBytes(m_colorProfile);
        writeResourceHead(buffer, IccProfile, profile.size());
        buffer.append(profile);
    }
    closeLength(buffer, section);
}

bool KXPSDWriter::writeLayerAndMaskInformationSectionOn(ByteBuffer &buffer, KXPSDError *error)
{
    try {
        const qsizetype section = buffer.length();
        buffer.kxAppendValue(0, 4);
        const qsizetype layerInformation = buffer.length();
        buffer.kxAppendValue(0, 4);
        if (!writeLayersOn(buffer, error))
            return false;
        if ((buffer.length() - layerInformation) % 2 != 0)
            buffer.appendZeros(1);
        closeLength(buffer, layerInformation);
        closeLength(buffer, section);
        return true;
    } catch (const std::bad_alloc &) {
        return KXPSDError::tellOutOfMemory(error);
    }
}

/// Records first; the lengths of channels are filled in when these are packed, one layer at a time.
bool KXPSDWriter::writeLayersOn(ByteBuffer &buffer, KXPSDError *error)
{
    const std::vector<LayerPointer> visible = visibleLayers();
    if (std::ssize(visible) > mostLayers) {
        return KXPSDError::tell(error, KXPSDError::TooMuchForFile,
                                QString("A layered document can have %1 layers, ends of groups included, not %2.")
                                    .arg(mostLayers)
                                    .arg(visible.size()));
    }
    buffer.kxAppendValue(std::ssize(visible), 2);
    std::vector<qsizetype> records;
    for (const LayerPointer &layer : visible) {
        records.push_back(buffer.length());
        layer->writeLayerRecordOn(buffer, {});
        if (!fitsFile(buffer, error))
            return false;
    }

    for (std::size_t i = 0; i < visible.size(); ++i) {
        const std::vector<qint64> lengths = visible[i]->writeLayerChannelsOn(buffer, m_packer, error);
        if (lengths.empty() || !fitsFile(buffer, error))
            return false;
        KXPSDLayer::replaceChannelLengths(buffer, records[i], lengths);
        if (!tellProgress(static_cast<double>(i + 1) / static_cast<double>(visible.size() + 1), error))
            return false;
    }
    return true;
}

bool KXPSDWriter::writeImageDataSectionOn(ByteBuffer &buffer, KXPSDError *error)
{
    if (m_flattenedSnapshot.isNull())
        return KXPSDError::tellOutOfMemory(error);
    try {
        appendTogether(buffer, m_packer.pack(m_flattenedSnapshot, numberOfChannels()));
        return fitsFile(buffer, error);
    } catch (const std::bad_alloc &) {
        return KXPSDError::tellOutOfMemory(error);
    }
}

bool KXPSDWriter::tellProgress(double share, KXPSDError *error) const
{
    if (!m_progress || m_progress(share))
        return true;
    return KXPSDError::tell(error, KXPSDError::Cancelled, "The layered document was cancelled.");
}
