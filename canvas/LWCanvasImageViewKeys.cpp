#include "canvas/CanvasDocument.h"
#include "canvas/LWCanvasImageView.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <utility>

namespace {
/// Where a space is written.
bool isText(const QWidget *widget)
{
    return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QAbstractSpinBox *>(widget);
}

/// What a drag may mean otherwise while it is held.
Qt::KeyboardModifier modifierOf(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    default:
        return Qt::NoModifier;
    }
}
} // namespace

/// Keys that are ours, whatever they mean in the window: while the button is down all of them, since one could save or
/// delete in the middle of a drag; Alt over the canvas, which does not go for the menus there; and the tool's.
bool LWCanvasImageView::takesShortcut(const QKeyEvent &event) const
{
    return m_isPressed || (event.key() == Qt::Key_Alt && m_pointer) || toolInEffect().takesShortcut(event);
}

void LWCanvasImageView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && toolInEffect().isHolding())
        toolInEffect().cancel();
    else if (event->key() == Qt::Key_Space)
        takeSpaceBar(true);
    else if (event->key() == Qt::Key_Alt)
        takeAlt(true);
    else if (!dragWithKey(*event) && !m_isPressed && !goByKey(*event))
        QWidget::keyPressEvent(event);
}

/// False: nothing is held that it could mean something to.
bool LWCanvasImageView::dragWithKey(const QKeyEvent &event)
{
    const Qt::KeyboardModifier modifier = modifierOf(event);
    if (!modifier || !m_pointer || !toolInEffect().isHolding())
        return false;
    Qt::KeyboardModifiers keys = event.modifiers(); // platforms differ in whether the key itself is among them
    keys.setFlag(modifier, event.type() == QEvent::KeyPress);
    toolInEffect().dragWithKeys({*m_pointer, keys});
    return true;
}

/// Arrows here alone move anything: elsewhere they go from row to row, or from field to field.
bool LWCanvasImageView::goByKey(const QKeyEvent &event)
{
    const bool isTaken = toolInEffect().key(event);
    if (isTaken)
        showPointer();
    return isTaken;
}

void LWCanvasImageView::keyReleaseEvent(QKeyEvent *event)
{
    if (event->isAutoRepeat())
        return;
    if (event->key() == Qt::Key_Space)
        takeSpaceBar(false);
    else if (event->key() == Qt::Key_Alt)
        takeAlt(false);
    else if (!dragWithKey(*event))
        QWidget::keyReleaseEvent(event);
}

void LWCanvasImageView::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    const bool comesBack = event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason;
    if (!comesBack) // as it does from a menu
        forgetReached();
    takeSpaceBar(false);
    takeAlt(false);
    tellReadOut();
}

bool LWCanvasImageView::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    if (!isPress && event->type() != QEvent::KeyRelease)
        return false;
    const auto *receiver = qobject_cast<QWidget *>(watched);
    const auto &key = *static_cast<QKeyEvent *>(event);
    if (key.key() != Qt::Key_Space || !receiver || receiver->window() != window() || isText(window()->focusWidget()))
        return false;
    // What has been pressed with it before gets its release.
    if (!m_isSpaceBarHeld && (!isPress || key.isAutoRepeat()))
        return false;
    if (!key.isAutoRepeat())
        takeSpaceBar(isPress);
    return true;
}

void LWCanvasImageView::claimSpaceBar(bool claims)
{
    if (std::exchange(m_claimsSpaceBar, claims) == claims)
        return;
    if (claims)
        return qApp->installEventFilter(this);
    qApp->removeEventFilter(this);
    takeSpaceBar(m_isSpaceBarHeld && hasFocus());
}

void LWCanvasImageView::takeSpaceBar(bool isHeld)
{
    m_isSpaceBarHeld = isHeld;
    showCursor();
}
