#include "recovery/RecoveryCopy.h"

#include "formats/ProjectFile.h"

#include <algorithm>
#include <utility>

RecoveryCopy::RecoveryCopy(Contents contents, QString folder)
    : m_contents(std::move(contents)), m_folder(std::move(folder))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(longestWait);
    connect(&m_timer, &QTimer::timeout, this, &RecoveryCopy::flush);
}

RecoveryCopy::~RecoveryCopy()
{
    leave();
}

void RecoveryCopy::contentDidChange()
{
    if (!m_unwritten.isValid()) {
        m_unwritten.start();
        m_timer.start();
    } else if (m_unwritten.elapsed() >= m_timer.interval()) {
        flush();
    }
}

void RecoveryCopy::flush()
{
    if (!m_unwritten.isValid())
        return;
    QElapsedTimer writing;
    writing.start();
    const Result<void> isWritten = write();
    m_timer.setInterval(std::max(longestWait, restAfterWrite * std::chrono::milliseconds(writing.elapsed())));
    if (isWritten)
        return stopClock();
    m_unwritten.start();
    m_timer.start();
    if (!std::exchange(m_hasToldFailure, true))
        emit couldNotKeep(QString("Unsaved changes have no recovery copy; save the project to keep them. %1")
                              .arg(isWritten.error().text));
}

void RecoveryCopy::stopClock()
{
    m_unwritten.invalidate();
    m_timer.stop();
    m_hasToldFailure = false;
}

Result<void> RecoveryCopy::write()
{
    const Result<QByteArray> bytes = ProjectFile::encode(m_contents());
    if (!bytes)
        return tl::unexpected(bytes.error());
    if (m_copy && m_copy->isThere())
        return m_copy->write(*bytes);

    Result<KeptCopy> made = KeptCopy::make(m_folder, m_project, *bytes);
    if (!made)
        return tl::unexpected(made.error());
    m_copy = std::move(*made);
    return {};
}

void RecoveryCopy::documentWasSaved(const CopiedProject &project)
{
    stopClock();
    m_project = project;
    const Result<void> isRemoved = m_copy ? m_copy->remove() : Result<void>();
    m_copy.reset();
    if (!isRemoved)
        emit couldNotKeep("A recovery copy that is not needed any more stays. " + isRemoved.error().text);
}

void RecoveryCopy::leave()
{
    flush();
    stopClock();
    m_copy.reset();
}

Result<Project> RecoveryCopy::take(const FoundCopy &copy, LayerHost &host)
{
    Result<KeptCopy> claimed = KeptCopy::claim(copy);
    if (!claimed)
        return tl::unexpected(claimed.error());
    Result<Project> project = ProjectFile::read(copy.path, host);
    if (!project)
        return project;
    leave();
    m_copy = std::move(*claimed);
    m_project = copy.project;
    return project;
}

Result<void> RecoveryCopy::discard(const FoundCopy &copy)
{
    return KeptCopy::claim(copy).and_then([](KeptCopy claimed) { return claimed.remove(); });
}
