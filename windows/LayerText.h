#pragma once

#include "layer/Layer.h"

#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

#include <vector>

/// Sentences about layers, to be read in the inspector: one layer is described, of several the sum is told. Layers of
/// another kind do not count; empty where there are no others.
namespace LayerText {

/// "7 × 5 panels, 896 × 640 px, 2 off"; "2 walls, 41 panels, 3 off".
QString wall(const std::vector<LayerPointer> &layers);
/// "4 ports, 163,840 px each, last 81,920 px"; "1 port, 573,440 px" where all panels hang on one; "7 ports".
QString ports(const std::vector<LayerPointer> &layers);
/// Whether a wall among them has a port that cannot carry one line of panels.
bool hasPortOverLimit(const std::vector<LayerPointer> &layers);
/// The topmost visible wall at a pixel of the output and the panel there: "MAIN C7"; empty where there is none.
QString panelAt(const std::vector<LayerPointer> &layers, const QPoint &pixel);
/// "12.73 A"
QString amperes(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases);
/// "at 110 V, 1 phase"
QString at(qint64 volts, qint64 phases);
/// "12.73 A at 110 V, 1 phase", and whether the watts were too many for that figure.
QString power(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases);
/// "12.73 A at 110 V, 1 phase, 1.40 kW"
QString load(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases);
/// Whether all their watts can be counted, and what is said beside a figure where they cannot.
bool isPowerCounted(const std::vector<LayerPointer> &layers);
inline constexpr QLatin1StringView beyondCounting{"beyond what can be counted"};
/// "1,920 × 1,080 px, shown at 50 %"; what is wrong where there is no picture; "2 pictures".
QString picture(const std::vector<LayerPointer> &layers);
/// The sentences of LayerChecks::whileEditing(), without what is meant.
QStringList warnings(const Layer &layer, const QSize &output);

} // namespace LayerText
