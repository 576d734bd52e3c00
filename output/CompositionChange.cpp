#include "output/Composition.h"

#include <algorithm>
#include <iterator>

namespace {
/// More rectangles than these cost more than composing what lies between them.
constexpr int mostRects = 32;

QRegion changeOf(const ComposedPicture &before, const PlacedPicture &now, const QSize &output)
{
    const ComposedPicture is = ComposedPicture::of(now);
    if (is == before)
        return {};
    const QRegion boxes = QRegion(boxOn(output, before)) + boxOn(output, is);
    const bool staysInPlace =
        is.topLeft == before.topLeft && is.size == before.size && now.picture.size() == now.size && !boxes.isEmpty();
    const auto part = staysInPlace ? now.changes.since(before.cacheKey) : std::nullopt;
    return part ? part->translated(now.topLeft) & boxes : boxes;
}
} // namespace

QRect boxOn(const QSize &output, const ComposedPicture &picture)
{
    const auto clamped = [](qint64 position, int limit) {
        return static_cast<int>(std::clamp<qint64>(position, 0, limit));
    };
    if (picture.size.isEmpty())
        return {};
    const qint64 left = picture.topLeft.x();
    const qint64 top = picture.topLeft.y();
    const QPoint first(clamped(left, output.width()), clamped(top, output.height()));
    const QPoint end(clamped(left + picture.size.width(), output.width()),
                     clamped(top + picture.size.height(), output.height()));
    return {first, end - QPoint(1, 1)};
}

PictureRows PictureRows::differing(std::span<const ComposedPicture> before, std::span<const PlacedPicture> now)
{
    const auto isSame = [](const ComposedPicture &was, const PlacedPicture &is) {
        return was == ComposedPicture::of(is);
    };
    const auto first = std::ranges::mismatch(before, now, isSame);
    before = {first.in1, before.end()};
    now = {first.in2, now.end()};
    const auto last = std::mismatch(before.rbegin(), before.rend(), now.rbegin(), now.rend(), isSame);
    return {{before.begin(), last.first.base()}, {now.begin(), last.second.base()}};
}

/// At a pixel in no box of a picture that differs from the one at its place in the list, the same pictures lie over
/// each other before and now.
QRegion changeBetween(const PictureRows &rows, const QSize &size)
{
    const auto &[before, now] = rows;
    QRegion change;
    for (std::size_t i = 0; i < std::max(before.size(), now.size()); ++i) {
        if (i < before.size() && i < now.size())
            change += changeOf(before[i], now[i], size);
        else
            change += boxOn(size, i < before.size() ? before[i] : ComposedPicture::of(now[i]));
    }
    return change.rectCount() <= mostRects ? change : change.boundingRect();
}
