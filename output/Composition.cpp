#include "output/Composition.h"

#include "drawing/Raster.h"
#include "output/PictureFit.h"
#include "output/RowPlan.h"

#include <QPainter>

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

using LayerRows::Stores;

namespace {
/// From this size on an output does not stay in the processor's caches anyway.
constexpr qint64 streamedBytes = qint64{16} << 20;

/// The pixels under all pictures.
struct Ground
{
    QRgb background;
    QRgb edge;
};

Ground groundOf(const OutputStyle &style)
{
    QImage edge(1, 1, Raster::format);
    edge.fill(style.background.toPremultipliedPixel());
    QPainter(&edge).fillRect(edge.rect(), style.edge.toQColor());
    return {style.background.toPremultipliedPixel(), *reinterpret_cast<const QRgb *>(edge.constBits())};
}

std::vector<RowPlan::Base> basesOfRow(int y, const QSize &output, const Ground &ground)
{
    const int width = output.width();
    const bool allEdge = y == 0 || y == output.height() - 1 || width <= 2;
    if (allEdge || ground.edge == ground.background)
        return {{0, width, ground.edge}};
    return {{0, 1, ground.edge}, {1, width - 1, ground.background}, {width - 1, width, ground.edge}};
}

/// The rows where something begins or ends, from 0 to the output's height.
std::vector<int> seamsOf(const std::vector<PlannedPicture> &pictures, int height)
{
    std::vector<int> seams{0, 1, height - 1, height};
    const auto add = [&](qint64 y) {
        if (y > 0 && y < height)
            seams.push_back(static_cast<int>(y));
    };
    for (const PlannedPicture &planned : pictures) {
        for (const OpaqueSpans::Band &band : planned.opaque->bands())
            add(planned.top + band.top);
        add(planned.top + planned.picture.height());
    }
    std::sort(seams.begin(), seams.end());
    seams.erase(std::unique(seams.begin(), seams.end()), seams.end());
    return seams;
}

void drawOutput(QImage &output, const std::vector<PlannedPicture> &pictures, const Ground &ground)
{
    const Stores stores = output.sizeInBytes() >= streamedBytes ? Stores::Streamed : Stores::Cached;
    std::vector<QRgb> buffer(output.width());
    RowPlan plan(pictures);
    uchar *const bits = output.bits();
    const std::vector<int> seams = seamsOf(pictures, output.height());
    for (auto seam = seams.begin(); *seam < output.height(); ++seam) {
        plan.plan(*seam, basesOfRow(*seam, output.size(), ground));
        for (int y = *seam; y < *std::next(seam); ++y) {
            auto *row = reinterpret_cast<QRgb *>(bits + y * output.bytesPerLine());
            if (stores == Stores::Streamed && plan.blends()) {
                plan.draw(buffer.data(), y, Stores::Cached);
                LayerRows::copy(row, buffer.data(), output.width(), Stores::Streamed);
            } else {
                plan.draw(row, y, stores);
            }
        }
    }
    LayerRows::finishStreams();
}
} // namespace

/// What is known about the pictures of the last composition. Keeps no picture that it was given, so that their owners
/// can draw into them again.
class Composition::PictureMemory
{
public:
    /// The pictures as pixels of the output; none for those that do not show. Valid until forgetUnused().
    std::vector<PlannedPicture> plan(const std::vector<PlacedPicture> &topmostFirst, const QSize &output);
    /// Forgets what the last plan had no use for, and what takes more than `bytes` in all.
    void forgetUnused(qint64 bytes);

private:
    struct Known
    {
        PictureFit fit;
        QImage fitted; ///< null where the picture fits as it is
        OpaqueSpans opaque;
        bool used;
    };

    Known &known(const PictureFit &fit, const QImage &picture);

    std::unordered_multimap<qint64, Known> m_known; ///< by cache key; plans point into it
};

auto Composition::PictureMemory::known(const PictureFit &fit, const QImage &picture) -> Known &
{
    const auto [first, last] = m_known.equal_range(fit.cacheKey);
    const auto found = std::find_if(first, last, [&](const auto &entry) { return entry.second.fit == fit; });
    if (found != last)
        return found->second;

    const QImage fitted = fit.changes ? fit.made(picture) : QImage();
    const OpaqueSpans opaque(fit.changes ? fitted : picture);
    return m_known.emplace(fit.cacheKey, Known{fit, fitted, opaque, true})->second;
}

std::vector<PlannedPicture> Composition::PictureMemory::plan(const std::vector<PlacedPicture> &topmostFirst,
                                                             const QSize &output)
{
    std::vector<PlannedPicture> planned;
    for (const PlacedPicture &placed : topmostFirst) {
        const std::optional<PictureFit> fit = PictureFit::of(placed, output);
        if (!fit)
            continue;
        Known &picture = known(*fit, placed.picture);
        picture.used = true;
        if (picture.opaque.bands().empty()) // there was no memory to fit it in
            continue;
        const QPoint part = fit->part.topLeft();
        planned.push_back({fit->changes ? picture.fitted : placed.picture, &picture.opaque,
                           qint64{placed.topLeft.x()} + part.x(), qint64{placed.topLeft.y()} + part.y()});
    }
    return planned;
}

void Composition::PictureMemory::forgetUnused(qint64 bytes)
{
    for (auto entry = m_known.begin(); entry != m_known.end();) {
        Known &picture = entry->second;
        const qint64 size = picture.fitted.sizeInBytes();
        const bool keep = std::exchange(picture.used, false) && size <= bytes;
        if (keep)
            bytes -= size;
        entry = keep ? std::next(entry) : m_known.erase(entry);
    }
}

std::vector<PlacedPicture> placedPictures(const std::vector<LayerPointer> &layers)
{
    std::vector<PlacedPicture> pictures;
    for (const LayerPointer &layer : layers) {
        if (layer->visible()) {
            pictures.push_back({layer->thumbnail(), QPoint(layer->xpoint(), layer->ypoint()),
                                QSize(layer->screenSizeWidth(), layer->screenSizeHeight())});
        }
    }
    return pictures;
}

Composition::Composition() : m_pictures(std::make_unique<PictureMemory>()) {}

Composition::~Composition() = default;

const QImage &Composition::compose(const std::vector<PlacedPicture> &topmostFirst, const OutputStyle &style)
{
    m_buffer = Raster::reuse(std::move(m_buffer), style.size.width(), style.size.height());
    if (!m_buffer.isNull())
        drawOutput(m_buffer, m_pictures->plan(topmostFirst, style.size), groundOf(style));
    m_pictures->forgetUnused(m_buffer.sizeInBytes());
    m_style = style;
    m_composed.clear();
    std::transform(topmostFirst.begin(), topmostFirst.end(), std::back_inserter(m_composed), composed);
    return m_buffer;
}

bool Composition::isLast(const std::vector<PlacedPicture> &topmostFirst, const OutputStyle &style) const
{
    const auto isSame = [](const PlacedPicture &placed, const Composed &last) { return composed(placed) == last; };
    return !m_buffer.isNull() && style == m_style &&
           std::equal(topmostFirst.begin(), topmostFirst.end(), m_composed.begin(), m_composed.end(), isSame);
}
