#pragma once

#include "bench/Timing.h"

#include <QSize>
#include <QString>

/// What a person waits for at the window. A QApplication exists.
namespace WindowSubjects {

/// Painting the canvas that shows an output of this size in 1280 x 720 pixels, after another composition or once more.
/// Bytes are the output's.
enum class Paint
{
    AfterAnEdit,
    Again
};
Subject canvas(const QSize &output, Paint paint);

/// A key typed into the name of a wall, up to the repainted canvas: the wall is drawn, the output composed, everything
/// in the window follows. Bytes are the output's.
Subject keystrokeInExample(const QString &name);
/// The same for a wall that covers an output of 8K, with everything on.
Subject keystrokeIn8K();

} // namespace WindowSubjects
