#pragma once

#include <QObject>
#include <QPointF>

class QSinglePointEvent;
class QWidget;

/// Where the pointer is in a widget, to the device pixel. Qt tells a widget in another one whole logical pixels, which
/// at a scale of 1.5 or 2 are no device pixels; the place in the window that its events also tell is overwritten when
/// a hover event goes before them. The native window is told exactly: what it was told last is kept here.
class ExactPointer final : public QObject
{
    Q_OBJECT

public:
    /// Follows the window that the widget is shown in; the widget outlives this.
    explicit ExactPointer(QWidget &widget);

    /// Of an event that the widget has just got, in its logical pixels: the exact place where the event's own is that
    /// one rounded, else the event's own.
    QPointF placeOf(const QSinglePointEvent &event) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget &m_widget;
    QPointF m_inWindow; ///< logical pixels
};
