#include "still/DrawingCheck.h"

#include "drawing/Raster.h"

#include <QBuffer>
#include <QImageReader>
#include <QMultiHash>
#include <QXmlStreamReader>

#include <algorithm>
#include <optional>
#include <vector>

namespace {
constexpr qint64 mostBytesOfDrawing = qint64{1} << 27;
constexpr qint64 mostElements = qint64{1} << 20;
constexpr qint64 mostElementsTimesPixels = qint64{1} << 41; // minutes, if each element covers the picture
constexpr int deepestNesting = 1000;                        // of which each level takes some of the stack

/// `embeddedPixels` is what the drawing may still embed.
bool isHarmless(const QByteArray &bytes, qint64 &embeddedPixels);

/// The size that a picture announces; not valid where the bytes are no picture.
QSize announcedSize(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    return QImageReader(&buffer).size();
}

bool isAddress(const QXmlStreamAttribute &attribute)
{
    const QStringView name = attribute.qualifiedName();
    return name == u"href" || name.endsWith(u":href");
}

bool isName(const QXmlStreamAttribute &attribute)
{
    const QStringView name = attribute.qualifiedName();
    return name == u"id" || name.endsWith(u":id");
}

/// Whether the address names nothing outside the drawing.
bool isEmbedded(QStringView address, qint64 &embeddedPixels)
{
    static const QString encoding("base64,");
    const qsizetype start = address.lastIndexOf(encoding);
    if (!address.startsWith(u"data:") || start < 0)
        return false;
    const QByteArray bytes = QByteArray::fromBase64(address.mid(start + encoding.size()).toLatin1());
    if (!isHarmless(bytes, embeddedPixels))
        return false;
    const QSize size = announcedSize(bytes);
    if (!Raster::canHold(size.width(), size.height()))
        return false;
    embeddedPixels -= qint64{size.width()} * size.height();
    return embeddedPixels >= 0;
}

/// A drawing's elements, as far as it matters how often and how deep they are drawn.
class DrawnElements
{
public:
    DrawnElements() : m_parts(1) {}

    /// False where there are too many already.
    bool open(const QXmlStreamReader &element)
    {
        const QXmlStreamAttributes attributes = element.attributes();
        const std::size_t index = partFor(attributes);
        m_open.push_back(index);
        Part &part = m_parts[index];
        const int nesting = static_cast<int>(m_open.size()) - part.levelsAbove;
        ++part.elements;
        part.nesting = std::max(part.nesting, nesting);
        const bool isUse = element.qualifiedName().endsWith(u"use", Qt::CaseInsensitive);
        for (const QXmlStreamAttribute &attribute : attributes) {
            if (isUse && isAddress(attribute))
                part.uses.push_back({attribute.value().mid(1).toString(), nesting});
        }
        return ++m_opened <= mostElements;
    }

    void close() { m_open.pop_back(); }

    /// How many elements are drawn in all; none where they are too many or too deep.
    std::optional<qint64> count() { return measure(0, 0) ? std::optional(m_parts.front().elements) : std::nullopt; }

private:
    /// Another part that is drawn within a part, by its name or as such, and how many levels further down.
    struct Use
    {
        QString name;
        int nesting;
    };
    struct Inner
    {
        std::size_t part;
        int nesting;
    };
    /// What a name stands for: an element and those in it that have no name of their own. The first part is what no
    /// name stands for.
    struct Part
    {
        int levelsAbove = 0;
        qint64 elements = 0; ///< with the other parts as soon as it is measured
        int nesting = 0;     ///< levels; likewise
        std::vector<Use> uses;
        std::vector<Inner> inner;
        bool isMeasured = false;
    };

    /// The part that an element with these attributes is in: a new one where it has a name.
    std::size_t partFor(const QXmlStreamAttributes &attributes)
    {
        const std::size_t within = m_open.empty() ? 0 : m_open.back();
        if (std::none_of(attributes.begin(), attributes.end(), isName))
            return within;
        const std::size_t index = m_parts.size();
        const int levelsAbove = static_cast<int>(m_open.size());
        m_parts[within].inner.push_back({index, levelsAbove - m_parts[within].levelsAbove});
        m_parts.emplace_back().levelsAbove = levelsAbove;
        for (const QXmlStreamAttribute &attribute : attributes) {
            if (isName(attribute))
                m_partsByName.insert(attribute.value().toString(), index);
        }
        return index;
    }

