#include "show/DocumentHistory.h"

#include "layer/LayerLimits.h"
#include "show/StateChange.h"

#include <QScopedValueRollback>
#include <QUndoCommand>

#include <unordered_set>
#include <utility>
#include <vector>

namespace {
/// Walls that have left the document come back by undoing, and draw themselves again then: their pixels need not stay.
void releasePicturesOfLeft(const DocumentState &before, const DocumentState &now)
{
    if (now.layers.hasLayersOf(before.layers) && now.presets.hasLayersOf(before.presets))
        return;
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

Result<void> areWithinLimits(const LayerStates &list)
{
    std::vector<LayerLimits::Listed> listed;
    listed.reserve(list.size());
    for (const LayerState &state : list)
        listed.push_back({state.layer->kind(), state.record});
    return LayerLimits::check(listed);
}

/// Who is beyond the limits already can be edited all the same, or there would be no way back.
Result<void> staysWithinLimits(const LayerStates &before, const LayerStates &now)
{
    if (now == before)
        return {};
    Result<void> isWithin = areWithinLimits(now);
    return isWithin || !areWithinLimits(before) ? Result<void>() : isWithin;
}
} // namespace

/// From one state to another.
class DocumentHistory::Step final : public QUndoCommand
{
public:
    Step(DocumentHistory &history, const QString &name, const DocumentState &before, const DocumentState &after)
        : QUndoCommand(name), m_history(history), m_change(before, after), m_changesProject(!after.hasProjectOf(before))
    {}

    void undo() override
    {
        m_history.passStep(m_changesProject);
        m_history.show(m_change.before(m_history.m_state));
        setObsolete(m_isTakenBack);
    }
    void redo() override
    {
        m_history.passStep(m_changesProject);
        if (std::exchange(m_isDone, true))
            m_history.show(m_change.after(m_history.m_state));
    }

    /// The document where the step leads to, which was `was`, is `now`.
    void replaceAfter(const DocumentState &was, const DocumentState &now) const
    {
        m_change = StateChange(m_change.before(was), now);
    }
    /// The same of where it begins.
    void replaceBefore(const DocumentState &was, const DocumentState &now) const
    {
        m_change = StateChange(now, m_change.after(was));
    }
    /// The stack forgets the step when it is undone next.
    void takeBack() const { m_isTakenBack = true; }

private:
    DocumentHistory &m_history;
    mutable StateChange m_change; // the stack shows its steps as constant
    const bool m_changesProject;  ///< by the edit; what rendering fills in later does not count
    mutable bool m_isTakenBack = false;
    bool m_isDone = false; ///< the edit itself was the first time
};

DocumentHistory::DocumentHistory(UndoableDocument &document) : m_document(document)
{
    m_stack.setUndoLimit(mostSteps);
    connect(&m_stack, &QUndoStack::indexChanged, this, &DocumentHistory::indexDidChange);
}

DocumentHistory::~DocumentHistory()
{
    m_stack.disconnect(this); // it tells that its steps go, when the document is half gone itself
}

void DocumentHistory::passStep(bool changesProject)
{
    m_staysClean = m_staysClean.value_or(m_stack.isClean()) && !changesProject;
}

void DocumentHistory::indexDidChange()
{
    if (std::exchange(m_staysClean, std::nullopt).value_or(false))
        m_stack.setClean();
    emit contentDidChange();
}

void DocumentHistory::clear()
{
    m_stack.clear();
    m_state = m_document.state({});
    endGesture();
}

void DocumentHistory::absorb(const std::function<void()> &fillIn)
{
    const bool isMidEdit = !m_document.state(m_state).hasContentOf(m_state);
    fillIn();
    if (isMidEdit || m_isShowing)
        return;
    const DocumentState was = std::exchange(m_state, m_document.state(m_state));
    if (!m_state.hasContentOf(was))
        replaceHere(was);
}

bool DocumentHistory::noteSelection()
{
    if (m_isShowing)
        return false;
    DocumentState now = m_document.state(m_state);
    const bool isSelectionAlone = now.hasContentOf(m_state);
    if (isSelectionAlone)
        m_state = std::move(now);
    return isSelectionAlone;
}

void DocumentHistory::takeBackGesture()
{
    if (!m_gesture || !lastEditIsOnTop())
        return;
    static_cast<const Step *>(m_stack.command(m_stack.index() - 1))->takeBack();
    m_stack.undo();
}

void DocumentHistory::beginTrial()
{
    endGesture();
    m_tried = QString();
}

Result<void> DocumentHistory::keepTrial()
{
    const std::optional<QString> tried = std::exchange(m_tried, std::nullopt);
    return tried ? record(*tried) : Result<void>();
}

void DocumentHistory::dropTrial()
{
    if (std::exchange(m_tried, std::nullopt) && !m_document.state(m_state).hasContentOf(m_state))
        show(DocumentState(m_state));
    emit contentDidChange(); // what keeps the content may have seen the trial
}

Result<void> DocumentHistory::record(const QString &name, const Gesture &gesture)
{
    const bool keepsGesture = std::exchange(m_keepsGesture, false);
    if (m_tried) {
        m_tried = name;
        return {};
    }
    DocumentState now = m_document.state(m_state);
    if (now.hasContentOf(m_state)) {
        if (gesture != m_gesture)
            endGesture(); // what is taken back later must not be what was edited before
        m_state = std::move(now);
        return {};
    }
    const Result<void> isWithin = staysWithinLimits(m_state.layers, now.layers).and_then([&] {
        return staysWithinLimits(m_state.presets, now.presets);
    });
    if (!isWithin) {
        takeBackEdit(!keepsGesture && gesture && gesture == m_gesture && lastEditIsOnTop());
        return failWithin("Taken back", isWithin.error());
    }
    const DocumentState before = std::exchange(m_state, std::move(now));
    releasePicturesOfLeft(before, m_state);
    const bool goesOn = gesture && gesture == m_gesture;
    m_gesture = gesture;
    // A saved state stays a step of its own, or undoing could not come back to it.
    if (goesOn && lastEditIsOnTop() && !m_stack.isClean())
        replaceHere(before);
    else
        m_stack.push(new Step(*this, name, before, m_state)); // the stack owns it
    return {};
}

/// One that was not recorded. Digits typed on the way to it mean nothing alone: they go with it.
void DocumentHistory::takeBackEdit(bool isWithGesture)
{
    if (isWithGesture)
        return takeBackGesture();
    show(DocumentState(m_state));
    emit contentDidChange(); // as after a trial
}

/// The document as it is now takes the place of what it was here: both the way forth and the way back lead to it.
void DocumentHistory::replaceHere(const DocumentState &was)
{
    const auto step = [this](int index) { return static_cast<const Step *>(m_stack.command(index)); };
    if (const Step *const last = step(m_stack.index() - 1))
        last->replaceAfter(was, m_state);
    if (const Step *const undone = step(m_stack.index()))
        undone->replaceBefore(was, m_state);
    emit contentDidChange();
}

bool DocumentHistory::lastEditIsOnTop() const
{
    return m_stack.canUndo() && !m_stack.canRedo();
}

void DocumentHistory::show(const DocumentState &state)
{
    endGesture();
    const DocumentState before = std::exchange(m_state, state);
    const QScopedValueRollback guard(m_isShowing, true);
    m_document.setState(state);
    releasePicturesOfLeft(before, state);
}
