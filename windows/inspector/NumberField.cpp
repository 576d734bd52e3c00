#include "windows/inspector/NumberField.h"

#include "base/NumberText.h"
#include "windows/TextField.h"
#include "windows/Theme.h"
#include "windows/inspector/SumText.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace {
constexpr QChar dash = u'—';
constexpr int longStep = 10;
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
    if (m_isMixed || value != m_value)
        forgetEntry();
    m_isMixed = false;
    m_value = value;
    showLast();
}

void NumberField::showBeneath(int value)
{
    if (!m_isEntry)
        return show(value);
    m_valueBefore = value;
    m_wasMixed = false;
}

void NumberField::showMixed()
{
    if (m_isMixed)
        return;
    forgetEntry();
    m_isMixed = true;
    showLast();
}

/// Somebody else has changed the value: what was before the entry counts no longer.
void NumberField::forgetEntry()
{
    m_isEntry = false;
    m_hasTold = false;
}

void NumberField::showLast()
{
    m_isTyping = false;
    fitRange(m_value);
    {
        const QSignalBlocker silence(this);
        setValue(m_value);
    }
    if (const QString unit = m_isMixed ? QString() : m_unit; suffix() != unit)
        setSuffix(unit);
    if (const QString text = textFromValue(m_value) + suffix(); m_text->text() != text)
        m_text->setText(text); // else what is selected stays so
    setFault({});
}

void NumberField::setFault(const QString &sentence)
{
    if (sentence == m_fault)
        return;
    m_fault = sentence;
    setAccessibleDescription(sentence);
    Theme::frameAsWrong(*this, !sentence.isEmpty());
    emit faultDidChange(sentence);
}

void NumberField::stepBy(int steps)
{
    if (m_isMixed)
        return;
    if (!m_fault.isEmpty())
        showLast();
    beginEntry();
    m_isTyping = false;
    const int nearest = std::clamp(value(), m_lowest, m_highest);
    const bool isBeyond = nearest != value();
    fitRange(nearest);
    const bool isLong = QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
    if (!isBeyond) // else the step has led there
        QSpinBox::stepBy(isLong ? steps * longStep : steps);
    emit aboutToStep();
    tell(value());
}

QAbstractSpinBox::StepEnabled NumberField::stepEnabled() const
{
    return m_isMixed ? StepNone : QSpinBox::stepEnabled();
}

void NumberField::takeTyped(const QString &text)
{
    beginEntry();
    m_isTyping = true;
    const std::optional<int> typed = valueOf(text);
    setFault(typed || isUnchangedDash(text) ? QString() : faultOf(text));
    if (typed)
        tell(*typed);
    else if (!SumText::isUnfinished(withoutUnit(text)))
        takeBack();
}

void NumberField::beginEntry()
{
    if (std::exchange(m_isEntry, true))
        return;
    m_valueBefore = m_value;
    m_wasMixed = m_isMixed;
}

void NumberField::tell(int value)
{
    m_isMixed = false;
    m_value = value;
    m_hasTold = true;
    emit edited(value);
}

/// The text stays.
void NumberField::takeBack()
{
    m_value = m_valueBefore;
    m_isMixed = m_wasMixed;
    if (std::exchange(m_hasTold, false))
        emit takenBack();
}

std::optional<int> NumberField::valueOf(const QString &text) const
{
    return faultOf(text).isEmpty() ? std::optional(qRound(*SumText::value(withoutUnit(text)))) : std::nullopt;
}

QString NumberField::faultOf(const QString &text) const
{
    const QString entry = withoutUnit(text);
    const QString range = QString("type %1 to %2.").arg(NumberText::grouped(m_lowest), NumberText::grouped(m_highest));
    const std::optional<double> value = SumText::value(entry);
    if (!value)
        return SumText::fault(entry);
    if (SumText::isNumber(entry) && std::round(*value) != *value)
        return entry + " is no whole number; " + range;
    const bool isInRange = std::round(*value) >= m_lowest && std::round(*value) <= m_highest;
    return isInRange ? QString() : entry + " is out of range; " + range;
}

QString NumberField::withoutUnit(const QString &text) const
{
    QString entry = text.trimmed();
    const QString unit = m_unit.trimmed();
    while (!unit.isEmpty() && entry.endsWith(unit, Qt::CaseInsensitive))
        entry = entry.chopped(unit.size()).trimmed();
    return entry;
}

bool NumberField::isUnchangedDash(const QString &text) const
{
    return m_isMixed && withoutUnit(text) == dash;
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
    if (isUnchangedDash(text))
        return QValidator::Acceptable;
    const auto at = m_isMixed ? static_cast<int>(text.indexOf(dash)) : -1;
    if (at >= 0) { // what is typed beside the dash takes its place
        text.remove(at, 1);
        position -= position > at ? 1 : 0;
    }
    return valueOf(text) ? QValidator::Acceptable : QValidator::Intermediate; // nothing that is typed is swallowed
}

void NumberField::fixup(QString &text) const
{
    text = textFromValue(value()) + suffix();
}

bool NumberField::isToTakeBack(const QEvent &event) const
{
    const bool isEscape = static_cast<const QKeyEvent &>(event).key() == Qt::Key_Escape;
    return m_isEntry && (isEscape || (m_isTakenAtEnd && TextField::isOfHistory(event)));
}

bool NumberField::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isToTakeBack(*event)) {
        event->accept();
        return true;
    }
    // Undoing shows what is there, also where an entry was begun that has no value.
    if (event->type() == QEvent::ShortcutOverride && TextField::isOfHistory(*event) && !m_fault.isEmpty())
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
    if (isToTakeBack(*event)) {
        takeBack();
        endEntry();
        return selectAll();
    }
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
    if (!m_isEntry)
        return;
    if (!m_fault.isEmpty())
        takeBack();
    forgetEntry();
    showLast();
}
