#pragma once

#include "charts/ChartPainter.h"

/// "A1 · 5": the port of a panel and its place there; empty for a panel on none.
QString placeOnPort(const ChartPanel &panel);

/// Two lines in a panel, as large as it allows.
void drawPanelWords(ChartPainter &painter, const QRect &box, const QString &upper, const QString &lower, QRgb colour);
