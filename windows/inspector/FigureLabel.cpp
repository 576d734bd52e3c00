#include "windows/inspector/FigureLabel.h"

#include "windows/Theme.h"

#include <QPainter>

#include <algorithm>

namespace {
int digitWidth(const QFontMetrics &metrics)
{
    int widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
    return widest;
}

int widthOf(QChar sign, const QFontMetrics &metrics)
{
    return sign.isDigit() ? digitWidth(metrics) : metrics.horizontalAdvance(sign);
}

int widthOf(const QString &text, const QFontMetrics &metrics)
{
    int width = 0;
    for (const QChar sign : text)
        width += widthOf(sign, metrics);
    return width;
}
} // namespace

FigureLabel::FigureLabel(const QString &name, QWidget *parent) : QLabel(parent)
{
    setAccessibleName(name);
    setTextFormat(Qt::PlainText);
    setFont(Theme::figureFont());
}

QSize FigureLabel::sizeHint() const
{
    return {widthOf(text(), fontMetrics()), fontMetrics().height()};
}

void FigureLabel::paintEvent(QPaintEvent *)
{
    QFont fitting = font();
    const int wanted = widthOf(text(), fontMetrics());
    if (wanted > 0 && wanted > width())
        fitting.setPixelSize(std::max(1, font().pixelSize() * width() / wanted));
    QPainter painter(this);
    painter.setFont(fitting);
    painter.setPen(palette().color(QPalette::WindowText));
    const QFontMetrics metrics(fitting);
    int left = 0;
    for (const QChar sign : text()) {
        const QRect cell(left, 0, widthOf(sign, metrics), height());
        painter.drawText(cell, Qt::AlignCenter | Qt::TextDontClip, sign);
        left = cell.right() + 1;
    }
}
