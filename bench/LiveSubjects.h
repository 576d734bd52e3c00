#pragma once

#include "bench/Timing.h"

/// What a person at the wall waits for, on a display window of 8K. A QApplication exists.
namespace LiveSubjects {

/// The pointer goes on to the next of 12 walls' 1,980 panels, up to the painted display window, cross and all. Bytes
/// are the output's.
Subject pointing();
/// A frame of a chart, a sweep of 8 pixels, up to the painted display window. Bytes are the output's.
Subject frame();

} // namespace LiveSubjects
