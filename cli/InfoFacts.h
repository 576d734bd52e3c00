#pragma once

#include "screen/PortSplit.h"
#include "show/Project.h"

#include <QString>

#include <optional>
#include <vector>

/// Ports of a processor that follow each other and carry the same.
struct PortGroup
{
    qint64 first = 1; ///< the first port is 1
    qint64 last = 1;
    qint64 lines = 0;             ///< rows of panels on each port, columns for a pattern along columns
    qint64 panels = 0;            ///< on each port
    std::optional<qint64> pixels; ///< on each port; nullopt: more than 64 bits can count

    qint64 count() const { return last - first + 1; }
};

/// A wall in numbers. Counts have 64 bits since a file may claim anything; nothing is drawn to get them.
struct WallFacts
{
    int columns = 0;
    int rows = 0;
    int panelWidth = 0;
    int panelHeight = 0;
    qint64 panels = 0; ///< switched-off ones too; 0 for sizes below 1
    qint64 hiddenPanels = 0;

    qint64 pixelLimit = 0; ///< of a port; 0: none
    qint64 pattern = 0;
    std::optional<FlowPattern> path; ///< nullopt: there is no such pattern, so no ports either
    bool isPathDrawn = false;
    std::vector<PortGroup> ports; ///< in the processor's order; at most two groups, since only the last port differs

    int wattsPerPanel = 0;
    qint32 watts = 0;
    float amperes = 0;
};

/// A layer in words and numbers.
struct LayerFacts
{
    QString className;
    QString label; ///< null: it has no name
    bool isVisible = false;
    int x = 0;        ///< of the left edge, output pixels
    int y = 0;        ///< of the top edge, downwards
    qint64 width = 0; ///< pixels on the output
    qint64 height = 0;
    bool isTooLargeToDraw = false;
    QString picture; ///< where a still's picture stands; null for a wall
    std::optional<WallFacts> wall;
};

/// What there is to tell of a project.
struct ProjectFacts
{
    int outputWidth = 0;
    int outputHeight = 0;
    qint64 volts = 0;
    qint64 phases = 0;
    std::vector<LayerFacts> layers; ///< topmost first
    qint32 watts = 0;               ///< of all layers
    float amperes = 0;

    /// `volts` and `phases` of 0 become those that the project holds, else 110 and 1.
    static ProjectFacts of(const Project &project, qint64 volts, qint64 phases);
};
