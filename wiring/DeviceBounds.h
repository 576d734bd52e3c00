#pragma once

#include "wiring/PortLoad.h"
#include "wiring/PortPairs.h"
#include "wiring/WallSplit.h"

/// What one processor bears as a whole.
struct DeviceBounds
{
    PortPairs pairs;
    DeviceCap cap;               ///< at the rate that is set
    std::vector<QSize> canvases; ///< one of them must hold all panels, if there is more than one
    qint64 canvasPixels = 0;     ///< most in the box around all panels; 0: none is published; the same for the others
    qint64 maxWidth = 0;
    qint64 maxHeight = 0;
    qint64 maxPanelsPerLoop = 0;
    qint64 streams = 1;

    static DeviceBounds of(const ProcessorModel &model, const PortRules &rules, const ProcessorSettings &settings);

    /// The pixels of all its panels that count against the cap.
    qint64 counted(const PortLoad &total) const;
    bool takes(const PortLoad &total) const
    {
        return cap.kind == DeviceCap::Kind::Unsaid || counted(total) <= cap.pixels;
    }
    /// How many runs of a wall it takes, from the first on, when nothing else hangs on it; one at least.
    std::size_t runsOf(const WallSplit &wall) const;
    /// The box around all panels lies within the canvas.
    bool holds(const PortLoad &total) const;
};
