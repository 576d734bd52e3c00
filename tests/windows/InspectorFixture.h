#pragma once

#include "tests/windows/WindowFixture.h"
#include "windows/inspector/Inspector.h"
#include "windows/inspector/NumberField.h"

#include <QByteArray>

/// The window's inspector, and the hands that use it.
class InspectorFixture : public WindowFixture
{
protected:
    LayerList &list() { return window.document().arraycontroller(); }
    LayerPointer shown() { return list().selectedLayer(); }
    void undo() { window.document().undoStack().undo(); }
    QString undoText() { return window.document().undoStack().undoText(); }

    /// The control of this kind and name that is seen.
    template <typename Control>
    Control &control(const QString &name)
    {
        for (Control *found : inspector().findChildren<Control *>()) {
            if (found->accessibleName() == name && found->isVisibleTo(&inspector()))
                return *found;
        }
        ADD_FAILURE() << "there is no " << qPrintable(name);
        static Control *const none = static_cast<Control *>(nullptr);
        return *none;
    }
    bool isShown(const QString &name);
    QString captionOf(const QString &name);
    /// What the line that is only read says.
    QString summary(const QString &name);

    void type(NumberField &field, const QString &text);
    /// Types a colour's eight digits into a popover.
    static void typeColour(QWidget &popover, const QColor &colour);
    /// Clicks on the colour's button, and has the popover answered, which has gone then.
    void openColour(const QString &name, const Answer &given);
    /// Clicks on the colour's button and chooses this one.
    void chooseColour(const QString &name, const QColor &colour);
    /// Clicks on the button and on an entry of its menu.
    void chooseFrom(const QString &button, const QString &entry);

    /// The project as it would be saved.
    QByteArray archive();
    /// A blue picture of 40 x 30 without a file, below the wall and selected.
    void addStill();
};
