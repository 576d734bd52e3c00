#pragma once

#include <QSizeF>

/// What a layer needs of its surroundings. The document's controller implements it; so does the command line.
class LayerHost
{
public:
    virtual ~LayerHost() = default;

    /// Supply voltage in volts, 0 while none was chosen; the first text that needs it sets 110.
    virtual qint64 voltageCalc() const = 0;
    virtual void setVoltageCalc(qint64 volts) = 0;
    /// Number of phases, 0 while none was chosen; the first text that needs it sets 1.
    virtual qint64 phaseCalc() const = 0;
    virtual void setPhaseCalc(qint64 phases) = 0;

    /// Which corner coordinates are drawn: 0 the top left, 1 the bottom, 2 all, anything else none.
    virtual int popupIndex() const = 0;

    /// Size of the output in pixels; any 32-bit number, a file may hold it.
    virtual int OutputWidth() const = 0;
    virtual int OutputHeight() const = 0;

    /// Size of the frame in which the canvas shows the whole output; 0 x 0 where there is no canvas.
    virtual QSizeF canvasFrameSize() const = 0;
    /// A flow pattern was chosen with one of the arrow buttons: takes it over into the selected layer.
    virtual void choosePattern(qint64 pattern) = 0;
};
