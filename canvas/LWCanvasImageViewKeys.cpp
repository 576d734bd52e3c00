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
/// delete in the middle of a drag; Alt over the canvas, which does not go for the menus there; and what nudges beside
/// the panel cursor.
bool LWCanvasImageView::takesShortcut(const QKeyEvent &event) const
{
    const bool nudges = m_tool == Tool::Panels && event.modifiers().testFlag(Qt::ControlModifier) && stepOf(event);
    return m_isPressed || (event.key() == Qt::Key_Alt && m_pointer) || nudges;
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
    else if (!m_isPressed && !goByKey(*event))
        QWidget::keyPressEvent(event);
}

/// Arrows here alone move anything: elsewhere they go from row to row, or from field to field.
bool LWCanvasImageView::goByKey(const QKeyEvent &event)
{
    const std::optional<QPoint> step = stepOf(event);
    const bool isNudge = event.modifiers().testFlag(Qt::ControlModifier) == (m_tool == Tool::Panels);
    if (step && !isNudge && movePanelCursor(*step))
        return true;
    if (step && (isNudge || m_tool == Tool::Panels)) {
        m_document.nudge(*step);
        return true;
    }
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return (isEnter && switchPanelAtCursor()) || (event.key() == Qt::Key_Escape && dropPanelCursor());
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
    dropPanelCursor();
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
