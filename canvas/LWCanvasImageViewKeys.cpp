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

/// Where an arrow key leads, with Shift by more.
std::optional<QPoint> stepOf(const QKeyEvent &event)
{
    constexpr int longStep = 10;
    const int length = event.modifiers().testFlag(Qt::ShiftModifier) ? longStep : 1;
    switch (event.key()) {
    case Qt::Key_Left:
        return QPoint(-length, 0);
    case Qt::Key_Right:
        return QPoint(length, 0);
    case Qt::Key_Up:
        return QPoint(0, -length);
    case Qt::Key_Down:
        return QPoint(0, length);
    default:
        return std::nullopt;
    }
}
} // namespace

/// Keys that are ours, whatever they mean in the window: while the button is down all of them, since one could save or
/// delete in the middle of a drag; and Alt over the canvas, which does not go for the menus there.
bool LWCanvasImageView::takesShortcut(int key) const
{
    return m_isPressed || (key == Qt::Key_Alt && m_pointer);
}

void LWCanvasImageView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && (m_arranging || m_painting || m_cropMarker.isTracking()))
        cancelDrag();
    else if (event->key() == Qt::Key_Space)
        takeSpaceBar(true);
    else if (event->key() == Qt::Key_Alt)
        takeAlt(true);
    else if (event->key() == Qt::Key_Control && m_arranging)
        trackArranging(false);
    else if (event->key() == Qt::Key_Shift && m_painting)
        paintPanels(true);
    else if (!m_isPressed && !nudge(*event))
        QWidget::keyPressEvent(event);
}

/// Here alone: elsewhere arrows go from row to row, or from field to field.
bool LWCanvasImageView::nudge(const QKeyEvent &event)
{
    const std::optional<QPoint> step = stepOf(event);
    if (step)
        m_document.nudge(*step);
    return step.has_value();
}

void LWCanvasImageView::keyReleaseEvent(QKeyEvent *event)
{
    if (event->isAutoRepeat())
        return;
    if (event->key() == Qt::Key_Space)
        takeSpaceBar(false);
    else if (event->key() == Qt::Key_Alt)
        takeAlt(false);
    else if (event->key() == Qt::Key_Control && m_arranging)
        trackArranging(true);
    else if (event->key() == Qt::Key_Shift && m_painting)
        paintPanels(false);
    else
        QWidget::keyReleaseEvent(event);
}

void LWCanvasImageView::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    takeSpaceBar(false);
    takeAlt(false);
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
    takeHover();
}
