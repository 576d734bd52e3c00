#include "app/LWAppDelegate.h"
#include "base/FileBytes.h"
#include "facts/MissingPicture.h"
#include "facts/PsdLimits.h"
#include "facts/UnknownValues.h"
#include "formats/FileFormat.h"
#include "formats/PSDExport.h"
#include "formats/PngFile.h"
#include "formats/ProjectFile.h"
#include "layer/PowerCalculator.h"
#include "output/LostPicture.h"
#include "screen/LostWall.h"
#include "show/LayerArchive.h"

#include <QFileInfo>

#include <utility>

namespace {
/// Not in a file that is only read, such as text.
bool isSavedIn(const QString &path)
{
    return !path.isEmpty() && FileFormat::toOpen(path).isSaved;
}

/// Of a file that is larger than any show there is none.
QByteArray digestOf(const QString &path)
{
    return FileBytes::digest(path, LayerArchive::mostBytes);
}

/// A file of which is not known what it held counts as changed.
bool isChangedElsewhere(const DocumentFile &file)
{
    return QFileInfo(file.path).isFile() && (file.digest->isEmpty() || digestOf(file.path) != *file.digest);
}

std::vector<LayerPointer> visibleOf(std::vector<LayerPointer> layers)
{
    std::erase_if(layers, [](const LayerPointer &layer) { return !layer->visible(); });
    return layers;
}

/// `format`: "PNG". The error's text begins with what could not be exported.
void tellFailedExport(Person &person, const char *format, const Error &error)
{
    qWarning("There was an error writing the %s: %s", format, qUtf8Printable(error.text));
    person.tellFailure("Cannot export " + error.text);
}
} // namespace

void LWAppDelegate::saveProject()
{
    if (const std::optional<QString> chosen = m_person.runModalSavePanel({"Save project", FileFormat::Kind::Project}))
        writeProject(FileFormat::of(FileFormat::Kind::Project).finalPath(*chosen));
}

void LWAppDelegate::save()
{
    if (!isSavedIn(projectPath()))
        saveProject();
    else if (isChangedElsewhere(*m_file))
        m_person.fileWasChangedElsewhere(projectPath());
    else
        writeProject(projectPath());
}

void LWAppDelegate::saveAnyway()
{
    if (!isSavedIn(projectPath()))
        return saveProject();
    writeProject(projectPath());
}

void LWAppDelegate::openTheirs()
{
    openProjectPre(QString(projectPath()));
}

Project LWAppDelegate::project() const
{
    return {m_OutputHeight, m_OutputWidth, allScreensArray(), m_supply, m_wiring.processors(), m_unknown};
}

void LWAppDelegate::writeProject(const QString &path)
{
    m_redraw.catchUp();
    const Project saved = project();
    const Result<QByteArray> bytes = ProjectFile::encode(saved);
    const Result<void> written = bytes ? FileBytes::write(path, *bytes) : failWithin(path, bytes.error());
    if (!written)
        return m_person.alert("Cannot save " + written.error().text, "The document is not saved.");
    m_person.noteRecentDocument(path);
    if (projectPath() == path)
        *m_file->digest = FileBytes::digestOf(*bytes);
    else
        *m_file = m_knownFiles.at(path, FileBytes::digestOf(*bytes));
    documentIsInFile();
    emit projectDidSave(path);
    emit projectPathDidChange(path);
    const QString leftOut = UnknownValues::areOfText(saved) ? "; " + UnknownValues::leftOut("the show") : QString();
    m_person.tellStatus("Saved " + QFileInfo(path).fileName() + leftOut);
}

void LWAppDelegate::openProject()
{
    if (const std::optional<QString> path = m_person.runModalOpenPanel({"Open project", FileFormat::Gives::Project}))
        return openProjectPre(*path);
    redrawNow();
}

void LWAppDelegate::openProjectPre(const QString &path)
{
    const bool isOpen = load(path);
    redrawNow();
    if (isOpen)
        tellLostWalls();
}

bool LWAppDelegate::load(const QString &path)
{
    const QByteArray digest = digestOf(path); // before it is read: what comes later is another's
    const Result<Project> project = FileFormat::toOpen(path).read(path, *this);
    if (!project) {
        m_person.alert("Cannot open " + project.error().text, "The document is unchanged.");
        return false;
    }
    m_person.noteRecentDocument(path);
    if (m_recovery)
        m_recovery->leave();
    if (!showProject(*project, m_knownFiles.at(path, digest), "open project"))
        return false;
    documentIsInFile();
    tellUnknownContent(*project);
    return true;
}

bool LWAppDelegate::showProject(const Project &project, const DocumentFile &file, const QString &name)
{
    setFile(std::make_shared<DocumentFile>(file));
    m_unknown = project.unknown;
    m_OutputHeight = project.outputHeight;
    m_OutputWidth = project.outputWidth;
    takeSupply(project.supply);
    m_wiring.take(project.processors);
    PowerCalculator::renderCurrents(project.layers); // they were read under the supply of before
    m_arraycontroller.setLayers(project.layers, {0});
    m_wiring.followLimits();
    const Result<void> isKept = m_history.record(name);
    tellIfFailed(isKept);
    return isKept.has_value();
}

void LWAppDelegate::setFile(const std::shared_ptr<DocumentFile> &file)
{
    if (std::exchange(m_file, file) == file)
        return;
    emit projectPathDidChange(projectPath());
}