    /// Adds up what is drawn with a part; false where it is too much. `depth` parts are being measured, which ends a
    /// part that draws itself.
    bool measure(std::size_t index, int depth)
    {
        Part &part = m_parts[index];
        if (part.isMeasured)
            return true;
        if (depth > deepestNesting || !add(part, {}, 0))
            return false;
        const auto addPart = [&](std::size_t other, int nesting) {
            return measure(other, depth + 1) && add(part, m_parts[other], nesting);
        };
        const auto addNamed = [&](const Use &use) {
            const auto [first, end] = m_partsByName.equal_range(use.name);
            return std::all_of(first, end, [&](std::size_t other) { return addPart(other, use.nesting); });
        };
        part.isMeasured = std::all_of(part.inner.begin(), part.inner.end(),
                                      [&](const Inner &inner) { return addPart(inner.part, inner.nesting); }) &&
                          std::all_of(part.uses.begin(), part.uses.end(), addNamed);
        return part.isMeasured;
    }

    static bool add(Part &part, const Part &drawn, int nesting)
    {
        part.elements += drawn.elements;
        part.nesting = std::max(part.nesting, nesting + drawn.nesting);
        return part.elements <= mostElements && part.nesting <= deepestNesting;
    }

    std::vector<Part> m_parts;
    QMultiHash<QString, std::size_t> m_partsByName;
    qint64 m_opened = 0;
    std::vector<std::size_t> m_open; ///< the part of each open element
};

/// Whether Qt's reader opens no other file for this part of a drawing.
bool isSelfContained(const QXmlStreamReader &part, qint64 &embeddedPixels)
{
    if (part.isProcessingInstruction())
        return part.processingInstructionTarget() != u"xml-stylesheet";
    if (!part.isStartElement() || !part.qualifiedName().endsWith(u"image", Qt::CaseInsensitive))
        return true;
    const QXmlStreamAttributes attributes = part.attributes();
    return std::all_of(attributes.begin(), attributes.end(), [&](const QXmlStreamAttribute &attribute) {
        return !isAddress(attribute) || isEmbedded(attribute.value(), embeddedPixels);
    });
}

/// How many elements are drawn; none where the drawing is to be refused.
std::optional<qint64> countDrawnElements(const QByteArray &bytes, qint64 &embeddedPixels)
{
    DrawnElements elements;
    QXmlStreamReader drawing(bytes);
    drawing.setNamespaceProcessing(false); // as Qt's reader has it
    while (!drawing.atEnd()) {
        drawing.readNext();
        if (!isSelfContained(drawing, embeddedPixels))
            return std::nullopt;
        if (drawing.isStartElement() && !elements.open(drawing))
            return std::nullopt;
        if (drawing.isEndElement())
            elements.close();
    }
    return elements.count();
}

bool isHarmless(const QByteArray &bytes, qint64 &embeddedPixels)
{
    if (bytes.startsWith("\x1f\x8b")) // compressed
        return false;
    QBuffer buffer;
    buffer.setData(bytes);
    if (!buffer.open(QIODevice::ReadOnly) || !QImageReader::imageFormat(&buffer).startsWith("svg"))
        return true;
    if (bytes.size() > mostBytesOfDrawing)
        return false;
    // First the count: to tell its size, Qt's reader may have to go through all that is drawn.
    const std::optional<qint64> elements = countDrawnElements(bytes, embeddedPixels);
    if (!elements)
        return false;
    const QSize size = announcedSize(bytes);
    return Raster::canHold(size.width(), size.height()) &&
           *elements * size.width() * size.height() <= mostElementsTimesPixels;
}
} // namespace

bool DrawingCheck::isHarmless(const QByteArray &bytes)
{
    qint64 embeddedPixels = Raster::mostPixels;
    return ::isHarmless(bytes, embeddedPixels);
}
