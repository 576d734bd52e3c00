#pragma once

#include "formats/FileFormat.h"
#include "layer/Supply.h"

#include <QPoint>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <optional>

/// The person at the screen, whom the document asks and tells. What there is to be seen of the document is no matter of
/// this: views read it, see LWAppDelegate::changed(). The windows implement it; tests script it; the command line does
/// without, since it works on projects and compositions directly.
class Person
{
public:
    virtual ~Person() = default;

    /// What a file is asked for: the title says it, and files that give what is wanted are offered.
    struct OpenPurpose
    {
        QString title;
        FileFormat::Gives wanted;
    };
    /// Asks for a file to open; any file can be chosen. Returns its path, nullopt when the panel was cancelled.
    virtual std::optional<QString> runModalOpenPanel(const OpenPurpose &purpose) = 0;
    /// What is to be saved, and as what.
    struct SavePurpose
    {
        QString title;
        FileFormat::Kind format;
    };
    /// Asks where to save; the name comes back as it was typed. Asks too before a file of the final name is replaced.
    /// Returns nullopt when the panel was cancelled.
    virtual std::optional<QString> runModalSavePanel(const SavePurpose &purpose) = 0;
    /// Shows a message with buttons and returns when one of them closed it.
    virtual void ask(const QString &message, const QString &informativeText, const QStringList &buttons) = 0;
    /// Shows why something failed. Returns whether that was dealt with, so that what was under way is called off.
    virtual bool presentError(const QString &text) = 0;
    /// Sheets over the main window; help is a window beside it.
    enum class Sheet
    {
        AddWindow,
        About,
        Help
    };
    virtual void beginSheet(Sheet sheet) = 0;
    /// Hides it, if it is shown.
    virtual void endSheet(Sheet sheet) = 0;
    /// Shows the window with the composed output alone.
    virtual void showOutputPreview() = 0;
    /// Opens a page in the person's browser.
    virtual void openWebAddress(const QString &address) = 0;
    /// Shows a message with an "OK" button and returns when it was closed. `informativeText` may be empty.
    virtual void alert(const QString &message, const QString &informativeText) = 0;
    /// Tells, in the status line and without stopping anyone, that something could not be done.
    virtual void tellFailure(const QString &sentence) = 0;
    /// Tells in the same place what has been done.
    virtual void tellStatus(const QString &sentence) = 0;
    /// Shows how much of some long work is done, 0 to 1; 1 ends it, whatever came of it. `what` is said as "Exporting
    /// show.psd". Meanwhile the person can edit nothing, only cancel: then this returns false until the work has ended.
    virtual bool showProgress(const QString &what, double done) = 0;

    /// Where the person looks at the output: the size of the canvas, as LayerHost has it.
    virtual QSizeF canvasFrameSize() const = 0;
    /// The pixel of the output in the middle of what the canvas shows; nullopt where there is no canvas.
    virtual std::optional<QPoint> middleOfView() const = 0;
    /// Adds a file to the recent documents.
    virtual void noteRecentDocument(const QString &path) = 0;
    /// The supply that the person chose last, in whatever show, from one run to the next; nullopt: none yet.
    virtual std::optional<Supply> lastSupply() const = 0;
    virtual void noteSupply(const Supply &supply) = 0;
    /// The document was not saved: another program has changed its file since it was opened or saved here. The answers
    /// are LWAppDelegate's saveAnyway(), saveProject() and openTheirs(). Blocks nobody.
    virtual void fileWasChangedElsewhere(const QString &path) = 0;
};
