#pragma once

#include <QLineEdit>

/// A line of text that leaves undo and redo to the document, whose history what is typed here belongs to, and Ctrl+E to
/// the window, which exports with it; End leads to the end of the line.
class TextField final : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

    /// Whether this is a key that undoes or redoes.
    static bool isOfHistory(const QEvent &event);
    /// The menu of a text, without its own history.
    void popUpMenu(const QPoint &globalPlace);

protected:
    bool event(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
};
