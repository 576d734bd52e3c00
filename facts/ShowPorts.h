#pragma once

#include "layer/Layer.h"
#include "wiring/ShowWiring.h"

#include <QSize>

#include <vector>

struct Project;

/// The walls of a show as wiring asks for them, and where its pictures are left out.
struct ShowPorts
{
    ShowToWire show;
    std::vector<qsizetype> rows; ///< of the walls of `show` in the layer list
    ShowWiring wiring;

    /// `layers`: topmost first.
    static ShowPorts of(const std::vector<LayerPointer> &layers, const std::vector<ProcessorSettings> &processors,
                        const QSize &output);
    static ShowPorts of(const Project &project);

    /// "A1"; "A?" where no processor has a port for it.
    QString nameOf(const ShowWiring::Port &port) const;
    /// Of a wall of `show`; "a wall without a name".
    QString wallName(std::size_t wall) const;
};

/// A wall as wiring asks for it.
WallToWire wallToWire(const Layer &wall);
/// The walls among the layers, topmost first, with what feeds them.
ShowToWire showToWire(const std::vector<LayerPointer> &layers, const std::vector<ProcessorSettings> &processors,
                      const QSize &output);
