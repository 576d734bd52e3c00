#include "windows/TextField.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

namespace {
bool isExport(const QEvent &event)
{
    if (event.type() != QEvent::ShortcutOverride && event.type() != QEvent::KeyPress)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    return key.key() == Qt::Key_E && key.modifiers() == Qt::ControlModifier;
}
} // namespace

bool TextField::isOfHistory(const QEvent &event)
{
    if (event.type() != QEvent::ShortcutOverride && event.type() != QEvent::KeyPress)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

bool TextField::event(QEvent *event)
{
    if (!isOfHistory(*event) && !isExport(*event))
        return QLineEdit::event(event);
    event->ignore(); // the window has it
    return true;
}

void TextField::contextMenuEvent(QContextMenuEvent *event)
{
    popUpMenu(event->globalPos());
}

void TextField::popUpMenu(const QPoint &globalPlace)
{
    QMenu *menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // Undo and Redo come first, up to a line.
    const QList<QAction *> entries = menu->actions();
    for (QAction *entry : entries) {
        menu->removeAction(entry);
        if (entry->isSeparator())
            break;
    }
    menu->popup(globalPlace);
}
