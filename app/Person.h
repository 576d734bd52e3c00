#pragma once

#include "formats/FileFormat.h"
#include "layer/Supply.h"

#include <QImage>
#include <QPoint>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <optional>

/// The person at the screen, whom the document asks and tells. The windows implement it; tests script it; the command
/// line does without, since it works on projects and compositions directly.
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

    /// A new output was composed, of the output's size in pixels; null where there is none. It shares its pixels with
    /// the composition: whoever keeps a copy past the next call of releaseOutput() costs the program a second buffer.
    virtual void showOutput(const QImage &output) = 0;
    /// The next output is about to be composed: let go of the last one. showOutput() follows at once.
    virtual void releaseOutput() = 0;
    /// Paints the canvas again with the output it has.
    virtual void repaintCanvas() = 0;
    /// The canvas and the marker in it, as LayerHost has them.
    virtual QSizeF canvasFrameSize() const = 0;
    /// The pixel of the output in the middle of what the canvas shows; nullopt where there is no canvas.
    virtual std::optional<QPoint> middleOfView() const = 0;
    virtual void setKScaleFactor(float factor) = 0;
    virtual void drawRectangle(const QRectF &rectangle) = 0;
    /// Shows and hides the marker around a selected still.
    virtual void showRectangle() = 0;
    virtual void hideRectangle() = 0;
    /// Turns on the button of a pattern, 0 to 7, and the others off.
    virtual void showPattern(int pattern) = 0;
    /// Rows of the layer table may look different: a layer was rendered again.
    virtual void reloadTable() = 0;
    /// The power line, as it is to be shown: "Total Power: 72.73Amp".
    virtual void showPowerResult(const QString &text) = 0;
    /// Adds a file to the recent documents.
    virtual void noteRecentDocument(const QString &path) = 0;
    /// The supply that the person chose last, in whatever show, from one run to the next; nullopt: none yet.
    virtual std::optional<Supply> lastSupply() const = 0;
    virtual void noteSupply(const Supply &supply) = 0;
    /// The document was not saved: another program has changed its file since it was opened or saved here. The answers
    /// are LWAppDelegate's saveAnyway(), saveProject() and openTheirs(). Blocks nobody.
    virtual void fileWasChangedElsewhere(const QString &path) = 0;
};
