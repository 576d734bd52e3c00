#include "wiring/PortCapacity.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>

namespace {
constexpr double televisionSlack = 0.006; ///< Hz; what is typed is 59.94

QString rateText(double rate)
{
    return QString::number(rate, 'g', 6);
}

struct Figure
{
    qint64 pixels;
    PortCapacity::Origin origin;
    const CapacityModel *model;
};

using FoundFigure = tl::expected<Figure, NoFigure::Reason>;

FoundFigure linkFigure(const CapacityModel &model, int bits, qint64 milliHz)
{
    const auto link = model.links.find(bits);
    if (link == model.links.end())
        return tl::unexpected(NoFigure::Reason::NoSuchDepth);
    if (milliHz > model.maxHz * qint64{1000})
        return tl::unexpected(NoFigure::Reason::NoSuchRate);
    Figure figure{link->second.payloadBps * 1000 / (link->second.bitsPerPixel * milliHz), PortCapacity::Origin::Derived,
                  &model};
    for (const CapacityCell &cell : model.published) {
        if (cell.bits == bits && cell.hz * qint64{1000} == milliHz && cell.pixels <= figure.pixels)
            figure = {cell.pixels, PortCapacity::Origin::Published, &model};
    }
    return figure;
}

FoundFigure tableFigure(const CapacityModel &model, int bits, qint64 milliHz)
{
    const CapacityCell *found = nullptr;
    bool hasDepth = false;
    for (const CapacityCell &cell : model.published) {
        hasDepth |= cell.bits == bits;
        if (cell.bits == bits && cell.hz * qint64{1000} >= milliHz && (!found || cell.hz < found->hz))
            found = &cell;
    }
    if (!found)
        return tl::unexpected(hasDepth ? NoFigure::Reason::NoSuchRate : NoFigure::Reason::NoSuchDepth);
    const bool isExact = found->hz * qint64{1000} == milliHz;
    return Figure{found->pixels, isExact ? PortCapacity::Origin::Published : PortCapacity::Origin::NextHigherRate,
                  &model};
}

FoundFigure figureOf(const CapacityModel &model, int bits, qint64 milliHz)
{
    switch (model.kind) {
    case CapacityModel::Kind::Link:
        return linkFigure(model, bits, milliHz);
    case CapacityModel::Kind::Table:
        return tableFigure(model, bits, milliHz);
    case CapacityModel::Kind::None:
        break;
    }
    return tl::unexpected(NoFigure::Reason::NothingPublished);
}

/// The lowest, as long as it is not known which of the cards hang there.
FoundFigure lowestFigure(const std::vector<const CapacityModel *> &models, int bits, qint64 milliHz)
{
    FoundFigure lowest = tl::unexpected(NoFigure::Reason::NothingPublished);
    for (const CapacityModel *model : models) {
        const FoundFigure figure = figureOf(*model, bits, milliHz);
        if (!figure)
            return figure;
        if (!lowest || figure->pixels < lowest->pixels)
            lowest = figure;
    }
    return lowest;
}

NoFigure noFigure(NoFigure::Reason reason, const ProcessorSettings &settings)
{
    using enum NoFigure::Reason;
    switch (reason) {
    case NoSuchModel:
        return {reason, QString("There is no processor \"%1\"; choose another model.").arg(settings.model)};
    case NothingPublished:
        return {reason, QString("No figure is published for %1; type the pixels per port.").arg(settings.model)};
    case NoSuchDepth:
        return {reason, QString("No figure is published for %1 at %2 bit; type the pixels per port.")
                            .arg(settings.model)
                            .arg(settings.bits)};
    case NoSuchRate:
        break;
    }
    return {reason, QString("No figure is published for %1 at %2 bit and %3 Hz; type the pixels per port.")
                        .arg(settings.model)
                        .arg(settings.bits)
                        .arg(rateText(settings.rate))};
}

FoundFigure publishedFigure(const ProcessorCatalogue &catalogue, const ProcessorModel &model,
                            const ProcessorSettings &settings)
{
    if (!(settings.rate >= 1 && settings.rate <= 1'000))
        return tl::unexpected(NoFigure::Reason::NoSuchRate);
    const FoundFigure figure =
        lowestFigure(catalogue.capacityModelsOf(model, settings.card), settings.bits, countedRate(settings.rate));
    const bool hasDepth = std::find(model.bits.begin(), model.bits.end(), settings.bits) != model.bits.end();
    if (figure && !hasDepth)
        return tl::unexpected(NoFigure::Reason::NoSuchDepth);
    return figure;
}

/// Rates at which a figure may be the last one that is large enough, in thousandths of a Hz.
std::vector<qint64> lastRates(const CapacityModel &model, int bits, qint64 figure)
{
    std::vector<qint64> rates;
    for (const CapacityCell &cell : model.published) {
        rates.push_back(cell.hz * qint64{1000});
        rates.push_back(cell.hz * qint64{1000} - 1); // of a link, whose printed cell may be lower than its bandwidth
    }
    const auto link = model.links.find(bits);
    if (link != model.links.end()) {
        const qint64 rate = link->second.payloadBps * 1000 / (link->second.bitsPerPixel * figure);
        rates.push_back(std::min(rate, model.maxHz * qint64{1000}));
    }
    return rates;
}

/// A rate that counts as a higher one, of which it is 1000/1001; the last one before it does.
qint64 rateBeforeTelevision(qint64 counted)
{
    return static_cast<qint64>(std::floor((static_cast<double>(counted) - 1000 * televisionSlack) / 1.001));
}

bool isHalved(const PortRules &rules, const ProcessorSettings &settings)
{
    return settings.lowLatency && rules.lowLatency == PortRules::LowLatency::Half &&
           (rules.lowLatencyModels.isEmpty() || rules.lowLatencyModels.contains(settings.model));
}
} // namespace

qint64 countedRate(double rate)
{
    const double whole = std::round(rate * 1.001);
    const double counted = std::abs(rate * 1.001 - whole) < televisionSlack ? whole : rate;
    return static_cast<qint64>(std::ceil(counted * 1000 - 1e-6));
}

bool ProcessorSettings::isLike(const ProcessorSettings &other) const
{
    ProcessorSettings renamed = other;
    renamed.name = name;
    renamed.backupProcessor = backupProcessor;
    renamed.unknown = unknown;
    return *this == renamed;
}

tl::expected<PortCapacity, NoFigure> PortCapacity::of(const ProcessorSettings &settings)
{
    const ProcessorCatalogue &catalogue = catalogueOf(settings);
    const ProcessorModel *model = catalogue.model(settings.model);
    if (!model)
        return tl::unexpected(noFigure(NoFigure::Reason::NoSuchModel, settings));
    PortCapacity capacity;
    if (settings.capacity > 0) {
        capacity.figure = std::min(settings.capacity, qint64{1'000'000'000'000});
        capacity.origin = Origin::Typed;
    } else {
        const FoundFigure figure = publishedFigure(catalogue, *model, settings);
        if (!figure)
            return tl::unexpected(noFigure(figure.error(), settings));
        capacity.figure = figure->pixels;
        capacity.origin = figure->origin;
        capacity.model = figure->model;
    }
    capacity.isHalved = ::isHalved(catalogue.rulesOf(*model), settings);
    capacity.headroom = std::clamp(settings.headroom, 0, 99);
    return capacity.withFigure(capacity.figure);
}

PortCapacity PortCapacity::withFigure(qint64 other) const
{
    PortCapacity capacity = *this;
    capacity.figure = other;
    capacity.pixels = isHalved ? other / 2 : other;
    capacity.limit = capacity.pixels * (100 - headroom) / 100;
    return capacity;
}

std::optional<double> PortCapacity::highestRate(const ProcessorSettings &settings, qint64 least) const
{
    constexpr qint64 mostPixels = qint64{1} << 41;
    constexpr qint64 leastRate = 1000; // thousandths of a Hz; what is too much for any has none at all
    if (!model || least > mostPixels)
        return std::nullopt;
    const ProcessorCatalogue &catalogue = catalogueOf(settings);
    const auto models = catalogue.capacityModelsOf(*catalogue.model(settings.model), settings.card);
    std::set<qint64, std::greater<>> rates;
    for (const CapacityModel *one : models) {
        for (const qint64 rate : lastRates(*one, settings.bits, std::max(least, qint64{1}))) {
            rates.insert(rate);
            rates.insert(rateBeforeTelevision(countedRate(static_cast<double>(rate) / 1000)));
        }
    }
    rates.erase(rates.upper_bound(leastRate), rates.end()); // the highest one is first
    for (const qint64 rate : rates) {
        const double hertz = static_cast<double>(rate) / 1000;
        const FoundFigure found = lowestFigure(models, settings.bits, countedRate(hertz));
        if (found && found->pixels >= least)
            return hertz;
    }
    return std::nullopt;
}
