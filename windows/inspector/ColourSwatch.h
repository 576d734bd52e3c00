#pragma once

#include <QIcon>

class QColor;
class QPainter;
class QRect;

/// How a colour looks, translucent ones on checkers.
namespace ColourSwatch {

void paint(QPainter &painter, const QRect &place, const QColor &colour);
QIcon icon(const QColor &colour, const QSize &size);

} // namespace ColourSwatch
