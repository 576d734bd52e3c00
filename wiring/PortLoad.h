#pragma once

#include "base/Counted.h"
#include "layer/PixelBox.h"

/// What hangs on one port: its panels that are on.
struct PortLoad
{
    qint64 panels = 0;
    qint64 pixels = 0; ///< of the panels, each once; the largest number where they are more
    PixelBox box;      ///< around the panels; nothing is said while there are none

    void add(const PixelBox &panel) { add(PortLoad{1, pixelsOf(panel), panel}); }
    void add(const PortLoad &other)
    {
        if (other.panels == 0)
            return;
        box = panels == 0 ? other.box : box.united(other.box);
        panels += other.panels;
        Counted::add(pixels, other.pixels);
    }

    qint64 width() const { return box.columns.to - box.columns.from; }
    qint64 height() const { return box.rows.to - box.rows.from; }
    /// Of the box.
    qint64 boxPixels() const { return panels == 0 ? 0 : pixelsOf(box); }

private:
    static qint64 pixelsOf(const PixelBox &box)
    {
        if (box.isEmpty())
            return 0;
        return Counted::limited(Counted::product(box.columns.to - box.columns.from, box.rows.to - box.rows.from));
    }
};
