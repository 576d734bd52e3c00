#include "windows/ElidedLabel.h"

#include <QPainter>

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QRect room = contentsRect();
    constexpr int middle = Qt::AlignLeft | Qt::AlignVCenter;
    constexpr int wrapped = middle | Qt::TextWordWrap;
    if (room.contains(fontMetrics().boundingRect(room, wrapped, text())))
        painter.drawText(room, wrapped, text());
    else
        painter.drawText(room, middle, fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}
