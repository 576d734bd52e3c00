#include "still/DrawingCheck.h"

#include "drawing/Raster.h"
#include "still/DrawingWork.h"
#include "still/IconCheck.h"
#include "still/PictureKind.h"

#include <QBuffer>
#include <QImageReader>
#include <QMultiHash>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace {
constexpr qint64 mostBytesOfDrawing = qint64{1} << 27;
constexpr qint64 mostElements = qint64{1} << 20;
constexpr double mostNanoseconds = 5e9;
constexpr int mostStops = 1 << 14;
constexpr double mostElementsTimesStops = double{1u << 31}; // each element may go through those of a gradient
constexpr int deepestNesting = 1000;                        // of which each level takes some of the stack

/// What a drawing and those that it embeds may still take together.
struct Allowance
{
    qint64 embeddedPixels = Raster::mostPixels;
    double nanoseconds = mostNanoseconds;
};

bool isHarmless(const QByteArray &bytes, Allowance &allowance);

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
bool isEmbedded(QStringView address, Allowance &allowance)
{
    static const QString encoding("base64,");
    const qsizetype start = address.lastIndexOf(encoding);
    if (!address.startsWith(u"data:") || start < 0)
        return false;
    const QByteArray bytes = QByteArray::fromBase64(address.mid(start + encoding.size()).toLatin1());
    if (!PictureKind::isAcceptedContent(bytes) || !isHarmless(bytes, allowance) || !IconCheck::isHarmless(bytes))
        return false;
    const QSize size = announcedSize(bytes);
    if (!Raster::canHold(size.width(), size.height()))
        return false;
    allowance.embeddedPixels -= qint64{size.width()} * size.height();
    return allowance.embeddedPixels >= 0;
}

/// A drawing's elements, as far as it matters how often, how deep and how long they are drawn.
class DrawnElements
{
public:
    DrawnElements() : m_parts(1) {}

    /// False where there are too many already.
    bool open(const QXmlStreamReader &element)
    {
        const QStringView name = element.qualifiedName();
        const QXmlStreamAttributes attributes = element.attributes();
        if (m_opened == 0)
            begin(attributes);
        const std::size_t index = partFor(attributes);
        const DrawingWork::Style style = styleAbove().within(name, attributes).with(m_sheet);
        m_open.push_back({index, style, name.endsWith(u"style", Qt::CaseInsensitive)});
        Part &part = m_parts[index];
        const int nesting = static_cast<int>(m_open.size()) - part.levelsAbove;
        ++part.elements;
        part.nanoseconds += DrawingWork::ofElement(name, attributes, style, m_canvas.side);
        part.nesting = std::max(part.nesting, nesting);
        m_stops += name.endsWith(u"stop", Qt::CaseInsensitive) ? 1 : 0;
        const bool isUse = name.endsWith(u"use", Qt::CaseInsensitive);
        for (const QXmlStreamAttribute &attribute : attributes) {
            if (isUse && isAddress(attribute))
                part.uses.push_back({attribute.value().mid(1).toString(), nesting, style});
        }
        return ++m_opened <= mostElements && m_stops <= mostStops && part.nanoseconds <= mostNanoseconds;
    }

    void close() { m_open.pop_back(); }

    void read(QStringView text)
    {
        if (m_open.empty())
            return;
        const Open &open = m_open.back();
        if (open.style.isText)
            m_parts[open.part].nanoseconds += DrawingWork::ofText(text.size(), open.style, m_canvas.side);
        if (open.isSheet)
            m_sheet = m_sheet.with(DrawingWork::Style::ofSheet(text));
    }

    /// How long they are drawn in all, by the canvas; none where they are too many, too deep or too long.
    std::optional<double> nanoseconds()
    {
        if (!measure(0, 0))
            return std::nullopt;
        const Part &all = m_parts.front();
        if (static_cast<double>(all.elements) * m_stops > mostElementsTimesStops)
            return std::nullopt;
        return all.nanoseconds;
    }

    /// In pixels, as its first element says.
    double side() const { return m_canvas.side; }

private:
    /// Another part that is drawn within a part, by its name or as such, and how many levels further down.
    struct Use
    {
        QString name;
        int nesting;
        DrawingWork::Style style;
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
        qint64 elements = 0;    ///< with the other parts as soon as it is measured
        double nanoseconds = 0; ///< likewise
        int nesting = 0;        ///< levels; likewise
        DrawingWork::Style styleAbove;
        std::vector<Use> uses;
        std::vector<Inner> inner;
        bool isMeasured = false;
    };

    struct Open
    {
        std::size_t part;
        DrawingWork::Style style;
        bool isSheet;
    };

    void begin(const QXmlStreamAttributes &attributes)
    {
        m_canvas = DrawingWork::Canvas::of(attributes);
        m_parts.front().styleAbove.scale = m_canvas.scale;
    }

