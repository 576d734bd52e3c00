#include "output/Composition.h"

#include "drawing/Raster.h"
#include "output/OutputPainter.h"
#include "output/PictureFit.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

/// What is known about the pictures of the last composition. Keeps no picture that it was given, so that their owners
/// can draw into them again.
class Composition::PictureMemory
{
public:
    explicit PictureMemory(qint64 mostFittedPixels) : m_mostFittedPixels(mostFittedPixels) {}

    struct Plan
    {
        std::vector<PlannedPicture> pictures;
        std::vector<std::size_t> lost; ///< rows of those that there is no memory for
    };

    /// The pictures as pixels of the output; none for those that do not show in `where`. Valid until forgetUnused().
    Plan plan(const std::vector<PlacedPicture> &topmostFirst, const QSize &output, const QRect &where);
    /// What is kept may be more than so many pictures need.
    bool isCrowded(std::size_t pictures) const { return m_fittedPixels > 0 || m_known.size() > 2 * pictures + 8; }
    /// Forgets what the last plan had no use for, and what takes more than `bytes` in all.
    void forgetUnused(qint64 bytes);
    /// Forgets pictures that others stand for now; for what is not crowded.
    void forgetReplaced(const PictureRows &rows);

private:
    struct Known
    {
        PictureFit fit;
        QImage fitted; ///< null where the picture fits as it is
        OpaqueSpans opaque;
        bool used;
    };

    /// Null where there is no memory for it.
    Known *known(const PictureFit &fit, const PlacedPicture &placed);
    OpaqueSpans opaqueSpans(const PictureFit &fit, const PlacedPicture &placed);
    /// Null where there is none.
    Known *find(const PictureFit &fit);

    std::unordered_multimap<qint64, Known> m_known; ///< by cache key; plans point into it
    qint64 m_fittedPixels = 0;                      ///< of those with a picture of their own
    qint64 m_mostFittedPixels;
};

auto Composition::PictureMemory::find(const PictureFit &fit) -> Known *
{
    const auto [first, last] = m_known.equal_range(fit.cacheKey);
    const auto found = std::find_if(first, last, [&](const auto &entry) { return entry.second.fit == fit; });
    return found == last ? nullptr : &found->second;
}

auto Composition::PictureMemory::known(const PictureFit &fit, const PlacedPicture &placed) -> Known *
{
    if (Known *found = find(fit))
        return found;
    const qint64 pixels = fit.changes ? qint64{fit.part.width()} * fit.part.height() : 0;
    if (m_fittedPixels + pixels > m_mostFittedPixels)
        return nullptr;
    const QImage fitted = fit.changes ? fit.made(placed.picture) : QImage();
    if (fit.changes && fitted.isNull()) // the next time there may be memory
        return nullptr;
    const OpaqueSpans opaque = fit.changes ? OpaqueSpans(fitted) : opaqueSpans(fit, placed);
    m_fittedPixels += pixels;
    return &m_known.emplace(fit.cacheKey, Known{fit, fitted, opaque, true})->second;
}

/// Of a picture that was drawn into, only what is new in it is looked through.
OpaqueSpans Composition::PictureMemory::opaqueSpans(const PictureFit &fit, const PlacedPicture &placed)
{
    for (const qint64 before : placed.changes.known()) {
        PictureFit earlier = fit;
        earlier.cacheKey = before;
        if (const Known *found = find(earlier))
            return found->opaque.mended(placed.picture, placed.changes.since(before).value());
    }
    return OpaqueSpans(placed.picture);
}

auto Composition::PictureMemory::plan(const std::vector<PlacedPicture> &topmostFirst, const QSize &output,
                                      const QRect &where) -> Plan
{
    Plan plan;
    for (std::size_t row = 0; row < topmostFirst.size(); ++row) {
        const PlacedPicture &placed = topmostFirst[row];
        if (!boxOn(output, ComposedPicture::of(placed)).intersects(where))
            continue;
        const std::optional<PictureFit> fit = PictureFit::of(placed, output);
        if (!fit)
            continue;
        Known *const picture = known(*fit, placed);
        if (!picture) {
            plan.lost.push_back(row);
            continue;
        }
        picture->used = true;
        const QPoint part = fit->part.topLeft();
        plan.pictures.push_back({fit->changes ? picture->fitted : placed.picture, &picture->opaque,
                                 qint64{placed.topLeft.x()} + part.x(), qint64{placed.topLeft.y()} + part.y()});
    }
    return plan;
}

