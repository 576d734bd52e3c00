#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

class QColor;

/// The signs on buttons and in rows, all of one weight, drawn on a grid of 16: look well at 16 and 20 logical pixels.
/// A name is that of a file under :/icons/, "eye-slash". The first icon loads Qt's reader of such files, which takes
/// milliseconds: nothing that is painted first should wait for it.
namespace Icons {

/// A sign of `size` x `size` logical pixels on nothing, sharp at `devicePixelRatio`. `colour` is opaque. Kept, so that
/// it is cheap to ask for again. Null for a name that there is not.
QPixmap pixmap(const QString &name, int size, const QColor &colour, qreal devicePixelRatio);

/// The sign for a tool button or an action: in the colour of text, dim where that cannot be used, dark where a menu has
/// it on the accent; sharp at every scale.
QIcon icon(const QString &name);

} // namespace Icons
