#pragma once

#include "recovery/RecoveryFolder.h"
#include "show/Project.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

/// Keeps a copy of the document on disk for as long as it has unsaved changes, so that neither a crash nor a quit loses
/// them. The copy is a project file in a folder of its own, never one of the person's files. Main thread only.
class RecoveryCopy final : public QObject
{
    Q_OBJECT

public:
    /// Yields the document as it is; called at every write, the last time in the destructor.
    using Contents = std::function<Project()>;

    /// A change waits no longer for its write, where a write takes up to a tenth of this.
    static constexpr std::chrono::milliseconds longestWait{1000};
    /// Where it takes longer, the person has this many times as long between two of them.
    static constexpr int restAfterWrite = 10;

    /// Reads and writes nothing yet. `folder`: where the copies of all programs are.
    explicit RecoveryCopy(Contents contents, QString folder = RecoveryFolder::standardPath());
    /// As leave().
    ~RecoveryCopy() override;

    /// The document has changed and is whole again. It is written `longestWait` after the first unwritten change at the
    /// latest, where a write is short: by a timer or, where the event loop does not come round, by this very call.
    void contentDidChange();
    /// Writes at once what is not written yet.
    void flush();
    /// The document is now what that file holds, saved or opened; without a path: it is a new one. The copy goes.
    void documentWasSaved(const CopiedProject &project = {});
    /// Another document is about to take this one's place: unsaved changes stay behind as a copy that found() has.
    void leave();

    /// The copies to be offered, newest first; not those that running programs hold, such as this one's own.
    std::vector<FoundCopy> found() const { return RecoveryFolder::found(m_folder); }
    /// Reads a copy to put it in the place of the document, after leave(). It becomes this document's own copy: it
    /// stays where it is until documentWasSaved(), and the next change is written over it.
    /// Error: it is damaged, gone or taken by another program; nothing has changed, and the message begins with the
    /// path.
    [[nodiscard]] Result<Project> take(const FoundCopy &copy, LayerHost &host);
    /// Removes a copy for good. Error: it is gone, taken by another program or cannot be removed; the message begins
    /// with the path.
    [[nodiscard]] Result<void> discard(const FoundCopy &copy);

signals:
    /// A copy cannot be written or removed; a sentence for the person. A write that fails is tried again every
    /// `longestWait`, and told again only after one has succeeded or the document was saved.
    void couldNotKeep(const QString &sentence);

private:
    Result<void> write();
    void stopClock();

    Contents m_contents;
    QString m_folder;
    CopiedProject m_project; ///< that the document belongs to
    std::optional<KeptCopy> m_copy;
    QElapsedTimer m_unwritten; ///< since the first unwritten change or the last failure; invalid: all is written
    QTimer m_timer;
    bool m_hasToldFailure = false;
};
