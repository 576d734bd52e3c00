#include "app/DocumentLog.h"
#include "app/LWAppDelegate.h"
#include "app/WebAddresses.h"
#include "screen/LWScreen.h"
#include "show/NewScreens.h"

#include <QStandardPaths>
#include <QUrl>

Q_LOGGING_CATEGORY(lcDocument, "wallwright.document", QtWarningMsg)

using Sheet = Person::Sheet;

namespace {
constexpr int firstScreenWatts = 200;
constexpr QSize firstOutput{1920, 1080};
} // namespace

LayerPointer LWAppDelegate::firstLayer()
{
    const QString label = QString::asprintf("Layer %i", m_screenNumber);
    return LWScreen::initWithrow(*this, NewScreens::first(label), firstScreenWatts);
}

void LWAppDelegate::applicationDidFinishLaunching()
{
    takeSupply({});
    const LayerPointer layer = firstLayer();
    const std::vector<LayerPointer> presets = firstPresets();
    m_OutputHeight = firstOutput.height();
    m_OutputWidth = firstOutput.width();
    m_redraw.open();
    m_arraycontroller.setLayers({layer}, {0});
    m_presetarraycontroller.setLayers(presets, {0});
    update();
    if (!m_preOpenFile.isNull())
        openProjectPre(m_preOpenFile);
    m_history.clear(); // nobody undoes the start
    if (m_keptPresets) {
        m_keptPresets->beginWith(m_history.state().presets);
        connect(&m_history, &DocumentHistory::contentDidChange, this, &LWAppDelegate::keepEditedPresets);
    }
}

void LWAppDelegate::newProject()
{
    if (m_recovery)
        m_recovery->leave();
    showProject({firstOutput.height(), firstOutput.width(), {firstLayer()}}, {}, "new project");
    documentIsInFile();
    redrawNow();
}

LWAppDelegate::TerminateReply LWAppDelegate::applicationShouldTerminate()
{
    if (!m_managedObjectContext)
        return TerminateReply::Now;
    if (!m_managedObjectContext->commitEditing()) {
        qCWarning(lcDocument, "%s:%s unable to commit editing to terminate", metaObject()->className(),
                  "applicationShouldTerminate:");
        return TerminateReply::Cancel;
    }
    if (!m_managedObjectContext->hasChanges())
        return TerminateReply::Now;
    const Result<void> saved = m_managedObjectContext->save();
    if (saved)
        return TerminateReply::Now;
    if (m_person.presentError(saved.error().text))
        return TerminateReply::Cancel;
    // Whichever button closes it, the program ends.
    m_person.ask("Could not save changes while quitting. Quit anyway?",
                 "Quitting now will lose any changes you have made since the last successful save",
                 {"Quit anyway", "Cancel"});
    return TerminateReply::Now;
}

void LWAppDelegate::add()
{
    if (hasRoomFor(1, m_arraycontroller))
        m_person.beginSheet(Sheet::AddWindow);
}

void LWAppDelegate::CancelAddWindow()
{
    m_person.endSheet(Sheet::AddWindow);
}

void LWAppDelegate::openAbout()
{
    m_person.beginSheet(Sheet::About);
}

void LWAppDelegate::closeAbout()
{
    m_person.endSheet(Sheet::About);
}

void LWAppDelegate::openHelp()
{
    m_person.beginSheet(Sheet::Help);
}

void LWAppDelegate::closeHelp()
{
    m_person.endSheet(Sheet::Help);
}

void LWAppDelegate::openPvw()
{
    m_person.showOutputPreview();
    qCDebug(lcDocument, "test");
}

bool LWAppDelegate::hasWebPages()
{
    return !QUrl(WebAddresses::home).host().endsWith(".example"); // as no page in the web does
}

void LWAppDelegate::Orvurllink()
{
    m_person.openWebAddress(WebAddresses::home);
}

void LWAppDelegate::orvsoftwareurl()
{
    m_person.openWebAddress(WebAddresses::software);
}

void LWAppDelegate::webupdatecheck()
{
    m_person.openWebAddress(WebAddresses::software);
}

void LWAppDelegate::orvsoftwarehelpurl()
{
    m_person.openWebAddress(WebAddresses::help);
}

QString LWAppDelegate::applicationFilesDirectory() const
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/" + WebAddresses::identifier;
}
