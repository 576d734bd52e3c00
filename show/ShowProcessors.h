#pragma once

#include "layer/Layer.h"
#include "wiring/FreePorts.h"
#include "wiring/Processors.h"

#include <QSize>

/// What the processors of a show do with its walls. The functions change the layers with plain setters.
namespace ShowProcessors {

using Processors = ::Processors::List;
using Layers = std::vector<LayerPointer>;

/// More are no show's, and no file holds them.
inline constexpr std::size_t mostProcessors = 1000;

/// Null: there is none of that name.
const ProcessorSettings *find(const Processors &processors, const QString &name);
/// The first of "A" to "Z", "AA", "AB" and so on that none has.
QString freeName(const Processors &processors);

/// The name of the one that feeds a wall; empty: none.
QString of(const Layer &wall);
/// Whether a layer covers an output of that size, as test pictures and backgrounds do: no processor feeds those.
bool spansOutput(const Layer &layer, const QSize &output);

/// A wall that no processor feeds yet is fed by that one, unless it spans the output.
void feed(Layer &layer, const QString &processor, const QSize &output);
/// A processor has another name: walls and cables that name it follow.
void rename(const Layers &layers, const QString &processor, const QString &name);

/// The pixels per port of each wall that leaves them to its processor: what a port carries, or so many panels as it
/// takes where that is less; those walls are rendered. They stay where there is no figure or no such processor. Returns
/// whether any changed.
bool followLimits(const Layers &layers, const Processors &processors, const QSize &output);

/// The cables of copies hang on free ports of the show that they come into; what hung on one port still does.
void takeFreePorts(const Layers &copies, const FreePorts &free);
/// A wall that becomes a preset keeps its way of splitting alone.
void leaveShow(Layer &wall);

} // namespace ShowProcessors
