#pragma once

#include "layer/Layer.h"

#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

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
/// What is wrong with a layer on an output of this size and what to do, one sentence each, the most urgent first: a
/// picture that is missing, a layer wholly outside, a port that cannot carry one line of panels. Empty: nothing.
QStringList warnings(const Layer &layer, const QSize &output);

} // namespace LayerText
