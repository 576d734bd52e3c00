#include "windows/ZoomField.h"

#include "base/NumberText.h"
#include "output/CanvasFrame.h"
#include "windows/Theme.h"
#include "windows/inspector/SumText.h"

#include <QKeyEvent>

#include <cmath>
#include <optional>

namespace {
constexpr int fieldWidth = 64;
constexpr int most = static_cast<int>(100 * CanvasFrame::greatestZoom);

QString withoutSign(QString text)
{
    return text.remove('%').trimmed();
}
} // namespace

ZoomField::ZoomField(QWidget *parent) : QLineEdit(parent)
{
    setFixedWidth(fieldWidth);
    setAlignment(Qt::AlignRight);
    setAccessibleName("Zoom");
    setToolTip("Zoom in per cent. Enter takes it, a double click fits the output.");
    connect(this, &QLineEdit::returnPressed, this, &ZoomField::take);
    connect(this, &QLineEdit::textEdited, this, [this] { showFault(fault()); });
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
    showFault({});
}

QString ZoomField::fault() const
{
    const QString entry = withoutSign(text());
    const std::optional<double> percent = SumText::value(entry);
    if (!percent)
        return SumText::fault(entry);
    const bool isInRange = *percent > 0 && *percent <= most;
    return isInRange ? QString() : entry + " is out of range; type 1 to " + NumberText::grouped(most) + ".";
}

void ZoomField::showFault(const QString &sentence)
{
    if (sentence == m_fault)
        return;
    m_fault = sentence;
    Theme::frameAsWrong(*this, !sentence.isEmpty());
    emit faultDidChange(sentence);
}

void ZoomField::take()
{
    const bool isZoom = fault().isEmpty();
    const double percent = SumText::value(withoutSign(text())).value_or(0);
    setModified(false);
    if (isZoom)
        emit zoomChosen(percent);
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
