#include "app/windows/ColourButton.h"

#include "app/windows/Theme.h"

#include <QColorDialog>
#include <QPainter>

namespace {
constexpr QSize swatchSize{44, Theme::controlHeight};
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
    return swatchSize;
}

void ColourButton::choose()
{
    const OptionalColour before = m_isMixed ? std::nullopt : m_colour;
    const QColor first = before ? before->toQColor() : QColor(Qt::white);
    auto *dialog = new QColorDialog(first, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(m_name);
    dialog->setOptions(QColorDialog::ShowAlphaChannel | QColorDialog::DontUseNativeDialog);
    connect(dialog, &QColorDialog::currentColorChanged, this, &ColourButton::tell);
    connect(dialog, &QDialog::accepted, this, [this, dialog, before, first] {
        // A file's colour may be finer than the dialog's: left as it is, it is no choice.
        if (!before || dialog->selectedColor() != first)
            tell(dialog->selectedColor());
        emit choiceEnded();
    });
    connect(dialog, &QDialog::rejected, this, [this, before] { emit choiceCancelled(before); });
    emit choiceBegan();
    dialog->open();
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
        paintCheckers(painter, inside);
        painter.fillRect(inside, m_colour->toQColor());
    } else {
        painter.setPen(Theme::dimText);
        painter.drawLine(inside.bottomLeft(), inside.topRight());
    }
    painter.setPen(hasFocus() ? Theme::accent : Theme::line);
    painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), Theme::cornerRadius, Theme::cornerRadius);
}
