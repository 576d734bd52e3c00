// What a person does with the mouse and the keys.
#include "canvas/LWCanvasImageView.h"
#include "tests/soak/Player.h"
#include "windows/LayerTable.h"
#include "windows/inspector/ColourPlane.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QSplitter>
#include <QTest>
#include <QWheelEvent>

namespace {
/// Entries of menus, those in menus of menus as well.
void gather(const QList<QAction *> &actions, QList<QAction *> &all)
{
    for (QAction *action : actions) {
        if (action->menu())
            gather(action->menu()->actions(), all);
        else if (action->isEnabled() && !action->isSeparator() && action->text().remove('&') != "Quit")
            all.append(action);
    }
}

const std::vector<QString> typedTexts{
    "0",   "1",   "7",    "12",   "16",    "64",      "100",   "128",    "200",  "320",     "-3",        "3.5",
    "2*8", "+10", "64/3", "1/0",  "(2+",   "=",       "abc",   "",       " ",    "#ff8000", "12abz!",    "99999",
    "1e9", "0x7", "½",    "\xe4", "Stage", "Wall 12", "A1-24", "a\tb c", "日本", "🎬",       "1920x1080", "50%"};

const std::vector<Qt::Key> pressedKeys{
    Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Return,    Qt::Key_Escape, Qt::Key_Space, Qt::Key_Up,
    Qt::Key_Down,     Qt::Key_Left,    Qt::Key_Right,     Qt::Key_Home,   Qt::Key_End,   Qt::Key_PageUp,
    Qt::Key_PageDown, Qt::Key_Delete,  Qt::Key_Backspace, Qt::Key_A,      Qt::Key_V,     Qt::Key_H,
    Qt::Key_D,        Qt::Key_C,       Qt::Key_X,         Qt::Key_Z,      Qt::Key_Y,     Qt::Key_F2,
    Qt::Key_F9,       Qt::Key_F10,     Qt::Key_1,         Qt::Key_0,      Qt::Key_Plus,  Qt::Key_Minus,
    Qt::Key_Alt,      Qt::Key_Shift,   Qt::Key_S,         Qt::Key_E};
} // namespace

/// Where mouse and keys go: what has come up over the window, or the window.
QWidget &Player::surface()
{
    QWidget *popup = QApplication::activePopupWidget();
    return popup ? *popup : m_window;
}

/// One that can be seen and used; null: there is none.
template <class Widget>
Widget *Player::anyOf()
{
    QList<Widget *> usable = surface().findChildren<Widget *>();
    erase_if(usable, [](const Widget *widget) { return !widget->isVisible() || !widget->isEnabled(); });
    return usable.isEmpty() ? nullptr : usable[m_values.number(0, static_cast<int>(usable.size()) - 1)];
}

/// Now and then one beside it.
QPoint Player::placeIn(const QWidget &widget)
{
    const int beside = m_values.oneIn(10) ? 40 : 0;
    return {m_values.number(-beside, widget.width() + beside), m_values.number(-beside, widget.height() + beside)};
}

Qt::KeyboardModifiers Player::modifiers()
{
    return m_values.oneOf<Qt::KeyboardModifiers>(
        {{}, {}, {}, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier | Qt::AltModifier});
}

void Player::sendMouse(QWidget &widget, QEvent::Type type, const QPoint &place, Qt::MouseButton button,
                       Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, place, widget.mapToGlobal(place), button, buttons, modifiers);
    QApplication::sendEvent(&widget, &event);
}

void Player::drag(QWidget &widget, Qt::MouseButton button)
{
    const QPointer<QWidget> still = &widget;
    const Qt::KeyboardModifiers held = modifiers();
    const QPoint start = placeIn(widget);
    const QPoint reach =
        m_values.oneIn(3) ? placeIn(widget) - start : QPoint(m_values.number(-9, 9), m_values.number(-9, 9));
    sendMouse(widget, QEvent::MouseMove, start, Qt::NoButton, Qt::NoButton, held);
    sendMouse(widget, QEvent::MouseButtonPress, start, button, button, held);
    const int moves = m_values.number(1, 6);
    for (int move = 1; move <= moves && still; ++move)
        sendMouse(widget, QEvent::MouseMove, start + reach * move / moves, Qt::NoButton, button, held);
    if (still)
        sendMouse(widget, QEvent::MouseButtonRelease, start + reach, button, Qt::NoButton, held);
}

