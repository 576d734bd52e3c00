#include "canvas/ExactPointer.h"

#include <QEvent>
#include <QSinglePointEvent>
#include <QWidget>
#include <QWindow>

ExactPointer::ExactPointer(QWidget &widget) : m_widget(widget)
{
    widget.installEventFilter(this);
}

QPointF ExactPointer::placeOf(const QSinglePointEvent &event) const
{
    const QPoint corner = m_widget.mapTo(m_widget.window(), QPoint(0, 0));
    const bool isRounded = event.position() == QPointF(m_inWindow.toPoint() - corner);
    return isRounded ? m_inWindow - corner : event.position();
}

bool ExactPointer::eventFilter(QObject *watched, QEvent *event)
{
    QWindow *window = m_widget.window()->windowHandle();
    if (watched == window && event->isSinglePointEvent())
        m_inWindow = static_cast<QSinglePointEvent *>(event)->position();
    else if (watched == &m_widget && event->type() == QEvent::Show && window)
        window->installEventFilter(this);
    return QObject::eventFilter(watched, event);
}
