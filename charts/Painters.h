#pragma once

#include "charts/ChartShape.h"

#include <QRegion>

class ChartPainter;

/// How each chart is drawn, and what moves of it (functions of ChartTable.cpp's rows). All pixels of the parts that
/// the painter has are written.
namespace Painters {

using Shape = ChartShape;

void rp219(ChartPainter &, const Shape &, qint64);       ///< A = 100 % white, B = black
void rp219WithIQ(ChartPainter &, const Shape &, qint64); ///< A = -I, B = +Q
void rp219WithPeaks(ChartPainter &, const Shape &, qint64);
void bars100(ChartPainter &, const Shape &, qint64);
void bars75(ChartPainter &, const Shape &, qint64);
void bars75White75(ChartPainter &, const Shape &, qint64);
void oldBars(ChartPainter &, const Shape &, qint64);
void ramp(ChartPainter &, const Shape &, qint64);
void ramps(ChartPainter &, const Shape &, qint64);
void steps(ChartPainter &, const Shape &, qint64);
void nearBlack(ChartPainter &, const Shape &, qint64);
void nearWhite(ChartPainter &, const Shape &, qint64);
void field(ChartPainter &, const Shape &, qint64);
void uniformity(ChartPainter &, const Shape &, qint64);
void gamma(ChartPainter &, const Shape &, qint64);
void pluge(ChartPainter &, const Shape &, qint64);
template <int side>
void checker(ChartPainter &, const Shape &, qint64);
void linesUpright(ChartPainter &, const Shape &, qint64);
void linesAcross(ChartPainter &, const Shape &, qint64);
void linesRedBlue(ChartPainter &, const Shape &, qint64);
void lineGroups(ChartPainter &, const Shape &, qint64);
void frame(ChartPainter &, const Shape &, qint64);
void crossHatch(ChartPainter &, const Shape &, qint64);
void panels(ChartPainter &, const Shape &, qint64);
void coordinates(ChartPainter &, const Shape &, qint64);
void frequencySweep(ChartPainter &, const Shape &, qint64);
void zonePlate(ChartPainter &, const Shape &, qint64);
void moire(ChartPainter &, const Shape &, qint64);

void sweepRight(ChartPainter &, const Shape &, qint64);
QRegion sweepRightMoved(const Shape &, qint64, qint64);
void sweepDown(ChartPainter &, const Shape &, qint64);
QRegion sweepDownMoved(const Shape &, qint64, qint64);
void sweepDiagonal(ChartPainter &, const Shape &, qint64);
QRegion sweepDiagonalMoved(const Shape &, qint64, qint64);
void chase(ChartPainter &, const Shape &, qint64);
QRegion chaseMoved(const Shape &, qint64, qint64);
void chasePorts(ChartPainter &, const Shape &, qint64);
QRegion chasePortsMoved(const Shape &, qint64, qint64);
void walkPixels(ChartPainter &, const Shape &, qint64);
QRegion walkPixelsMoved(const Shape &, qint64, qint64);
void walkRows(ChartPainter &, const Shape &, qint64);
QRegion walkRowsMoved(const Shape &, qint64, qint64);
void walkColumns(ChartPainter &, const Shape &, qint64);
QRegion walkColumnsMoved(const Shape &, qint64, qint64);
void movingBars(ChartPainter &, const Shape &, qint64);
QRegion movingBarsMoved(const Shape &, qint64, qint64);
void colourCycle(ChartPainter &, const Shape &, qint64);
QRegion colourCycleMoved(const Shape &, qint64, qint64);
void sync(ChartPainter &, const Shape &, qint64);
QRegion syncMoved(const Shape &, qint64, qint64);
void strobeWhite(ChartPainter &, const Shape &, qint64);
void strobeColour(ChartPainter &, const Shape &, qint64);
QRegion strobeMoved(const Shape &, qint64, qint64);

} // namespace Painters
