#pragma once

#include "layer/Layer.h"

#include <QPoint>
#include <QString>

#include <vector>

/// Sentences about a layer, to be read in the inspector.
namespace LayerText {

/// "7 × 5 panels, 896 × 640 px, 2 off"
QString wall(const Layer &layer);
/// "4 ports, 163,840 px each, last 81,920 px"; "1 port, 573,440 px" where all panels hang on one.
QString ports(const Layer &layer);
/// The label of the panel at a pixel of the output, of the topmost visible wall there: "C7"; empty where there is none.
QString panelAt(const std::vector<LayerPointer> &layers, const QPoint &pixel);
/// "12.73 A at 110 V, 1 phase"
QString power(const Layer &layer, qint64 volts, qint64 phases);
/// "1,920 × 1,080 px, shown at 50 %"; what is wrong where there is no picture.
QString picture(const Layer &layer);

} // namespace LayerText
