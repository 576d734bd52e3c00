#pragma once

#include "facts/Load.h"
#include "facts/ShowPorts.h"
#include "facts/WallPorts.h"
#include "facts/WallSize.h"
#include "show/Project.h"

#include <QString>

#include <optional>
#include <vector>

/// A wall in numbers. Counts have 64 bits since a file may claim anything; nothing is drawn to get them.
struct WallFacts
{
    int columns = 0;
    int rows = 0;
    int panelWidth = 0;
    int panelHeight = 0;
    WallSize size;
    qint64 panelsOff = 0;

    qint64 pixelLimit = 0; ///< of a port; 0: none
    qint64 pattern = 0;
    bool isPathDrawn = false;
    WallPorts ports;

    int wattsPerPanel = 0;
    Load load;
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
    QString picture; ///< where a still's picture stands; null for a wall
    QString chart;   ///< the standard chart that a still shows in its place; null: none
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
    Load load;                      ///< of all layers
    float amperes = 0;
    ShowPorts ports;

    /// `volts` and `phases` of 0 become those that the project holds, else 110 and 1.
    static ProjectFacts of(const Project &project, qint64 volts, qint64 phases);
};