    /// That of what is opened next.
    DrawingWork::Style styleAbove() const { return m_open.empty() ? m_parts.front().styleAbove : m_open.back().style; }

    /// The part that an element with these attributes is in: a new one where it has a name.
    std::size_t partFor(const QXmlStreamAttributes &attributes)
    {
        const std::size_t within = m_open.empty() ? 0 : m_open.back().part;
        if (std::none_of(attributes.begin(), attributes.end(), isName))
            return within;
        const std::size_t index = m_parts.size();
        const int levelsAbove = static_cast<int>(m_open.size());
        m_parts[within].inner.push_back({index, levelsAbove - m_parts[within].levelsAbove});
        const DrawingWork::Style style = styleAbove();
        Part &part = m_parts.emplace_back();
        part.levelsAbove = levelsAbove;
        part.styleAbove = style;
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
        if (depth > deepestNesting || !add(part, {}, 0, 1))
            return false;
        const auto addPart = [&](std::size_t other, int nesting, double growth) {
            return measure(other, depth + 1) && add(part, m_parts[other], nesting, growth);
        };
        const auto addNamed = [&](const Use &use) {
            const auto [first, end] = m_partsByName.equal_range(use.name);
            return std::all_of(first, end, [&](std::size_t other) {
                return addPart(other, use.nesting, m_parts[other].styleAbove.growth(use.style));
            });
        };
        part.isMeasured = std::all_of(part.inner.begin(), part.inner.end(),
                                      [&](const Inner &inner) { return addPart(inner.part, inner.nesting, 1); }) &&
                          std::all_of(part.uses.begin(), part.uses.end(), addNamed);
        return part.isMeasured;
    }

    static bool add(Part &part, const Part &drawn, int nesting, double growth)
    {
        part.elements += drawn.elements;
        part.nanoseconds += drawn.nanoseconds * growth;
        part.nesting = std::max(part.nesting, nesting + drawn.nesting);
        return part.elements <= mostElements && part.nesting <= deepestNesting && part.nanoseconds <= mostNanoseconds;
    }

    std::vector<Part> m_parts;
    QMultiHash<QString, std::size_t> m_partsByName;
    qint64 m_opened = 0;
    std::vector<Open> m_open;
    int m_stops = 0; ///< of gradients
    DrawingWork::Canvas m_canvas;
    DrawingWork::Style m_sheet = DrawingWork::Style::nothing();
};

/// Whether Qt's reader opens no other file for this part of a drawing.
bool isSelfContained(const QXmlStreamReader &part, Allowance &allowance)
{
    if (part.isProcessingInstruction())
        return part.processingInstructionTarget() != u"xml-stylesheet";
    if (!part.isStartElement() || !part.qualifiedName().endsWith(u"image", Qt::CaseInsensitive))
        return true;
    const QXmlStreamAttributes attributes = part.attributes();
    return std::all_of(attributes.begin(), attributes.end(), [&](const QXmlStreamAttribute &attribute) {
        return !isAddress(attribute) || isEmbedded(attribute.value(), allowance);
    });
}

struct Drawn
{
    double nanoseconds;
    double side; ///< that they are estimated for
};

/// What is drawn; none where the drawing is to be refused.
std::optional<Drawn> countDrawn(const QByteArray &bytes, Allowance &allowance)
{
    DrawnElements elements;
    QXmlStreamReader drawing(bytes);
    drawing.setNamespaceProcessing(false); // as Qt's reader has it
    while (!drawing.atEnd()) {
        drawing.readNext();
        if (!isSelfContained(drawing, allowance))
            return std::nullopt;
        if (drawing.isStartElement() && !elements.open(drawing))
            return std::nullopt;
        if (drawing.isEndElement())
            elements.close();
        if (drawing.isCharacters())
            elements.read(drawing.text());
    }
    const std::optional<double> nanoseconds = elements.nanoseconds();
    return nanoseconds ? std::optional(Drawn{*nanoseconds, elements.side()}) : std::nullopt;
}

bool isHarmless(const QByteArray &bytes, Allowance &allowance)
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
    const std::optional<Drawn> drawn = countDrawn(bytes, allowance);
    if (!drawn)
        return false;
    const QSize size = announcedSize(bytes);
    if (!Raster::canHold(size.width(), size.height()))
        return false;
    const double larger = std::max(1.0, std::max(size.width(), size.height()) / drawn->side); // in other units
    allowance.nanoseconds -= drawn->nanoseconds * larger * larger;
    return allowance.nanoseconds >= 0;
}
} // namespace

std::optional<qint64> DrawingCheck::nanoseconds(const QByteArray &bytes)
{
    Allowance allowance;
    if (!::isHarmless(bytes, allowance))
        return std::nullopt;
    return static_cast<qint64>(std::ceil(mostNanoseconds - allowance.nanoseconds));
}
