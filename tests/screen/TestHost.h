#pragma once

#include "layer/LayerHost.h"

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
    void hideRectangle() override { ++hiddenRectangles; }
    void choosePattern(qint64 pattern) override { chosenPatterns.push_back(pattern); }

    qint64 volts = 0;
    qint64 phases = 0;
    int corners = 0;
    int hiddenRectangles = 0; ///< how often the marker was told to hide
    std::vector<qint64> chosenPatterns;
};
