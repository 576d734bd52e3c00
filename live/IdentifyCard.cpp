#include "live/IdentifyCard.h"

#include <QFontMetrics>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace {
constexpr int heightsOfDisplay = 5; ///< a card is a fifth as high

/// White on black, as large as a fifth of the height allows.
void paintCard(QPainter &painter, const QRect &card, const QStringList &lines)
{
    painter.fillRect(card, Qt::black);
    painter.setPen(Qt::white);
    painter.drawRect(card.adjusted(0, 0, -1, -1));
    QFont font;
    const int lineHeight = card.height() / (static_cast<int>(lines.size()) + 1);
    font.setPixelSize(std::max(1, lineHeight * 3 / 4));
    for (const QString &line : lines) {
        const int width = QFontMetrics(font).horizontalAdvance(line);
        if (width > card.width() * 9 / 10)
            font.setPixelSize(std::max(1, font.pixelSize() * card.width() * 9 / 10 / width));
    }
    painter.setFont(font);
    painter.drawText(card, Qt::AlignCenter, lines.join('\n'));
}

/// In the middle of a display.
QRect cardOf(const QSize &display)
{
    const int height = display.height() / heightsOfDisplay;
    QRect card(0, 0, std::min(display.width(), height * 4), height);
    card.moveCenter(QRect(QPoint(), display).center());
    return card;
}
} // namespace

IdentifyCard::IdentifyCard(QScreen &display, const QStringList &lines)
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus),
      m_lines(lines)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setScreen(&display);
    setGeometry(display.geometry());
    setMask(QRegion(rect()) - rect().adjusted(1, 1, -1, -1) + cardOf(size()));
    show();
}

void IdentifyCard::paintOnDisplay(QPainter &painter, const QSize &size, int turn, const QStringList &lines)
{
    painter.setPen(Qt::white);
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    const QSize upright = turn % 180 == 0 ? size : size.transposed();
    painter.save();
    painter.translate(QPoint(size.width() / 2, size.height() / 2));
    painter.rotate(turn);
    painter.translate(-QPoint(upright.width() / 2, upright.height() / 2));
    paintCard(painter, cardOf(upright), lines);
    painter.restore();
}

void IdentifyCard::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black); // some platforms do not shape windows
    painter.setPen(Qt::white);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    paintCard(painter, cardOf(size()), m_lines);
}
