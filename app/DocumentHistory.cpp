#include "app/DocumentHistory.h"

#include <QScopedValueRollback>
#include <QUndoCommand>

#include <unordered_set>
#include <utility>

namespace {
/// Walls that have left the document come back by undoing, and draw themselves again then: their pixels need not stay.
void releasePicturesOfLeft(const DocumentState &before, const DocumentState &now)
{
    std::unordered_set<const Layer *> staying;
    for (const auto *list : {&now.layers, &now.presets}) {
        for (const LayerState &state : *list)
            staying.insert(state.layer.get());
    }
    for (const auto *list : {&before.layers, &before.presets}) {
        for (const LayerState &state : *list) {
            if (!staying.contains(state.layer.get()))
                state.layer->releasePicture();
        }
    }
}
} // namespace

/// From one state to another.
class DocumentHistory::Step final : public QUndoCommand
{
public:
    Step(DocumentHistory &history, const QString &name, DocumentState before, DocumentState after)
        : QUndoCommand(name), m_history(history), m_before(std::move(before)), m_after(std::move(after))
    {}

    void undo() override { m_history.show(m_before); }
    void redo() override
    {
        if (std::exchange(m_isDone, true))
            m_history.show(m_after);
    }

    void setAfter(const DocumentState &after) { m_after = after; }

private:
    DocumentHistory &m_history;
    DocumentState m_before;
    DocumentState m_after;
    bool m_isDone = false; ///< the edit itself was the first time
};

DocumentHistory::DocumentHistory(UndoableDocument &document) : m_document(document)
{
    m_stack.setUndoLimit(mostSteps);
    connect(&m_stack, &QUndoStack::indexChanged, this, &DocumentHistory::contentDidChange);
}

DocumentHistory::~DocumentHistory() = default;

void DocumentHistory::clear()
{
    m_stack.clear();
    m_lastStep = nullptr;
    m_state = m_document.state({});
    endTyping();
}

void DocumentHistory::absorb()
{
    DocumentState now = m_document.state(m_state);
    const bool isSame = now.hasContentOf(m_state);
    m_state = std::move(now);
    if (isSame || m_isShowing)
        return;
    if (lastStepIsOnTop())
        replaceAfter();
    else
        emit contentDidChange();
}

void DocumentHistory::noteSelection()
{
    if (m_isShowing)
        return;
    DocumentState now = m_document.state(m_state);
    if (now.hasContentOf(m_state))
        m_state = std::move(now);
}

void DocumentHistory::record(const QString &name, const QString &typing)
{
    DocumentState before = std::exchange(m_state, m_document.state(m_state));
    if (m_state.hasContentOf(before))
        return;
    releasePicturesOfLeft(before, m_state);
    const bool typesOn = !typing.isEmpty() && typing == m_typing;
    m_typing = typing;
    // A saved state stays a step of its own, or undoing could not come back to it.
    if (typesOn && lastStepIsOnTop() && !m_stack.isClean())
        replaceAfter();
    else
        push(name, std::move(before));
}

void DocumentHistory::push(const QString &name, DocumentState before)
{
    m_lastStep = new Step(*this, name, std::move(before), m_state); // the stack owns it
    m_stack.push(m_lastStep);
}

void DocumentHistory::replaceAfter()
{
    m_lastStep->setAfter(m_state);
    emit contentDidChange();
}

bool DocumentHistory::lastStepIsOnTop() const
{
    return m_lastStep && m_stack.index() == m_stack.count();
}

void DocumentHistory::show(const DocumentState &state)
{
    endTyping();
    const DocumentState before = std::exchange(m_state, state);
    const QScopedValueRollback guard(m_isShowing, true);
    m_document.setState(state);
    releasePicturesOfLeft(before, state);
}