void Player::clickCanvas()
{
    const QPoint place = placeIn(*m_canvas);
    const Qt::KeyboardModifiers held = modifiers();
    sendMouse(*m_canvas, QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton, held);
    sendMouse(*m_canvas, QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton, held);
    sendMouse(*m_canvas, QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton, held);
    if (m_values.oneIn(8))
        sendMouse(*m_canvas, QEvent::MouseButtonDblClick, place, Qt::LeftButton, Qt::LeftButton, held);
}

void Player::dragCanvas()
{
    drag(*m_canvas, m_values.oneIn(6) ? Qt::MiddleButton : Qt::LeftButton);
}

/// The button is pressed, and something else happens.
void Player::abandonDrag()
{
    const QPoint start = placeIn(*m_canvas);
    sendMouse(*m_canvas, QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton, {});
    sendMouse(*m_canvas, QEvent::MouseMove, start + QPoint(7, 5), Qt::NoButton, Qt::LeftButton, {});
    switch (m_values.number(0, 4)) {
    case 0:
        return QTest::keyClick(m_canvas, Qt::Key_Escape);
    case 1:
        return document().remove();
    case 2:
        return undo();
    case 3:
        return document().newProject();
    default:
        return m_canvas->clearFocus();
    }
}

void Player::turnWheel()
{
    const QPoint place = placeIn(*m_canvas);
    const QPoint angle(m_values.number(-2, 2) * 60, m_values.number(-4, 4) * 120);
    QWheelEvent event(place, m_canvas->mapToGlobal(place), {}, angle, Qt::NoButton, modifiers(), Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(m_canvas, &event);
}

/// What is moved besides layers: the edges of regions, scroll bars, the planes in which colours are chosen.
void Player::dragPart()
{
    QWidget *part = nullptr;
    switch (m_values.number(0, 2)) {
    case 0:
        part = anyOf<QSplitterHandle>();
        break;
    case 1:
        part = anyOf<QAbstractSlider>();
        break;
    default:
        part = anyOf<ColourPlane>();
    }
    if (part)
        drag(*part, Qt::LeftButton);
}

void Player::clickButton()
{
    if (auto *button = anyOf<QAbstractButton>())
        QTest::mouseClick(button, Qt::LeftButton, {}, button->rect().center());
}

void Player::clickTable()
{
    if (auto *table = anyOf<LayerTable>())
        QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers() & ~Qt::AltModifier,
                          placeIn(*table->viewport()));
}

void Player::typeIntoField()
{
    const QPointer<QLineEdit> field = anyOf<QLineEdit>();
    if (!field)
        return;
    field->setFocus();
    if (!m_values.oneIn(4))
        field->selectAll();
    for (const QChar letter : m_values.oneOf(typedTexts)) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
        if (field)
            QApplication::sendEvent(field, &press);
    }
    if (field && !m_values.oneIn(4))
        QTest::keyClick(field, m_values.oneOf<Qt::Key>({Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape, Qt::Key_Up}));
}

void Player::chooseInBox()
{
    auto *box = anyOf<QComboBox>();
    if (box && box->count() > 0)
        QTest::keyClick(box, m_values.oneOf<Qt::Key>({Qt::Key_Up, Qt::Key_Down, Qt::Key_End, Qt::Key_Home}));
}

void Player::pressKey()
{
    QWidget *focus = QApplication::focusWidget();
    QWidget &goal = focus && !m_values.oneIn(4) ? *focus : m_values.oneIn(2) ? surface() : *m_canvas;
    const Qt::Key key = m_values.oneOf(pressedKeys);
    const Qt::KeyboardModifiers held = modifiers();
    QTest::keyPress(&goal, key, held);
    if (!m_values.oneIn(10)) // else it is held
        QTest::keyRelease(&m_window, key, held);
}

void Player::chooseInMenu()
{
    QList<QAction *> all;
    gather(m_window.menuBar()->actions(), all);
    if (!all.isEmpty())
        all[m_values.number(0, static_cast<int>(all.size()) - 1)]->trigger();
}

void Player::resizeWindow()
{
    m_window.showNormal();
    m_window.resize(m_values.number(200, 2000), m_values.number(150, 1200));
}

void Player::wait()
{
    QTest::qWait(m_values.number(50, 150));
}

void Player::runEvents()
{
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
