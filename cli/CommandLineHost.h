#pragma once

#include "layer/LayerHost.h"

/// The surroundings of layers where there is no window: what its controls would say comes from the arguments.
class CommandLineHost final : public LayerHost
{
public:
    static constexpr int noCorners = -1; ///< walls show no corner coordinates

    /// `volts` and `phases` as in LayerHost, 0: not chosen; `corners` is its popupIndex().
    CommandLineHost(qint64 volts, qint64 phases, int corners) : m_volts(volts), m_phases(phases), m_corners(corners) {}

    qint64 voltageCalc() const override { return m_volts; }
    void setVoltageCalc(qint64 volts) override { m_volts = volts; }
    qint64 phaseCalc() const override { return m_phases; }
    void setPhaseCalc(qint64 phases) override { m_phases = phases; }
    int popupIndex() const override { return m_corners; }
    /// Without a canvas there is nothing to fit an output into.
    int OutputWidth() const override { return 0; }
    int OutputHeight() const override { return 0; }
    QSizeF canvasFrameSize() const override { return {0, 0}; }
    void choosePattern(qint64 /*pattern*/) override {}

private:
    qint64 m_volts;
    qint64 m_phases;
    int m_corners;
};
