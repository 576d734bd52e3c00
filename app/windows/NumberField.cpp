#include "app/windows/NumberField.h"

#include "app/windows/NumberText.h"
#include "app/windows/SumText.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>

namespace {
constexpr QStringView mixed = u"—";
constexpr int longStep = 10;
constexpr std::chrono::milliseconds afterTheEntry{250};
} // namespace

NumberField::NumberField(int lowest, int highest, const QString &unit, QWidget *parent) : QSpinBox(parent)
{
    setRange(lowest, highest);
    setSuffix(unit.isEmpty() ? QString() : ' ' + unit);
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignRight);
    connect(lineEdit(), &QLineEdit::textEdited, this, &NumberField::takeTyped);
}

void NumberField::show(int value)
{
    const QSignalBlocker silence(this);
    const int shown = std::clamp(value, minimum(), maximum());
    m_isMixed = false;
    // A sum stays as it is being typed.
    if (hasFocus() && valueOf(lineEdit()->text()) == shown)
        return;
    setValue(shown);
    lineEdit()->setText(textFromValue(shown) + suffix());
}

void NumberField::showMixed()
{
    if (m_isMixed)
        return;
    m_isMixed = true;
    const QSignalBlocker silence(this);
    lineEdit()->setText(mixed.toString());
}

void NumberField::stepBy(int steps)
{
    const bool isLong = QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
    m_isMixed = false;
    QSpinBox::stepBy(isLong ? steps * longStep : steps);
    emit edited(value());
}

void NumberField::takeTyped(const QString &text)
{
    if (const std::optional<int> typed = valueOf(text)) {
        m_isMixed = false;
        emit edited(*typed);
    }
}

std::optional<int> NumberField::valueOf(const QString &text) const
{
    const std::optional<double> value = SumText::value(withoutUnit(text));
    if (!value || std::round(*value) < minimum() || std::round(*value) > maximum())
        return std::nullopt;
    return static_cast<int>(std::round(*value));
}

QString NumberField::withoutUnit(const QString &text) const
{
    return (text.endsWith(suffix()) ? text.chopped(suffix().size()) : text).trimmed();
}

QString NumberField::textFromValue(int value) const
{
    return m_isMixed ? mixed.toString() : QString::number(value);
}

int NumberField::valueFromText(const QString &text) const
{
    return valueOf(text).value_or(value());
}

QValidator::State NumberField::validate(QString &text, int &) const
{
    const QString typed = withoutUnit(text);
    if (typed == mixed || valueOf(text))
        return QValidator::Acceptable;
    return SumText::couldBecomeOne(typed) ? QValidator::Intermediate : QValidator::Invalid;
}

void NumberField::fixup(QString &text) const
{
    text = textFromValue(value()) + suffix();
}

void NumberField::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore(); // the list behind scrolls
}

void NumberField::focusOutEvent(QFocusEvent *event)
{
    sayWhyIfWrong();
    QSpinBox::focusOutEvent(event);
}

void NumberField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        sayWhyIfWrong();
    QSpinBox::keyPressEvent(event);
}

void NumberField::sayWhyIfWrong()
{
    const QString typed = withoutUnit(lineEdit()->text());
    if (typed == mixed || valueOf(typed))
        return;
    const QString why = QString("A whole number from %1 to %2, or a sum such as 6*128")
                            .arg(NumberText::grouped(minimum()), NumberText::grouped(maximum()));
    // The key or the click that ends the entry would close a tip that is there already.
    QTimer::singleShot(afterTheEntry, this,
                       [this, why] { QToolTip::showText(mapToGlobal(QPoint(0, height())), why, this); });
}
