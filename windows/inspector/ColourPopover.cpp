#include "windows/inspector/ColourPopover.h"

#include "windows/Theme.h"
#include "windows/inspector/ColourPlane.h"
#include "windows/inspector/ColourSwatch.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {
constexpr int swatchesInRow = 6;
constexpr QSize listSwatchSize{18, 18};

/// "#ff8000"; with its opacity first, "#80ff8000", where it is not opaque.
QString digitsOf(const QColor &colour)
{
    return colour.isValid() ? colour.name(colour.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb) : QString();
}

/// Invalid for what is not six or eight digits.
QColor colourOf(const QString &text)
{
    static const QRegularExpression form("^#?([0-9a-fA-F]{6}|[0-9a-fA-F]{8})$");
    const QRegularExpressionMatch match = form.match(text.trimmed());
    return match.hasMatch() ? QColor('#' + match.captured(1)) : QColor();
}
} // namespace

ColourPopover::ColourPopover(const QString &name, const QColor &first, const QList<QColor> &ofShow, QWidget *parent)
    : QFrame(parent, Qt::Popup), m_digits(new QLineEdit(digitsOf(first))), m_fault(new QLabel), m_plane(new ColourPlane)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAccessibleName(name);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(Theme::edge, Theme::edge, Theme::edge, Theme::edge);
    column->setSpacing(Theme::gap);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(Theme::title(name, m_digits));
    m_digits->setAccessibleName(name + ", digits");
    m_digits->setToolTip("Red, green and blue in two digits each, before them the opacity: ff8000 or 80ff8000");
    m_digits->setPlaceholderText("#rrggbb");
    m_digits->selectAll();
    column->addWidget(m_digits);
    m_fault->setFont(Theme::smallFont());
    m_fault->hide();
    column->addWidget(m_fault);
    column->addLayout(swatches(ofShow));
    m_plane->show(first.isValid() ? first : QColor(Qt::white));
    column->addWidget(m_plane);
    connect(m_digits, &QLineEdit::textEdited, this, &ColourPopover::takeDigits);
    connect(m_plane, &ColourPlane::pointed, this, [this](const QColor &colour) {
        m_digits->setText(digitsOf(colour));
        look(colour);
    });
}

QGridLayout *ColourPopover::swatches(const QList<QColor> &colours)
{
    auto *grid = new QGridLayout;
    grid->setSpacing(Theme::gap / 2);
    for (int i = 0; i < colours.size(); ++i) {
        const QColor colour = colours[i];
        auto *button = new QToolButton;
        button->setIcon(ColourSwatch::icon(colour, listSwatchSize));
        button->setIconSize(listSwatchSize);
        button->setAccessibleName(digitsOf(colour));
        button->setToolTip(digitsOf(colour) + ", a colour of this show");
        connect(button, &QToolButton::clicked, this, [this, colour] {
            m_digits->setText(digitsOf(colour));
            look(colour);
        });
        grid->addWidget(button, i / swatchesInRow, i % swatchesInRow);
    }
    grid->setColumnStretch(swatchesInRow, 1);
    return grid;
}

void ColourPopover::showBeside(const QWidget &button)
{
    adjustSize();
    const QRect room = button.screen()->availableGeometry();
    const QWidget &window = *button.window();
    const int left = window.mapToGlobal(QPoint(window.width() - width() - Theme::gap, 0)).x();
    const QPoint below(left, button.mapToGlobal(QPoint(0, button.height() + Theme::gap / 2)).y());
    const int above = below.y() - button.height() - height() - Theme::gap;
    const int top = below.y() + height() <= room.bottom() ? below.y() : std::max(room.top(), above);
    move(std::max(room.left(), below.x()), top);
    show();
    m_digits->setFocus(Qt::PopupFocusReason);
}

void ColourPopover::takeDigits(const QString &text)
{
    const QColor colour = colourOf(text);
    m_fault->setText(colour.isValid() ? QString() : QString("Type six digits, 0 to 9 and a to f."));
    m_fault->setVisible(!colour.isValid());
    Theme::frameAsWrong(*m_digits, !colour.isValid());
    if (colour.isValid())
        look(colour);
}

void ColourPopover::look(const QColor &colour)
{
    m_fault->hide();
    Theme::frameAsWrong(*m_digits, false);
    m_plane->show(colour);
    emit looked(colour);
}

void ColourPopover::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    m_isCancelled = event->key() == Qt::Key_Escape;
    if (isEnter || m_isCancelled)
        close();
    else
        QFrame::keyPressEvent(event);
}

void ColourPopover::hideEvent(QHideEvent *event)
{
    QFrame::hideEvent(event);
    if (std::exchange(m_hasEnded, true))
        return;
    if (m_isCancelled)
        emit cancelled();
    else
        emit kept();
}
