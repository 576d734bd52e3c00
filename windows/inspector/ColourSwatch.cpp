#include "windows/inspector/ColourSwatch.h"

#include <QPainter>
#include <QPixmap>

namespace {
constexpr int checkSide = 6;

/// What shines through a translucent colour.
void paintCheckers(QPainter &painter, const QRect &place)
{
    painter.fillRect(place, Qt::white);
    for (int y = 0; y < place.height(); y += checkSide) {
        for (int x = y / checkSide % 2 * checkSide; x < place.width(); x += 2 * checkSide)
            painter.fillRect(QRect(place.topLeft() + QPoint(x, y), QSize(checkSide, checkSide)) & place, Qt::lightGray);
    }
}
} // namespace

void ColourSwatch::paint(QPainter &painter, const QRect &place, const QColor &colour)
{
    paintCheckers(painter, place);
    painter.fillRect(place, colour);
}

QIcon ColourSwatch::icon(const QColor &colour, const QSize &size)
{
    QPixmap picture(size);
    QPainter painter(&picture);
    paint(painter, picture.rect(), colour);
    painter.end();
    return QIcon(picture);
}
