#include "drawing/TextLine.h"

#include <QCache>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace {
/// Texts are shaped at this size and scaled from there: unhinted outlines scale exactly, and Qt's fonts know
/// whole pixel sizes only.
constexpr int shapingSize = 256;
/// Wider than the longest text at the shaping size.
constexpr double widestLine = 16'000'000;
/// Letters below this code need no shaping; without it each letter's place depends on the letters before it alone.
constexpr ushort firstShapedCharacter = 0x250;

constexpr char houseFontFile[] = ":/fonts/Inter-Regular.otf";

/// The house's font in a face of its own. FreeType's hinter remembers: letters that a window draws in another size
/// would shift the outlines that the same face gives afterwards, by some hundredths of a pixel.
class OutlineFont
{
public:
    /// The font to take outlines from where a text was shaped in that one.
    static const QRawFont &forShaped(const QRawFont &shaped)
    {
        // Never deleted: at the end it would outlive what it is made of.
        static auto *const font = new OutlineFont;
        return font->isOfHouse(shaped) ? font->m_outlines : shaped;
    }

private:
    bool isOfHouse(const QRawFont &shaped)
    {
        if (shaped != m_shaped && shaped.fontTable("head") == m_outlines.fontTable("head")) // with the file's checksum
            m_shaped = shaped;
        return shaped == m_shaped;
    }

    QRawFont m_outlines{QString(houseFontFile), shapingSize, QFont::PreferNoHinting};
    QRawFont m_shaped; ///< the last one of the same file
};

const QString &houseFontFamily()
{
    static const QString family = [] {
        const int font = QFontDatabase::addApplicationFont(houseFontFile);
        return QFontDatabase::applicationFontFamilies(font).value(0);
    }();
    return family;
}

QFont shapingFont(const QString &text)
{
    QFont font(houseFontFamily());
    font.setPixelSize(shapingSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    const bool isPlain = std::ranges::all_of(text, [](QChar c) { return c.unicode() < firstShapedCharacter; });
    if (isPlain)
        font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

QString singleLine(const QString &text)
{
    QString line = TextLine::shown(text);
    for (QChar &c : line) {
        const bool isBreak =
            c == u'\n' || c == u'\r' || c == u'\t' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
        if (isBreak)
            c = u' ';
    }
    return line;
}

struct ShapedGlyph
{
    QRawFont font;
    quint32 index;
    QPointF position; ///< on the base line, at the shaping size
};

struct ShapedText
{
    std::vector<ShapedGlyph> glyphs; ///< from left to right
    double width = 0;
};

ShapedText shape(const QString &text)
{
    QTextLayout layout(text, shapingFont(text));
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(widestLine);
    layout.endLayout();

    ShapedText shaped;
    const double ascent = line.ascent();
    for (const QGlyphRun &run : line.glyphRuns()) {
        const QList<quint32> indexes = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        const QRawFont font = OutlineFont::forShaped(run.rawFont());
        for (qsizetype i = 0; i < indexes.size(); ++i)
            shaped.glyphs.push_back({font, indexes[i], positions[i] - QPointF(0, ascent)});
    }
    std::ranges::stable_sort(shaped.glyphs, {}, [](const ShapedGlyph &glyph) { return glyph.position.x(); });
    shaped.width = line.naturalTextWidth();
    return shaped;
}

struct Glyph
{
    QPainterPath outline;
    CoverageMask mask; ///< relative to the glyph's origin; null for blanks and large sizes

    /// What keeping it costs.
    qsizetype bytes() const
    {
        constexpr qsizetype ofObjects = 750; // that hold these two, as measured
        const qsizetype ofMask = mask.mask ? mask.mask->sizeInBytes() : 0;
        return ofObjects + ofMask + outline.capacity() * qsizetype{sizeof(QPainterPath::Element)};
    }
};

Glyph makeGlyph(const ShapedGlyph &shaped, double pointSize, bool withMask)
{
    const double scale = pointSize / shapingSize;
    Glyph glyph;
    glyph.outline = QTransform::fromScale(scale, scale).map(shaped.font.pathForGlyph(shaped.index));
    glyph.outline.setFillRule(Qt::WindingFill);
    if (withMask)
        glyph.mask = CoverageMask::of(glyph.outline);
    return glyph;
}

struct GlyphKey
{
    QString font;
    double pointSize;
    quint32 index;

    bool operator==(const GlyphKey &) const = default;
    friend size_t qHash(const GlyphKey &key, size_t seed)
    {
        return qHashMulti(seed, key.font, key.pointSize, key.index);
    }
};

/// A glyph that has been drawn before is not made again, as long as others have not taken its place.
Glyph glyphOf(const ShapedGlyph &shaped, double pointSize, bool withMask)
{
    // A chart uses a few dozen in three sizes, a few hundred kilobytes.
    constexpr qsizetype mostBytes = 16 << 20;
    static QCache<GlyphKey, Glyph> made(mostBytes);
    const GlyphKey key{shaped.font.familyName() + shaped.font.styleName(), pointSize, shaped.index};
    if (const Glyph *const known = made.object(key))
        return *known;
    Glyph glyph = makeGlyph(shaped, pointSize, withMask);
    made.insert(key, new Glyph(glyph), glyph.bytes());
    return glyph;
}
} // namespace

TextLine::TextLine(const QString &text, double pointSize) : m_pointSize(pointSize)
{
    if (text.isEmpty() || !(pointSize >= smallestPointSize) || pointSize > largestPointSize)
        return;

    const ShapedText shaped = shape(singleLine(text));
    const double scale = pointSize / shapingSize;
    const QFontMetricsF metrics(shapingFont({}));
    const int ascent = static_cast<int>(std::ceil(metrics.ascent() * scale));
    const int descent = static_cast<int>(std::ceil(metrics.descent() * scale));

    int pen = 0;
    for (std::size_t i = 0; i < shaped.glyphs.size(); ++i) {
        const ShapedGlyph &glyph = shaped.glyphs[i];
        const QPoint origin(pen, ascent + qRound(glyph.position.y() * scale));
        const auto [outline, mask] = glyphOf(glyph, pointSize, hasMasks());
        if (!outline.isEmpty())
            m_outlines.push_back({outline, origin});
        if (mask.mask)
            m_masks.push_back({mask.mask, origin + mask.topLeft});

        const bool isLast = i + 1 == shaped.glyphs.size();
        const double next = isLast ? shaped.width : shaped.glyphs[i + 1].position.x();
        pen += qRound((next - glyph.position.x()) * scale);
    }
    m_size = QSize(pen, ascent + descent);
}

QRect TextLine::reach() const
{
    QRect reach(QPoint(0, 0), m_size);
    for (const auto &[path, origin] : m_outlines)
        reach |= path.controlPointRect().toAlignedRect().adjusted(-1, -1, 1, 1).translated(origin);
    return reach;
}

std::vector<QPainterPath> TextLine::outlines() const
{
    std::vector<QPainterPath> outlines;
    for (const auto &[path, origin] : m_outlines)
        outlines.push_back(path.translated(origin));
    return outlines;
}
