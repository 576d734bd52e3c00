#include "wiring/DeviceBounds.h"

#include "base/Counted.h"

#include <algorithm>

namespace {
constexpr qint64 fullRate = 60'000; ///< thousandths of a Hz

/// What a rate above 60 Hz leaves of so many pixels.
qint64 atRate(qint64 pixels, double rate)
{
    const bool isFaster = rate > 60 && rate <= 1000;
    return isFaster ? pixels * fullRate / std::max(countedRate(rate), fullRate) : pixels;
}
} // namespace

DeviceBounds DeviceBounds::of(const ProcessorModel &model, const PortRules &rules, const ProcessorSettings &settings)
{
    DeviceBounds bounds;
    bounds.pairs = PortPairs::of(model, rules, settings.backup);
    bounds.cap = model.deviceCap;
    bounds.canvases = model.canvases;
    bounds.maxWidth = model.maxWidth;
    bounds.maxHeight = model.maxHeight;
    bounds.maxPanelsPerLoop = rules.maxPanelsPerLoop;
    bounds.streams = std::max(settings.streams, 1);
    if (model.canvases.size() == 1) {
        const QSize canvas = model.canvases.front();
        bounds.canvasPixels = std::max(qint64{canvas.width()} * canvas.height(), model.deviceCap.pixels);
    }
    if (model.deviceCap.kind == DeviceCap::Kind::PixelRate) {
        const auto cards = model.cardPixels.find(settings.bits);
        if (cards != model.cardPixels.end())
            bounds.cap.pixels = std::min(bounds.cap.pixels, cards->second);
        bounds.cap.pixels = atRate(bounds.cap.pixels, settings.rate);
        bounds.canvasPixels = atRate(bounds.canvasPixels, settings.rate);
    }
    const bool isLow = settings.lowLatency && rules.lowLatencyModels.contains(model.model);
    const bool isLower = bounds.maxHeight == 0 || rules.lowLatencyHeight < bounds.maxHeight;
    if (isLow && rules.lowLatencyHeight > 0 && isLower)
        bounds.maxHeight = rules.lowLatencyHeight;
    return bounds;
}

qint64 DeviceBounds::counted(const PortLoad &total) const
{
    const bool isInput = cap.kind == DeviceCap::Kind::Canvas;
    const qint64 sent = Counted::limited(Counted::product(total.pixels, streams));
    return isInput ? std::max(sent, total.boxPixels()) : sent;
}

std::size_t DeviceBounds::runsOf(const WallSplit &wall) const
{
    PortLoad total;
    for (std::size_t run = 0; run < wall.runs.size(); ++run) {
        total.add(wall.loadOf(wall.runs[run]));
        if (run > 0 && !takes(total))
            return run;
    }
    return wall.runs.size();
}

bool DeviceBounds::holds(const PortLoad &total) const
{
    if (total.panels == 0)
        return true;
    const auto isWithin = [&](const QSize &canvas) {
        return total.width() <= canvas.width() && total.height() <= canvas.height();
    };
    if (canvases.size() > 1)
        return std::any_of(canvases.begin(), canvases.end(), isWithin);
    return (maxWidth == 0 || total.width() <= maxWidth) && (maxHeight == 0 || total.height() <= maxHeight) &&
           (canvasPixels == 0 || total.boxPixels() <= canvasPixels);
}
