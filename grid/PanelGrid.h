#pragma once

#include "grid/PanelAxis.h"

/// Where the panels of a wall lie in it, in pixels. Who draws, counts or clicks panels asks here.
struct PanelGrid
{
    PanelAxis columns; ///< from the left
    PanelAxis rows;    ///< from the top

    /// As a chart counts them, whose y goes up.
    PanelAxis rowsFromBottom() const { return rows.mirrored(); }

    /// Of a panel of the regular size.
    qint64 panelPixels() const { return qint64{columns.lineSize()} * rows.lineSize(); }
    /// Of all panels together; the largest 64-bit number where they are more.
    qint64 pixels() const;
};
