#pragma once

#include "app/Checks.h"
#include "app/KeptPresets.h"
#include "app/KnownFiles.h"
#include "app/Person.h"
#include "app/Wiring.h"
#include "base/Colour.h"
#include "layer/LayerHost.h"
#include "output/Composition.h"
#include "recovery/RecoveryCopy.h"
#include "show/DocumentHistory.h"
#include "show/LayerList.h"
#include "show/ManagedObjectContext.h"
#include "show/Redraw.h"
#include "show/ShowNews.h"

#include <QObject>
#include <QPoint>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class LWScreen;

/// The document and its controller: owns the layers, carries the actions by name, and conducts the pieces that do the
/// work (Composition, ProjectFile, PngFile, PSDExport, PowerCalculator). Main thread only.
class LWAppDelegate final : public QObject, public LayerHost, private UndoableDocument
{
    Q_OBJECT
    /// Output size in pixels. Plain setters notify nobody; setValue() does.
    Q_PROPERTY(int OutputWidth READ OutputWidth WRITE setOutputWidth)
    Q_PROPERTY(int OutputHeight READ OutputHeight WRITE setOutputHeight)
    /// What the current is worked out for; read only. See voltageSelect().
    Q_PROPERTY(qint64 voltageCalc READ voltageCalc)
    Q_PROPERTY(qint64 phaseCalc READ phaseCalc)
    /// Parts of a store that quitting would take care of; nothing makes them, so they stay empty.
    Q_PROPERTY(QObject *persistentStoreCoordinator MEMBER m_persistentStoreCoordinator)
    Q_PROPERTY(QObject *managedObjectModel MEMBER m_managedObjectModel)

public:
    /// An empty document. `person` outlives it. Unsaved work is kept in `recoveryFolder`; where that is empty,
    /// nowhere; likewise the presets in `presetsFile`.
    explicit LWAppDelegate(Person &person, const QString &recoveryFolder = {}, const QString &presetsFile = {});
    ~LWAppDelegate() override;

    /// Makes the first document: one screen named "Layer 0" on an output of 1920 x 1080; the presets of the last time,
    /// or the 31 built-in ones; then opens the file that was handed over before, if any.
    void applicationDidFinishLaunching();
    /// What becomes of a request to quit.
    enum class TerminateReply
    {
        Now,
        Cancel
    };
    /// Without a store, which is always: to end now. The document itself is never asked about.
    TerminateReply applicationShouldTerminate();
    /// The store; null: none. It outlives the document.
    void setManagedObjectContext(ManagedObjectContext *context) { m_managedObjectContext = context; }
    /// Where the platform keeps programs' files, with this one's identifier behind it. Nothing is kept there.
    QString applicationFilesDirectory() const;

    /// The list that table and inspector share; the document's layers, topmost first.
    LayerList &arraycontroller() { return m_arraycontroller; }
    const std::vector<LayerPointer> &allScreensArray() const { return m_arraycontroller.layers(); }
    /// The presets, in the order of their table.
    LayerList &presetarraycontroller() { return m_presetarraycontroller; }
    const std::vector<LayerPointer> &presetScreensArray() const { return m_presetarraycontroller.layers(); }
    /// The selected layers, the topmost first.
    std::vector<LayerPointer> selectedLayers() const;
    /// The row after which new layers come in; written by duplicating alone.
    qint64 selectedRow() const { return m_selectedRow; }
    /// The number in the name of the layer that was named last. It only grows.
    int screenNumber() const { return m_screenNumber; }
    /// Grows with each change that changed() tells.
    quint64 revision() const { return m_news.revision(); }
    /// Its processors, and what hangs on them.
    Wiring &wiring() { return m_wiring; }
    const Wiring &wiring() const { return m_wiring; }
    /// What may be wrong in it.
    Checks &checks() { return m_checks; }
    /// Undo and redo.
    QUndoStack &undoStack() { return m_history.stack(); }
    /// What a project file of the document holds; the layers are the document's own.
    Project project() const;
    /// The project file that the document belongs to; empty: none.
    const QString &projectPath() const { return m_file->path; }

    int OutputWidth() const override { return m_OutputWidth; }
    void setOutputWidth(int pixels) { m_OutputWidth = pixels; }
    int OutputHeight() const override { return m_OutputHeight; }
    void setOutputHeight(int pixels) { m_OutputHeight = pixels; }
    /// Fill and outline of the output; opaque black at first. Not part of a file.
    const Colour &bgColor() const { return m_bgColor; }
    void setBgColor(const Colour &colour) { m_bgColor = colour; }
    const Colour &edgeColor() const { return m_edgeColor; }
    void setEdgeColor(const Colour &colour) { m_edgeColor = colour; }