void Composition::PictureMemory::forgetUnused(qint64 bytes)
{
    for (auto entry = m_known.begin(); entry != m_known.end();) {
        Known &picture = entry->second;
        const qint64 size = picture.fitted.sizeInBytes();
        const bool keep = std::exchange(picture.used, false) && size <= bytes;
        if (keep)
            bytes -= size;
        else
            m_fittedPixels -= qint64{picture.fitted.width()} * picture.fitted.height();
        entry = keep ? std::next(entry) : m_known.erase(entry);
    }
}

/// What was only hidden may come back.
void Composition::PictureMemory::forgetReplaced(const PictureRows &rows)
{
    if (rows.before.size() != rows.now.size())
        return;
    for (const ComposedPicture &before : rows.before) {
        const auto isStillThere = [&](const PlacedPicture &now) { return now.picture.cacheKey() == before.cacheKey; };
        if (std::ranges::none_of(rows.now, isStillThere))
            m_known.erase(before.cacheKey);
    }
}

std::vector<PlacedPicture> placedPictures(const std::vector<LayerPointer> &layers)
{
    std::vector<PlacedPicture> pictures;
    pictures.reserve(layers.size());
    for (const LayerPointer &layer : layers) {
        if (layer->visible()) {
            pictures.push_back({layer->thumbnail(), QPoint(layer->xpoint(), layer->ypoint()),
                                QSize(layer->screenSizeWidth(), layer->screenSizeHeight()), layer->pictureChanges()});
        }
    }
    return pictures;
}

Composition::Composition(qint64 mostFittedPixels) : m_pictures(std::make_unique<PictureMemory>(mostFittedPixels)) {}

Composition::~Composition() = default;

const QImage &Composition::compose(const std::vector<PlacedPicture> &topmostFirst, const OutputStyle &style)
{
    const qint64 before = m_output.picture.cacheKey();
    const bool isMended =
        !m_output.picture.isNull() && m_output.picture.isDetached() && m_output.lost.empty() && style == m_style;
    m_output.picture = Raster::reuse(std::move(m_output.picture), style.size.width(), style.size.height());
    const PictureRows rows = PictureRows::differing(m_composed, topmostFirst);
    const QRegion change = isMended ? changeBetween(rows, style.size) : QRegion(m_output.picture.rect());
    const bool looksAtAll = !isMended || m_pictures->isCrowded(topmostFirst.size());
    const QRect planned = looksAtAll ? m_output.picture.rect() : change.boundingRect();
    m_output.lost.clear();
    if (!m_output.picture.isNull()) {
        PictureMemory::Plan plan = m_pictures->plan(topmostFirst, style.size, planned);
        paint(plan.pictures, style, change);
        m_output.lost = std::move(plan.lost);
    }
    if (looksAtAll)
        m_pictures->forgetUnused(m_output.picture.sizeInBytes());
    else
        m_pictures->forgetReplaced(rows);
    if (isMended)
        m_output.changes.add(before, change);
    else
        m_output.changes = {};
    m_output.isOpaque = qAlpha(style.background.toPremultipliedPixel()) == 255; // pictures come atop
    m_style = style;
    m_composed.clear();
    std::ranges::transform(topmostFirst, std::back_inserter(m_composed), ComposedPicture::of);
    return m_output.picture;
}

void Composition::paint(const std::vector<PlannedPicture> &pictures, const OutputStyle &style, const QRegion &where)
{
    const OutputPainter painter(pictures, style);
    m_output.picture.bits(); // another cache key, even where nothing changes
    for (const QRect &part : where)
        painter.paint(m_output.picture, part);
}

bool Composition::isLast(const std::vector<PlacedPicture> &topmostFirst, const OutputStyle &style) const
{
    return !m_output.picture.isNull() && m_output.lost.empty() && style == m_style &&
           std::ranges::equal(topmostFirst, m_composed, {}, ComposedPicture::of);
}
