#include "app/windows/NumberField.h"

#include "app/windows/NumberText.h"
#include "app/windows/SumText.h"
#include "app/windows/TextField.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>
#include <utility>

namespace {
constexpr QChar dash = u'—';
constexpr int longStep = 10;
constexpr std::chrono::milliseconds afterTheEntry{250};
} // namespace

NumberField::NumberField(int lowest, int highest, const QString &unit, QWidget *parent)
    : QSpinBox(parent), m_text(new TextField), m_unit(unit.isEmpty() ? QString() : ' ' + unit), m_lowest(lowest),
      m_highest(highest)
{
    setLineEdit(m_text);
    setRange(lowest, highest);
    setSuffix(m_unit);
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignRight);
    m_text->installEventFilter(this);
    connect(m_text, &QLineEdit::textEdited, this, &NumberField::takeTyped);
}

void NumberField::setHighest(int highest)
{
    m_highest = highest;
    fitRange(m_value);
}

/// The spin box's own range also holds a shown value that cannot be typed. Setting it ends a press on an arrow.
void NumberField::fitRange(int shown)
{
    const int lowest = std::min(m_lowest, shown);
    const int highest = std::max(m_highest, shown);
    if (lowest != minimum() || highest != maximum())
        setRange(lowest, highest);
}

void NumberField::show(int value)
{
    if (m_isTyping && !m_isMixed && value == m_value)
        return;
    m_isMixed = false;
    m_value = value;
    showLast();
}

void NumberField::showMixed()
{
    if (m_isMixed)
        return;
    m_isMixed = true;
    showLast();
}

void NumberField::showLast()
{
    const QSignalBlocker silence(this);
    m_isTyping = false;
    fitRange(m_value);
    setValue(m_value);
    if (const QString unit = m_isMixed ? QString() : m_unit; suffix() != unit)
        setSuffix(unit);
    if (const QString text = textFromValue(m_value) + suffix(); m_text->text() != text)
        m_text->setText(text); // else what is selected stays so
}

void NumberField::stepBy(int steps)
{
    if (m_isMixed)
        return;
    m_isTyping = false;
    const int nearest = std::clamp(value(), m_lowest, m_highest);
    const bool isBeyond = nearest != value();
    fitRange(nearest);
    const bool isLong = QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
    if (!isBeyond) // else the step has led there
        QSpinBox::stepBy(isLong ? steps * longStep : steps);
    tell(value());
}

QAbstractSpinBox::StepEnabled NumberField::stepEnabled() const
{
    return m_isMixed ? StepNone : QSpinBox::stepEnabled();
}

void NumberField::takeTyped(const QString &text)
{
    m_isTyping = true;
    if (const std::optional<int> typed = valueOf(text))
        tell(*typed);
}

void NumberField::tell(int value)
{
    m_isMixed = false;
    m_value = value;
    m_hasTold = true;
    emit edited(value);
}

std::optional<int> NumberField::valueOf(const QString &text) const
{
    const std::optional<double> value = SumText::value(withoutUnit(text));
    if (!value || std::round(*value) < m_lowest || std::round(*value) > m_highest)
        return std::nullopt;
    return static_cast<int>(std::round(*value));
}

QString NumberField::withoutUnit(const QString &text) const
{
    return (text.endsWith(m_unit) ? text.chopped(m_unit.size()) : text).trimmed();
}

QString NumberField::textFromValue(int value) const
{
    return m_isMixed ? QString(dash) : QString::number(value);
}

int NumberField::valueFromText(const QString &text) const
{
    return valueOf(text).value_or(value());
}

QValidator::State NumberField::validate(QString &text, int &position) const
{
    if (m_isMixed && withoutUnit(text) == dash)
        return QValidator::Acceptable;
    const auto at = m_isMixed ? static_cast<int>(text.indexOf(dash)) : -1;
    if (at >= 0) { // what is typed beside the dash takes its place
        text.remove(at, 1);
        position -= position > at ? 1 : 0;
    }
    if (valueOf(text))
        return QValidator::Acceptable;
    return SumText::couldBecomeOne(withoutUnit(text)) ? QValidator::Intermediate : QValidator::Invalid;
}

void NumberField::fixup(QString &text) const
{
    text = textFromValue(value()) + suffix();
}

bool NumberField::event(QEvent *event)
{
    // Undoing shows what is there, also where an entry was begun that has no value.
    if (event->type() == QEvent::ShortcutOverride && TextField::isOfHistory(*event) && m_isTyping &&
        !valueOf(m_text->text()))
        showLast();
    return QSpinBox::event(event);
}

bool NumberField::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease && m_isMixed && !m_isTyping)
        selectAll();
    return QSpinBox::eventFilter(watched, event);
}

void NumberField::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore(); // the list behind scrolls
}

void NumberField::focusInEvent(QFocusEvent *event)
{
    QSpinBox::focusInEvent(event);
    if (m_isMixed)
        selectAll();
}

void NumberField::focusOutEvent(QFocusEvent *event)
{
    endEntry();
    QSpinBox::focusOutEvent(event);
}

void NumberField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        endEntry();
    QSpinBox::keyPressEvent(event);
}

void NumberField::contextMenuEvent(QContextMenuEvent *event)
{
    m_text->popUpMenu(event->globalPos());
}

void NumberField::endEntry()
{
    const bool isWrong = m_isTyping && !valueOf(m_text->text()) && withoutUnit(m_text->text()) != dash;
    m_isTyping = false;
    const bool hasTold = std::exchange(m_hasTold, false);
    if (isWrong) {
        sayWhy();
        if (hasTold)
            emit takenBack();
    }
    if (isWrong || hasTold)
        showLast();
}

void NumberField::sayWhy()
{
    const QString why = QString("A whole number from %1 to %2, or a sum such as 6*128")
                            .arg(NumberText::grouped(m_lowest), NumberText::grouped(m_highest));
    // The key or the click that ends the entry would close a tip that is there already.
    QTimer::singleShot(afterTheEntry, this,
                       [this, why] { QToolTip::showText(mapToGlobal(QPoint(0, height())), why, this); });
}