    /// The composed output, see Composition::output(): to be read, not to be kept.
    const QImage &offscreenRep() const { return m_composition.output(); }
    /// The same, under the name of what the views show, and as they take it.
    const QImage &img() const { return m_composition.output(); }
    const ComposedOutput &composedOutput() const { return m_composition.composed(); }
    /// The power line as it was last computed: "Total Power: 72.73Amp".
    const QString &powerResult() const { return m_powerResult; }

    /// The redraw that every edit ends in. Composes at most once in 0.1 s; a call in between recomputes the power and
    /// tells what has changed, and is made up for as soon as the time is over.
    void update(QObject *sender = nullptr);
    /// Opens the gate of update(); nothing else.
    void timerupdate() { m_redraw.open(); }
    bool shouldUpdate() const { return m_redraw.isOpen(); }
    /// Recomputes the power line; chooses 110 V and 1 phase where none was chosen. Views see it with the next
    /// changed().
    void calculatePower();

    /// Edits the output size ("OutputWidth", "OutputHeight") or the selected layer ("arrangedObjects.panelWidth") and
    /// notifies the observer. Returns whether there was such a value to edit.
    bool setValue(const QVariant &value, const QString &keyPath);
    /// The same for all selected layers, as one edit; those without such a value stay as they are.
    bool setValueOfSelection(const QVariant &value, const QString &keyPath);
    /// A value was edited: renders the selected layer and updates. "updatePattern" takes pattern() over into it first.
    void observeValueForKeyPath(const QString &keyPath);

    /// Typing in a field has ended: the next edit of the same value is a step of its own. Only now have the panels gone
    /// that a wall has no more: on the way from 8 columns to 12 it had one.
    void endTyping();
    /// What is being typed is no value in the end: it is taken back, without a step to do it again.
    void takeBackTyping() { m_history.takeBackGesture(); }
    /// What was typed or stepped to stays, even where the step to follow is taken back for LayerLimits.
    void keepTyped() { m_history.keepGesture(); }
    /// From now on edits are only tried; keepTrial() makes one step of them, dropTrial() takes them back.
    void beginTrial() { m_history.beginTrial(); }
    void keepTrial() { tellIfFailed(m_history.keepTrial()); }
    void dropTrial() { m_history.dropTrial(); }
    /// An edit was made with plain setters: it becomes a step of the history under that name, and is shown. Edits in a
    /// row with the same gesture are one step. One that leads beyond LayerLimits is taken back and told; returns false.
    bool finishEdit(const QString &name, const Gesture &gesture = {});

    /// Shows the sheet that offers what to add, and hides it.
    void add();
    void CancelAddWindow();
    /// Adds a small red screen under the next name.
    void AddScreen();
    /// Asks for a picture and adds it as a still, in the middle of the view and with its ratio kept; one that cannot be
    /// read becomes a still without a picture.
    void AddImage();
    /// Adds a still as large as the output that shows a standard chart, see LayerRecord::chart.
    void addChart(const QString &chart);
    /// Asks for another picture of the selected still, whose place and size stay.
    void choosePicture();
    /// There are no masks: a line in the log is all.
    void AddMask(const QObject *sender = nullptr);
    /// Removes the selected layers; an alert where the list has but one.
    void remove();
    /// Nothing; there for what is bound to it.
    void removeSelectedScreen() {}
    /// Duplicates the selected layer and selects the copy.
    void copyLayer();
    /// A copy of exactly what an archive of the layer holds; null, told in the status line, where it cannot be made.
    LayerPointer createCopyOfLayerThroughArch(const LayerPointer &layer);

    /// Puts copies of the selected layers on the platform's pasteboard. Returns whether there are any.
    bool copyToPasteboard();
    /// The same, and removes them; an alert where the list has but one layer.
    void cutToPasteboard();
    /// Adds what is on the pasteboard above the selected layer, and selects it.
    void pasteFromPasteboard();
    /// Adds stills of picture files above the selected layer, around a pixel of the output or else in the middle of the
    /// view; what cannot be read is told and left out.
    void addImages(const QStringList &paths, const std::optional<QPoint> &middle = {});
    /// Moves the selected layers by output pixels; moves in a row are one step.
    void moveSelection(const QPoint &distance);
    /// Moves the selected layers together, so that the box around them stands in the middle of the output. Where that
    /// falls between two pixels, the left and upper one.
    void centreInOutput();
    /// The same, flush with two edges of the output.
    void fitToOutputCorner(Qt::Corner corner);
    /// Hides the selected layers where the one before the inspector is visible, or shows them.
    void toggleVisibility();
    /// The same with the layer of one row, if there is such a row; the selection stays.
    void toggleVisibilityOf(qsizetype row);
    /// Moves the selected rows of one of the two lists up by one (-1) or down (1), as one step; those at the end stay.
    void moveSelectedRows(LayerList &table, int distance);
    /// Shows the selected layers and hides all others.
    void hideOthers();
    /// Switches on what is off of the selected walls.
    void switchAllPanelsOn();
    /// Exchanges the two panel colours of each selected wall.
    void exchangeColours();

