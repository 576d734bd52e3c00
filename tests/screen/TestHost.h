#pragma once

#include "layer/LayerHost.h"

#include <QSize>

#include <vector>

/// Surroundings of a layer that a test sets and reads.
class TestHost final : public LayerHost
{
public:
    struct Marker
    {
        QRectF rectangle;
        float scaleFactor; ///< that it had when it was drawn
    };

    qint64 voltageCalc() const override { return volts; }
    void setVoltageCalc(qint64 value) override { volts = value; }
    qint64 phaseCalc() const override { return phases; }
    void setPhaseCalc(qint64 value) override { phases = value; }
    int popupIndex() const override { return corners; }
    int OutputWidth() const override { return outputSize.width(); }
    int OutputHeight() const override { return outputSize.height(); }
    QSizeF canvasFrameSize() const override { return canvasFrame; }
    void setKScaleFactor(float factor) override { scaleFactor = factor; }
    void drawRectangle(const QRectF &rectangle) override { drawnMarkers.push_back({rectangle, scaleFactor}); }
    void hideRectangle() override { ++hiddenRectangles; }
    void choosePattern(qint64 pattern) override { chosenPatterns.push_back(pattern); }

    qint64 volts = 0;
    qint64 phases = 0;
    int corners = 0;
    QSize outputSize{1920, 1080};
    QSizeF canvasFrame{0, 0}; ///< 0 x 0: no canvas
    float scaleFactor = 0;    ///< of the marker, as last given
    std::vector<Marker> drawnMarkers;
    int hiddenRectangles = 0; ///< how often the marker was told to hide
    std::vector<qint64> chosenPatterns;
};
