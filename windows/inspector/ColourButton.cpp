#include "windows/inspector/ColourButton.h"

#include "windows/Theme.h"
#include "windows/inspector/ColourPopover.h"
#include "windows/inspector/ColourSwatch.h"

#include <QPainter>

namespace {
constexpr QSize buttonSwatchSize{44, Theme::controlHeight};
} // namespace

ColourButton::ColourButton(const QString &name, QWidget *parent) : QAbstractButton(parent), m_name(name)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setToolTip("Chooses the " + name.toLower() + " and its opacity");
    showText();
    connect(this, &QAbstractButton::clicked, this, &ColourButton::choose);
}

void ColourButton::show(const OptionalColour &colour)
{
    m_colour = colour;
    m_isMixed = false;
    showText();
    update();
}

void ColourButton::showMixed()
{
    m_isMixed = true;
    showText();
    update();
}

void ColourButton::showText()
{
    const QString colour = m_isMixed  ? QString("several")
                           : m_colour ? m_colour->toQColor().name(QColor::HexArgb)
                                      : QString("none");
    setAccessibleName(m_name);
    setAccessibleDescription(colour);
}

QSize ColourButton::sizeHint() const
{
    return buttonSwatchSize;
}

void ColourButton::choose()
{
    const OptionalColour before = m_isMixed ? std::nullopt : m_colour;
    auto *popover = new ColourPopover(m_name, before ? before->toQColor() : QColor(),
                                      m_offered ? m_offered() : QList<QColor>(), this);
    connect(popover, &ColourPopover::looked, this, &ColourButton::tell);
    connect(popover, &ColourPopover::kept, this, &ColourButton::choiceEnded);
    connect(popover, &ColourPopover::cancelled, this, [this, before] { emit choiceCancelled(before); });
    emit choiceBegan();
    popover->showBeside(*this);
}

void ColourButton::tell(const QColor &colour)
{
    emit edited(Colour::fromRgba8(colour.rgba()));
}

void ColourButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect inside = rect().adjusted(2, 2, -2, -2);
    if (m_isMixed) {
        painter.setPen(Theme::dimText);
        painter.drawText(inside, Qt::AlignCenter, "—");
    } else if (m_colour) {
        ColourSwatch::paint(painter, inside, m_colour->toQColor());
    } else {
        painter.setPen(Theme::dimText);
        painter.drawLine(inside.bottomLeft(), inside.topRight());
    }
    painter.setPen(hasFocus() ? Theme::accent : Theme::line);
    painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), Theme::cornerRadius, Theme::cornerRadius);
}