    /// A drag of rows began in one of the two tables.
    void tableViewWriteRowsWithIndexes(const LayerList &table);
    /// Rows were dropped on a table before its row `row`. Of those dragged only `index` counts: within a table it is
    /// moved, from the other one it is copied.
    void tableViewAcceptDrop(LayerList &table, qsizetype index, qsizetype row);
    /// Another row is selected; -1 leaves the selection as it was.
    void tableViewSelectionDidChange(qsizetype selectedRow);

    /// Adds a copy of a preset above the selected layer.
    void insertPreset(qsizetype index);
    /// Keeps copies of the selected layers as presets, before all others, and selects them.
    void keepAsPresets();
    /// Removes the selected presets; an alert where the list has but one.
    void removePreset();
    /// Asks where, and writes the presets; a failure is an alert.
    void savePresets();
    /// Asks which, and opens a preset library in place of the presets. A file that cannot be opened is an alert and
    /// changes nothing.
    void openPresets();
    /// The 31 built-in presets again, in place of the presets.
    void resetPresets();

    void openAbout();
    void closeAbout();
    void openHelp();
    void closeHelp();
    void openPvw();
    /// Whether the build was given addresses of the maker's pages; without, nothing should offer to open them.
    static bool hasWebPages();
    /// Open the maker's pages in the browser.
    void Orvurllink();
    void orvsoftwareurl();
    void webupdatecheck();
    void orvsoftwarehelpurl();

    /// Begins anew with one screen, as after the start.
    void newProject();
    /// Asks where, and writes the project; a failure is an alert.
    void saveProject();
    /// Writes the project to the file that it belongs to; saveProject() where there is none. Where another program has
    /// changed that file since it was opened or saved here, nothing is written and
    /// Person::fileWasChangedElsewhere() tells so; a file that was deleted is written anew.
    void save();
    /// Writes the project to the file that it belongs to, whatever others have put there.
    void saveAnyway();
    /// Opens the file that the document belongs to in the place of the document. Unsaved changes stay behind as a
    /// recovery copy, and undoing leads back to them.
    void openTheirs();
    /// Asks which, and opens it. A file that cannot be opened is an alert and changes nothing.
    void openProject();
    /// Opens the project at `path`; where its name ends in ".json", its JSON form.
    void openProjectPre(const QString &path);
    /// The platform's request to open a file, kept for the launch; an alert where `path` is empty. Always true.
    bool applicationOpenFile(const QString &path);
    /// The file to open at launch; null: none.
    const QString &preOpenFile() const { return m_preOpenFile; }
    /// Unsaved work of programs that have ended, newest first.
    std::vector<FoundCopy> recoverable() const;
    /// Puts such work in the place of the document. An alert where that cannot be done.
    void recover(const FoundCopy &copy);
    /// Removes such work for good. An alert where that cannot be done.
    void discardRecoverable(const FoundCopy &copy);
    /// Keeps at once what has no copy yet.
    void keepUnsavedWork();
    /// Asks where, and writes the composed output as PNG; a failure goes to the log and the status line.
    void saveAction();
    /// Asks where, and exports the layers as a layered file; ".psd" is appended to whatever name was chosen. Layers
    /// without a label get one. A failure goes to the log and the status line; a size that no such file can have is
    /// told before anything is asked.
    void savePSD();

    /// The control's tag becomes the voltage (110, 208 or any other) or the number of phases (1, 3), as one step. With
    /// the other of the two as it stands, that is the choice of the person: it is remembered for shows to come, and
    /// kept with this one. A show without a choice counts with the one remembered, else with 110 V and 1 phase.
    void voltageSelect(qint64 tag);
    void phaseSelect(qint64 tag);
    /// Another choice in the pop-up of the corner coordinates.
    void popupButton();
    void setPopupIndex(int index) { m_popupIndex = index; }
    /// The flow pattern that was chosen last.
    qint64 pattern() const { return m_pattern; }

    qint64 voltageCalc() const override { return m_voltageCalc; }
    void setVoltageCalc(qint64 volts) override { m_voltageCalc = volts; }
    qint64 phaseCalc() const override { return m_phaseCalc; }
    void setPhaseCalc(qint64 phases) override { m_phaseCalc = phases; }
    int popupIndex() const override { return m_popupIndex; }
    QSizeF canvasFrameSize() const override { return m_person.canvasFrameSize(); }
    /// The pattern becomes that of all selected layers, as one step.
    void choosePattern(qint64 pattern) override;

signals:
    /// Something that can be seen of the show is another: its layers, their list, what is selected and where its marker
    /// stands, the output, the supply, the file. Once an edit, after its redraw; views read what they show themselves.
    /// While the gate of the redraw is shut, the output follows: composed() tells.
    void changed();
    /// img() was composed anew: once a composition, and before changed() where both are told.
    void composed();
    /// The document belongs to another file now; empty: to none.
    void projectPathDidChange(const QString &path);
    /// The show has been written there, under the name that it had or another.
    void projectDidSave(const QString &path);

private:
    /// Which table the last drag began in.
    enum class DraggedTable
    {
        None,
        Layers,
        Presets
    };

