#pragma once

#include "bench/Timing.h"

/// What a hand on the canvas waits for, up to the repainted canvas, in an 8K show of 12 walls with everything on that
/// is fitted into the window. A QApplication exists.
namespace HandSubjects {

/// A panel is switched by a click. Bytes are the output's.
Subject panelClick();
/// One movement of the pointer that drags a wall of 4K across the show. Bytes are those of its old and its new box.
Subject wallDrag();
/// One movement of the pointer that switches the next panel off. Bytes are five times the panel's.
Subject holePainting();
/// A step of the wheel, in and out in turn. Bytes are those of the output that are seen, in the mean.
Subject wheelZoom();

} // namespace HandSubjects