void LWAppDelegate::documentIsInFile()
{
    m_history.endGesture();
    m_history.stack().setClean();
    if (m_recovery)
        m_recovery->documentWasSaved({projectPath(), *m_file->digest});
}

void LWAppDelegate::tellUnknownContent(const Project &project)
{
    if (UnknownValues::areIn(project))
        m_person.tellStatus(UnknownValues::told(project, QFileInfo(projectPath()).fileName()));
}

void LWAppDelegate::tellLostWalls()
{
    if (const QStringList lost = LostWall::sentencesOf(allScreensArray()); !lost.isEmpty())
        m_person.tellFailure(lost.join(". ") + '.');
}

void LWAppDelegate::drawLostWalls(const std::vector<LayerPointer> &layers)
{
    bool isAnyDrawn = false;
    for (const LayerPointer &layer : layers) {
        if (!LostWall::sentenceOf(*layer))
            continue;
        layer->drawInRect();
        isAnyDrawn |= !LostWall::sentenceOf(*layer);
    }
    if (!isAnyDrawn)
        return;
    composeOutput();
    m_news.expectChange(); // hidden ones are in no composition
    tellChanges();
}

bool LWAppDelegate::applicationOpenFile(const QString &path)
{
    if (path.isEmpty())
        m_person.alert("No File Found", "File Not Found");
    else
        m_preOpenFile = QFileInfo(path).absoluteFilePath(); // a shell may name it from its folder
    return true;
}

void LWAppDelegate::saveAction()
{
    m_redraw.catchUp();
    drawLostWalls(visibleOf(allScreensArray()));
    const auto isAllShown = [this] {
        return LostPicture::check(composedOutput(), {m_OutputWidth, m_OutputHeight}, allScreensArray());
    };
    if (!isAllShown()) // there may be memory now
        composeOutput();
    const std::optional<QString> chosen = m_person.runModalSavePanel({"Export PNG", FileFormat::Kind::Png});
    if (!chosen)
        return;
    const QString path = FileFormat::of(FileFormat::Kind::Png).finalPath(*chosen);
    const Result<void> isWhole = LostWall::check(allScreensArray()).and_then(isAllShown);
    if (!isWhole)
        return tellFailedExport(m_person, "PNG", {path + ": " + isWhole.error().text});
    if (const Result<void> written = PngFile::write(path, img()); !written)
        return tellFailedExport(m_person, "PNG", written.error());
    QStringList all("Exported " + QFileInfo(path).fileName());
    for (const LayerPointer &layer : visibleOf(allScreensArray())) {
        if (const std::optional<QString> missing = MissingPicture::sentenceOf(*layer))
            all.append(*missing);
    }
    m_person.tellStatus(all.join(". "));
}

void LWAppDelegate::savePSD()
{
    m_redraw.catchUp();
    if (const Result<void> fits = PsdLimits::checkOutputSize(m_OutputWidth, m_OutputHeight); !fits)
        return tellFailedExport(m_person, "PSD", fits.error());
    drawLostWalls(allScreensArray());
    const std::optional<QString> chosen = m_person.runModalSavePanel({"Export PSD", FileFormat::Kind::Psd});
    if (!chosen)
        return;

    const QString path = FileFormat::of(FileFormat::Kind::Psd).finalPath(*chosen);
    const QString name = QFileInfo(path).fileName();
    const auto progress = [&](double done) { return m_person.showProgress("Exporting " + name, done); };
    const Result<PSDExport::Outcome> outcome = PSDExport::write(path, project(), m_screenNumber, progress);
    progress(1);
    recordUnwatched("layer names"); // they may have got some
    if (!outcome)
        return tellFailedExport(m_person, "PSD", outcome.error());
    if (*outcome == PSDExport::Outcome::Cancelled)
        return m_person.tellStatus("Cancelled the export of " + name);
    const Project exported = project();
    const QStringList all =
        QStringList("Exported " + name) + PSDExport::resized(exported) + PSDExport::leftOut(exported);
    m_person.tellStatus(all.join(". "));
}

void LWAppDelegate::connectRecovery()
{
    connect(&m_history, &DocumentHistory::contentDidChange, this, [this] {
        if (m_history.stack().isClean())
            m_recovery->documentWasSaved({projectPath(), *m_file->digest});
        else
            m_recovery->contentDidChange();
    });
    connect(&*m_recovery, &RecoveryCopy::couldNotKeep, this,
            [this](const QString &sentence) { m_person.tellFailure(sentence); });
}

std::vector<FoundCopy> LWAppDelegate::recoverable() const
{
    return m_recovery ? m_recovery->found() : std::vector<FoundCopy>();
}

void LWAppDelegate::recover(const FoundCopy &copy)
{
    if (!m_recovery)
        return;
    const Result<Project> project = m_recovery->take(copy, *this);
    if (!project)
        return m_person.alert("Cannot recover " + project.error().text, "The document is unchanged.");
    if (!showProject(*project, m_knownFiles.at(copy.project.path, copy.project.digest), "recover project"))
        return;
    redrawNow();
    tellLostWalls();
}

void LWAppDelegate::discardRecoverable(const FoundCopy &copy)
{
    if (!m_recovery)
        return;
    if (const Result<void> discarded = m_recovery->discard(copy); !discarded)
        m_person.alert("Cannot remove " + discarded.error().text, "It stays.");
}

void LWAppDelegate::keepUnsavedWork()
{
    if (m_recovery)
        m_recovery->flush();
}
