#include "app/WebAddresses.h"
#include "show/ManagedObjectContext.h"
#include "tests/app/ListFixture.h"

#include <QStandardPaths>

namespace {
using Sheet = Person::Sheet;
using Reply = LWAppDelegate::TerminateReply;

/// A store that does what the test wrote down.
class ScriptedContext final : public ManagedObjectContext
{
public:
    bool commitEditing() override
    {
        calls.append("commit");
        return canCommit;
    }
    bool hasChanges() const override { return isChanged; }
    Result<void> save() override
    {
        calls.append("save");
        return canSave ? Result<void>() : fail("The store is full.");
    }

    bool canCommit = true;
    bool isChanged = true;
    bool canSave = true;
    QStringList calls;
};

/// From the start of the program to its end.
class LWAppDelegateLifecycle : public ListFixture
{
protected:
    LWAppDelegateLifecycle() { document.AddScreen(); } // unsaved work, which nothing here asks about

    Reply quit()
    {
        document.setManagedObjectContext(&context);
        return document.applicationShouldTerminate();
    }
    bool nothingWasAsked() const
    {
        return person.questions.isEmpty() && person.alerts.isEmpty() && person.presentedErrors.isEmpty() &&
               person.timesAskedWhereToSave == 0;
    }

    ScriptedContext context;
};
} // namespace

TEST_F(LWAppDelegateLifecycle, AFreshStartHasOneLayerAnd31PresetsAndNothingToUndo)
{
    ScriptedPerson other;
    LWAppDelegate fresh(other);
    EXPECT_TRUE(fresh.allScreensArray().empty());
    const QSignalSpy compositions(&fresh, &LWAppDelegate::composed);

    fresh.applicationDidFinishLaunching();

    EXPECT_EQ(labelsOf(fresh.allScreensArray()), "Layer 0");
    EXPECT_EQ(fresh.screenNumber(), 0);
    EXPECT_EQ(fresh.selectedRow(), 0);
    EXPECT_EQ(fresh.presetScreensArray().size(), 31U);
    EXPECT_EQ(fresh.OutputWidth(), 1920);
    EXPECT_EQ(fresh.OutputHeight(), 1080);
    EXPECT_EQ(fresh.projectPath(), "");
    EXPECT_EQ(compositions.size(), 1);
    EXPECT_FALSE(fresh.undoStack().canUndo());
    EXPECT_TRUE(fresh.undoStack().isClean());
}

TEST_F(LWAppDelegateLifecycle, WithoutAStoreTheProgramEndsUnasked)
{
    EXPECT_EQ(document.applicationShouldTerminate(), Reply::Now);
    EXPECT_TRUE(nothingWasAsked());
    EXPECT_FALSE(document.undoStack().isClean());
}

TEST_F(LWAppDelegateLifecycle, NothingMakesAStore)
{
    EXPECT_EQ(document.property("persistentStoreCoordinator").value<QObject *>(), nullptr);
    EXPECT_EQ(document.property("managedObjectModel").value<QObject *>(), nullptr);
}

TEST_F(LWAppDelegateLifecycle, EditsThatCannotBeCommittedKeepTheProgram)
{
    context.canCommit = false;
    const LogLines log;

    EXPECT_EQ(quit(), Reply::Cancel);

    EXPECT_EQ(log.lines(),
              QStringList{"LWAppDelegate:applicationShouldTerminate: unable to commit editing to terminate"});
    EXPECT_EQ(context.calls, QStringList{"commit"});
    EXPECT_TRUE(nothingWasAsked());
}

TEST_F(LWAppDelegateLifecycle, AStoreWithoutChangesIsNotSaved)
{
    context.isChanged = false;
    context.canSave = false;

    EXPECT_EQ(quit(), Reply::Now);

    EXPECT_EQ(context.calls, QStringList{"commit"});
    EXPECT_TRUE(nothingWasAsked());
}

TEST_F(LWAppDelegateLifecycle, AStoreWithChangesIsSaved)
{
    EXPECT_EQ(quit(), Reply::Now);

    EXPECT_EQ(context.calls, QStringList({"commit", "save"}));
    EXPECT_TRUE(nothingWasAsked());
}

TEST_F(LWAppDelegateLifecycle, AFailureThatThePersonDealsWithKeepsTheProgram)
{
    context.canSave = false;
    person.dealsWithErrors = true;

    EXPECT_EQ(quit(), Reply::Cancel);

    EXPECT_EQ(person.presentedErrors, QStringList{"The store is full."});
    EXPECT_TRUE(person.questions.isEmpty());
}

TEST_F(LWAppDelegateLifecycle, AFailureThatNobodyDealsWithIsToldAndEndsTheProgram)
{
    context.canSave = false;

    EXPECT_EQ(quit(), Reply::Now);

    EXPECT_EQ(person.presentedErrors.size(), 1);
    ASSERT_EQ(person.questions.size(), 1);
    EXPECT_EQ(person.questions[0].message, "Could not save changes while quitting. Quit anyway?");
    EXPECT_EQ(person.questions[0].informativeText,
              "Quitting now will lose any changes you have made since the last successful save");
    EXPECT_EQ(person.questions[0].buttons, QStringList({"Quit anyway", "Cancel"}));
}

TEST_F(LWAppDelegateLifecycle, AboutAndHelpAreSheets)
{
    document.openAbout();
    EXPECT_EQ(person.sheets, std::set{Sheet::About});
    document.openHelp();
    EXPECT_EQ(person.sheets, (std::set{Sheet::About, Sheet::Help}));
    document.closeAbout();
    EXPECT_EQ(person.sheets, std::set{Sheet::Help});
    document.closeHelp();
    EXPECT_TRUE(person.sheets.empty());
}

TEST_F(LWAppDelegateLifecycle, TheOutputPreviewIsShown)
{
    const DocumentLogLines log;

    document.openPvw();

    EXPECT_EQ(person.timesPreviewed, 1);
    EXPECT_EQ(log.lines(), QStringList{"test"});
}

TEST_F(LWAppDelegateLifecycle, TheMakersPagesOpenInTheBrowser)
{
    document.Orvurllink();
    document.orvsoftwareurl();
    document.webupdatecheck();
    document.orvsoftwarehelpurl();

    EXPECT_EQ(person.webAddresses,
              QStringList({WebAddresses::home, WebAddresses::software, WebAddresses::software, WebAddresses::help}));
    EXPECT_EQ(std::set(person.webAddresses.begin(), person.webAddresses.end()).size(), 3U);
    for (const QString &address : person.webAddresses)
        EXPECT_TRUE(address.startsWith("https://")) << qPrintable(address);
}

TEST_F(LWAppDelegateLifecycle, TheProgramsFilesHaveAFolderOfItsName)
{
    EXPECT_EQ(document.applicationFilesDirectory(),
              QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/" + WebAddresses::identifier);
    EXPECT_FALSE(WebAddresses::identifier.isEmpty());
}
