#pragma once

#include "base/Result.h"
#include "show/DocumentState.h"
#include "show/Gesture.h"

#include <QObject>
#include <QString>
#include <QUndoStack>

#include <functional>
#include <optional>

/// What a history keeps steps of.
class UndoableDocument
{
public:
    virtual ~UndoableDocument() = default;

    /// The document as it is. `before`: the last known state, whose unchanged parts are shared.
    virtual DocumentState state(const DocumentState &before) const = 0;
    /// Makes the document look like that again, and shows it.
    virtual void setState(const DocumentState &state) = 0;
};

/// Undo and redo for a document. A step keeps what differs between the document before and after it, whatever an edit
/// has led to besides, so that undoing brings back exactly what was there. Main thread only.
class DocumentHistory final : public QObject
{
    Q_OBJECT

public:
    /// Steps that are kept; the oldest goes first.
    static constexpr int mostSteps = 500;

    /// `document` outlives this.
    explicit DocumentHistory(UndoableDocument &document);
    ~DocumentHistory() override;

    /// The steps, for menus and shortcuts: canUndo(), undoText(), isClean() and their signals. A step that changes the
    /// presets alone leaves a saved project clean.
    QUndoStack &stack() { return m_stack; }

    /// The document as it was last seen, after the last edit or step.
    const DocumentState &state() const { return m_state; }

    /// An edit has been made: what has changed since the document was last looked at becomes one step, none where
    /// nothing has. `name` follows "Undo": "panel width". Edits in a row with the same gesture are one step.
    /// Error: the layers or the presets are more than LayerLimits allows now, and were not before; the edit is taken
    /// back, with those of the same gesture before it but what keepGesture() keeps.
    [[nodiscard]] Result<void> record(const QString &name, const Gesture &gesture = {});
    /// The next edit begins a step of its own, whatever gesture it carries.
    void endGesture() { m_gesture = {}; }
    /// What the gesture has led to so far stays, even where its next edit is taken back.
    void keepGesture() { m_keepsGesture = true; }
    /// Takes back the edits of the gesture, and leaves no step of them. Does nothing where it has ended.
    void takeBackGesture();
    /// From now on edits are only tried, as colours are while their dialog is open: they make no step until one of the
    /// next two is called.
    void beginTrial();
    /// What was tried stays: one step of the name of the last edit, none where nothing has changed. Nothing without a
    /// trial. Error: as that of record().
    [[nodiscard]] Result<void> keepTrial();
    /// Makes the document what it was when the trial began.
    void dropTrial();
    /// Calls what fills in the document, as rendering does: that belongs to the edit that was made last and is not
    /// undone. In the middle of an edit, when there was something before that record() has not seen, it belongs to that
    /// edit.
    void absorb(const std::function<void()> &fillIn);
    /// Something else is selected: where undoing the next edit leads back to. Nothing in the middle of an edit, when
    /// the content is another than after the last one. Returns whether it was noted.
    bool noteSelection();
    /// Begins anew with the document as it is.
    void clear();

signals:
    /// The document's content has changed, by an edit, by undo or by redo; stack() knows already.
    void contentDidChange();

private:
    class Step;

    void takeBackEdit(bool isWithGesture);
    void replaceHere(const DocumentState &was);
    void passStep(bool changesProject);
    void indexDidChange();
    bool lastEditIsOnTop() const;
    void show(const DocumentState &state);

    UndoableDocument &m_document;
    QUndoStack m_stack;
    DocumentState m_state; ///< as last seen
    Gesture m_gesture;
    bool m_keepsGesture = false;      ///< when its next edit is taken back
    std::optional<QString> m_tried;   ///< the name of the last edit that was only tried; nullopt: no trial
    bool m_isShowing = false;         ///< a state is being brought back
    std::optional<bool> m_staysClean; ///< whether the steps under way lead from a saved project to the same
};