    DocumentState state(const DocumentState &before) const override;
    void setState(const DocumentState &state) override;
    void takeState(const DocumentState &state);
    void showAsItWas(const DocumentState &state);
    LayerPointer firstLayer();
    void connectLists();
    void connectRecovery();
    std::vector<LayerPointer> firstPresets();
    void keepEditedPresets();
    void tellIfFailed(const Result<void> &done);

    /// An update that no gate holds up.
    void redrawNow();
    void showRedrawn();
    void tellChanges();
    void compose();
    void composeOutput();
    void renderForInspector(Layer &layer);
    void renderAsItWas(const DocumentState &state);
    void recordUnwatched(const QString &name);
    void noteSelection();
    Gesture gestureOn(const QString &keyPath) const;
    void updateAgainSoon();
    /// Whether the last edited value was a side that an aspect lock follows.
    void noteEditedSide(const QString &keyPath);
    void applyAspectLock(Layer &layer) const;
    bool setValueOfOthers(const QVariant &value, const QString &keyPath);
    void editSelectedWalls(const QString &name, const std::function<void(LWScreen &wall)> &edit);
    /// `chosen`: of the show; nullopt: the one remembered counts.
    void takeSupply(const std::optional<Supply> &chosen);
    void supplyWasChosen(const QString &keyPath);
    /// Renders the walls that show their current.
    void renderCurrents();
    /// Returns whether it could be opened.
    bool load(const QString &path);
    /// Tells of the walls that could not be drawn, once the visible ones are composed; of hidden ones if too large.
    void tellLostWalls();
    /// Draws those of the layers again that are lost walls: memory may have become free since.
    void drawLostWalls(const std::vector<LayerPointer> &layers);
    /// Puts another document in the place of this one; false: beyond LayerLimits. `name`: of the step.
    bool showProject(const Project &project, const DocumentFile &file, const QString &name);
    void setFile(const std::shared_ptr<DocumentFile> &file);
    void tellUnknownContent(const Project &project);
    void writeProject(const QString &path);
    void documentIsInFile();
    void shiftSelection(qint64 right, qint64 down);
    void placeSelection(int halvesLeft, int halvesAbove);
    void placeNew(Layer &still, std::optional<QPoint> middle) const;
    void insertAboveSelection(const std::vector<LayerPointer> &layers);
    void insertAndSelect(const LayerPointer &layer, qsizetype index);
    void insertCopy(const LayerPointer &layer, LayerList &table, qsizetype row);
    void tellListCannotBeEmpty();
    /// Whether the list can hold so many more layers; tells it where not. Each way to add some asks before all else.
    bool hasRoomFor(qsizetype more, const LayerList &list);

    Person &m_person;
    LayerList m_arraycontroller;
    LayerList m_presetarraycontroller;
    Composition m_composition;
    DocumentHistory m_history{*this};
    ShowNews m_news;
    Redraw m_redraw{[this] { compose(); }, [this] { showRedrawn(); }};
    Wiring m_wiring{*this};
    Checks m_checks{*this};
    std::optional<RecoveryCopy> m_recovery;
    std::optional<KeptPresets> m_keptPresets; ///< nullopt: they go with the document
    std::shared_ptr<DocumentFile> m_file = std::make_shared<DocumentFile>();
    std::shared_ptr<const UnknownContent> m_unknown; ///< of that file; null: nothing
    KnownFiles m_knownFiles;

    int m_OutputWidth = 0;
    int m_OutputHeight = 0;
    Colour m_bgColor = NamedColour::black;
    Colour m_edgeColor = NamedColour::black;
    QString m_powerResult;

    bool m_hwchange = false; ///< the last edited value was the panel width or height
    QString m_hwchangeVal;

    int m_screenNumber = 0;
    qint64 m_selectedRow = 0;
    DraggedTable m_draggedTV = DraggedTable::None;
    int m_popupIndex = 0;
    qint64 m_pattern = 0;
    std::optional<Supply> m_supply; ///< that was chosen for this document
    qint64 m_voltageCalc = 0;
    qint64 m_phaseCalc = 0;
    QString m_preOpenFile;

    ManagedObjectContext *m_managedObjectContext = nullptr;
    QObject *m_persistentStoreCoordinator = nullptr;
    QObject *m_managedObjectModel = nullptr;
};
