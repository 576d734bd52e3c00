#include "app/windows/ZoomField.h"

#include "app/windows/SumText.h"

#include <QKeyEvent>

#include <cmath>
#include <optional>

namespace {
constexpr int fieldWidth = 64;
}

ZoomField::ZoomField(QWidget *parent) : QLineEdit(parent)
{
    setFixedWidth(fieldWidth);
    setAlignment(Qt::AlignRight);
    setAccessibleName("Zoom");
    setToolTip("Zoom in per cent. Enter takes it, a double click fits the output.");
    connect(this, &QLineEdit::returnPressed, this, &ZoomField::take);
}

void ZoomField::show(double percent)
{
    m_percent = percent;
    if (!isModified())
        showLast();
}

void ZoomField::showLast()
{
    setText(m_percent > 0 ? QString("%1 %").arg(std::round(m_percent)) : QString());
    setModified(false);
}

void ZoomField::take()
{
    QString typed = text();
    const std::optional<double> percent = SumText::value(typed.remove('%').trimmed());
    setModified(false);
    if (percent && *percent > 0)
        emit zoomChosen(*percent);
    showLast();
    selectAll();
}

void ZoomField::mouseDoubleClickEvent(QMouseEvent *)
{
    setModified(false);
    emit fitChosen();
    showLast();
    selectAll();
}

void ZoomField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    showLast();
}

void ZoomField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        return QLineEdit::keyPressEvent(event);
    showLast();
    selectAll();
}
