#pragma once

#include "wiring/PortCapacity.h"
#include "wiring/PortLoad.h"

/// What a rule takes from a port.
struct RuleCost
{
    enum class Rule
    {
        Streams,    ///< each pixel is sent more than once
        Rectangle,  ///< the box around the panels counts
        LowLatency, ///< half, or less the lower the port begins
        NarrowPort,
        Headroom,
        PanelCount ///< the port is full of panels
    };

    Rule rule;
    qint64 pixels;
};

/// By how much a port is over.
struct PortExcess
{
    enum class Of
    {
        Pixels,
        Panels,
        Width,
        Height
    };

    Of of;
    qint64 found;
    qint64 limit;
};

/// What one port of a processor bears, by the figure of the model and the rules of its family.
struct PortBounds
{
    PortCapacity capacity;
    qint64 streams = 1;      ///< how often each pixel is sent
    bool isRectangle = true; ///< the box around the panels counts where it is larger
    bool isTopAligned = false;
    qint64 canvasHeight = 0; ///< of the output, in pixels
    qint64 minWidth = 0;     ///< 0: any will do
    qint64 maxWidth = 0;     ///< 0: none is published; the same for the others
    qint64 maxHeight = 0;
    qint64 maxPanels = 0;

    /// For an output of `canvasHeight` pixels. Error: there is no figure.
    [[nodiscard]] static tl::expected<PortBounds, NoFigure> of(const ProcessorSettings &settings, qint64 canvasHeight);

    /// The pixels that count.
    qint64 loaded(const PortLoad &load) const;
    /// Those that the port bears where these panels are, 0 or more.
    qint64 limit(const PortLoad &load) const;
    /// Nullopt: it fits. The first of pixels, panels, width and height that does not.
    std::optional<PortExcess> excess(const PortLoad &load) const;
    bool fits(const PortLoad &load) const { return !excess(load); }
    /// Whether a load that does not fit may fit again with more panels: two rules ask where a port's panels are.
    bool mayFitWithMore(const PortLoad &load) const;
    /// The highest rate, in Hz, at which a load of 1 panel and more fits, `settings` being those of these bounds.
    /// Nullopt: at none, or nobody knows, as the figure was typed.
    [[nodiscard]] std::optional<double> highestRate(const ProcessorSettings &settings, const PortLoad &load) const;
    /// Of a load of 1 panel and more. Nullopt: no rule takes anything.
    std::optional<RuleCost> costliest(const PortLoad &load) const;

    /// What whole lines are cut by: the smaller of the limit and of so many panels as a port takes, of `panelPixels`
    /// each.
    qint64 pixelLimit(qint64 panelPixels) const;

private:
    qint64 sent(qint64 pixels) const;
    qint64 topAlignedLimit(const PortLoad &load) const;
    qint64 narrowLoss(const PortLoad &load) const;
    bool fitsWithFigure(const PortLoad &load, qint64 figure) const;
};
