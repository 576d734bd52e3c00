#pragma once

#include "layer/LayerHost.h"

#include <QSize>

#include <vector>

/// Surroundings of a layer that a test sets and reads.
class TestHost final : public LayerHost
{
public:
    qint64 voltageCalc() const override { return volts; }
    void setVoltageCalc(qint64 value) override { volts = value; }
    qint64 phaseCalc() const override { return phases; }
    void setPhaseCalc(qint64 value) override { phases = value; }
    int popupIndex() const override { return corners; }
    int OutputWidth() const override { return outputSize.width(); }
    int OutputHeight() const override { return outputSize.height(); }
    QSizeF canvasFrameSize() const override { return canvasFrame; }
    void choosePattern(qint64 pattern) override { chosenPatterns.push_back(pattern); }

    qint64 volts = 0;
    qint64 phases = 0;
    int corners = 0;
    QSize outputSize{1920, 1080};
    QSizeF canvasFrame{0, 0}; ///< 0 x 0: no canvas
    std::vector<qint64> chosenPatterns;
};
