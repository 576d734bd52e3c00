#include "windows/displays/WallWalk.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextEdit>

#include <algorithm>
#include <chrono>
#include <utility>

bool isTypedIn(const QWidget *widget)
{
    return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QAbstractSpinBox *>(widget) ||
           qobject_cast<const QTextEdit *>(widget);
}

WallWalk::WallWalk(QObject *parent) : QObject(parent)
{
    m_next.setInterval(std::chrono::seconds(1));
    connect(&m_next, &QTimer::timeout, this, &WallWalk::goOn);
}

void WallWalk::setPanels(const std::vector<ChartPanel> &panels)
{
    m_walk.setPanels(panels);
    emit changed();
}

std::optional<WallLight> WallWalk::light() const
{
    const ChartPanel *const panel = m_isOn ? m_walk.panel() : nullptr;
    if (!panel)
        return std::nullopt;
    return WallLight{panel->box, {panel->name.trimmed(), panel->port + '.' + QString::number(panel->number)}};
}

void WallWalk::setOn(bool isOn)
{
    if (std::exchange(m_isOn, isOn) == isOn)
        return;
    m_next.stop();
    if (isOn)
        qApp->installEventFilter(this);
    else
        qApp->removeEventFilter(this);
    emit changed();
}

void WallWalk::choose(int run)
{
    m_walk.choose(static_cast<std::size_t>(std::max(run, 0)));
    emit changed();
}

void WallWalk::goOn()
{
    m_walk.goOn();
    emit changed();
}

void WallWalk::goBack()
{
    m_walk.goBack();
    emit changed();
}

void WallWalk::setByItself(bool isByItself)
{
    if (isByItself && m_isOn)
        m_next.start();
    else
        m_next.stop();
    emit changed();
}

void WallWalk::setSeconds(double seconds)
{
    m_next.setInterval(qRound(1000 * std::clamp(seconds, leastSeconds, mostSeconds)));
}

void WallWalk::setMarks(const QStringList &marks)
{
    m_walk.setMarks(marks);
    emit marksDidChange(marks);
    emit changed();
}

void WallWalk::toggleMark()
{
    m_walk.toggleMark();
    emit marksDidChange(m_walk.marks());
    emit changed();
}

void WallWalk::clearMarks()
{
    setMarks({});
}

void WallWalk::copyMarks() const
{
    QGuiApplication::clipboard()->setText(m_walk.marks().join('\n'));
}

bool WallWalk::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    if ((!isPress && event->type() != QEvent::ShortcutOverride) || !watched->isWidgetType())
        return QObject::eventFilter(watched, event);
    const auto &key = static_cast<const QKeyEvent &>(*event);
    void (WallWalk::*act)() = nullptr;
    if (key.key() == Qt::Key_PageDown)
        act = &WallWalk::goOn;
    else if (key.key() == Qt::Key_PageUp)
        act = &WallWalk::goBack;
    else if (key.key() == Qt::Key_X && !isTypedIn(static_cast<const QWidget *>(watched)))
        act = &WallWalk::toggleMark;
    if (!act || (key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return QObject::eventFilter(watched, event);
    event->accept();
    if (isPress && !(key.isAutoRepeat() && act == &WallWalk::toggleMark))
        (this->*act)();
    return true;
}
