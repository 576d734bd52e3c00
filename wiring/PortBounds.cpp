#include "wiring/PortBounds.h"

#include "base/Counted.h"

#include <algorithm>
#include <array>

tl::expected<PortBounds, NoFigure> PortBounds::of(const ProcessorSettings &settings, qint64 canvasHeight)
{
    const auto capacity = PortCapacity::of(settings);
    if (!capacity)
        return tl::unexpected(capacity.error());
    const ProcessorCatalogue &catalogue = catalogueOf(settings);
    const PortRules &rules = catalogue.rulesOf(*catalogue.model(settings.model));
    PortBounds bounds;
    bounds.capacity = *capacity;
    bounds.streams = std::max(settings.streams, 1);
    bounds.isRectangle = rules.rectangle.value_or(settings.rectangleWhereUnsaid);
    bounds.isTopAligned = settings.lowLatency && rules.lowLatency == PortRules::LowLatency::TopAligned;
    bounds.canvasHeight = canvasHeight;
    bounds.minWidth = rules.minLoadWidth;
    bounds.maxWidth = rules.maxPortWidth;
    bounds.maxHeight = rules.maxPortHeight;
    bounds.maxPanels = rules.maxPanelsPerPort;
    return bounds;
}

qint64 PortBounds::sent(qint64 pixels) const
{
    return Counted::limited(Counted::product(pixels, streams));
}

qint64 PortBounds::loaded(const PortLoad &load) const
{
    return sent(isRectangle ? std::max(load.pixels, load.boxPixels()) : load.pixels);
}

qint64 PortBounds::topAlignedLimit(const PortLoad &load) const
{
    if (!isTopAligned || load.panels == 0)
        return capacity.limit;
    const qint64 left = std::clamp(canvasHeight - load.box.rows.from, qint64{0}, canvasHeight);
    if (left == 0)
        return 0;
    // limit x left / height without a product that 64 bits could not hold.
    return capacity.limit / canvasHeight * left + capacity.limit % canvasHeight * left / canvasHeight;
}

qint64 PortBounds::narrowLoss(const PortLoad &load) const
{
    if (load.panels == 0 || load.width() >= minWidth)
        return 0;
    return Counted::limited(Counted::product(minWidth - load.width(), load.height()));
}

qint64 PortBounds::limit(const PortLoad &load) const
{
    return std::max(qint64{0}, topAlignedLimit(load) - narrowLoss(load));
}

std::optional<PortExcess> PortBounds::excess(const PortLoad &load) const
{
    using enum PortExcess::Of;
    const auto isOver = [](qint64 found, qint64 most) { return most > 0 && found > most; };
    const qint64 found = loaded(load);
    const qint64 most = limit(load);
    if (found > most)
        return PortExcess{Pixels, found, most};
    if (isOver(load.panels, maxPanels))
        return PortExcess{Panels, load.panels, maxPanels};
    if (isOver(load.width(), maxWidth))
        return PortExcess{Width, load.width(), maxWidth};
    if (isOver(load.height(), maxHeight))
        return PortExcess{Height, load.height(), maxHeight};
    return std::nullopt;
}

bool PortBounds::mayFitWithMore(const PortLoad &load) const
{
    const bool asksForPlace = isTopAligned || (minWidth > 0 && load.width() < minWidth);
    const bool isFull = loaded(load) > capacity.limit || (maxPanels > 0 && load.panels >= maxPanels);
    return asksForPlace && !isFull;
}

bool PortBounds::fitsWithFigure(const PortLoad &load, qint64 figure) const
{
    PortBounds other = *this;
    other.capacity = capacity.withFigure(figure);
    return other.fits(load);
}

std::optional<double> PortBounds::highestRate(const ProcessorSettings &settings, const PortLoad &load) const
{
    constexpr qint64 mostPixels = qint64{1} << 41;
    if (!capacity.model || load.panels == 0 || !fitsWithFigure(load, mostPixels))
        return std::nullopt;
    // The smallest figure that will do, which every rule asks for in its own way.
    qint64 tooLittle = 0;
    qint64 enough = mostPixels;
    while (enough - tooLittle > 1) {
        const qint64 between = tooLittle + (enough - tooLittle) / 2;
        (fitsWithFigure(load, between) ? enough : tooLittle) = between;
    }
    return capacity.highestRate(settings, enough);
}

std::optional<RuleCost> PortBounds::costliest(const PortLoad &load) const
{
    using enum RuleCost::Rule;
    const qint64 free = limit(load) - loaded(load);
    const bool isFullOfPanels = maxPanels > 0 && load.panels >= maxPanels;
    const std::array<RuleCost, 6> costs{
        {{Streams, sent(load.pixels) - load.pixels},
         {Rectangle, loaded(load) - sent(load.pixels)},
         {LowLatency, capacity.figure - capacity.pixels + capacity.limit - topAlignedLimit(load)},
         {NarrowPort, narrowLoss(load)},
         {Headroom, capacity.pixels - capacity.limit},
         {PanelCount, isFullOfPanels ? free : 0}}};
    const auto most = std::max_element(costs.begin(), costs.end(), [](const RuleCost &one, const RuleCost &other) {
        return one.pixels < other.pixels;
    });
    return most->pixels > 0 ? std::optional(*most) : std::nullopt;
}

qint64 PortBounds::pixelLimit(qint64 panelPixels) const
{
    const qint64 once = capacity.limit / streams;
    if (maxPanels == 0)
        return once;
    return std::min(once, Counted::limited(Counted::product(maxPanels, panelPixels)));
}
