#pragma once

#include "app/LWAppDelegate.h"
#include "tests/app/RandomValues.h"
#include "tests/app/ScriptedPerson.h"
#include "tests/screen/TestHost.h"
#include "tests/wiring/Chance.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QMimeData>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <vector>

/// A person who does anything, in any order. Timers are the one thing that a seed does not repeat: which of them are
/// due depends on the machine.
class RandomWalk
{
public:
    explicit RandomWalk(unsigned seed);

    /// One action by chance, and what has to be true after each.
    void step();
    /// Undoes up to `most` steps and does them again, comparing all the way.
    void walkBackAndForth(int most);
    /// Composes, and compares the output with one of walls that are drawn and composed anew.
    void expectOutputAsComposedAnew();
    /// Ends the program; what has not been saved is there afterwards.
    void end();
    /// What was done last, for the report of a failure.
    QString lastActions() const { return m_done.join("\n  "); }
    int mostSteps() const { return m_mostSteps; }

private:
    struct Action
    {
        const char *name;
        int weight;
        void (RandomWalk::*run)();
    };
    static const std::vector<Action> actions;

    LayerList &layers() { return m_document->arraycontroller(); }
    LayerList &presets() { return m_document->presetarraycontroller(); }
    LayerList &anyList() { return m_values.oneIn(2) ? layers() : presets(); }
    LayerPointer selected() { return layers().selectedLayer(); }
    QUndoStack &stack() { return m_document->undoStack(); }
    QString pathOf(const QString &name) const { return m_folder.filePath(name); }
    Project project() const { return m_document->project(); }

    void editProperty();
    void typeOn();
    void editInTable();
    void editPreset();
    void lockAspect();
    void togglePanel();
    void moveLayer();
    void choosePattern() { m_document->choosePattern(m_values.number(-1, 9)); }
    void editOutputSize();
    void addScreen();
    void addImage();
    void addChart();
    void chooseChart();
    void remove() { m_document->remove(); }
    void removePreset() { m_document->removePreset(); }
    void duplicate();
    void select();
    void selectSeveral();
    void beginDrag();
    void drop();
    void undo();
    void redo();
    void endTyping() { m_document->endTyping(); }
    void update() { m_document->update(); }
    void compose();
    void runEvents() { QCoreApplication::processEvents(); }
    void saveProject();
    void save();
    void openProject();
    void savePresets();
    void openPresets();
    void exportPng();
    void exportPsd();
    void recover();

    void addOrRemoveProcessor();
    void changeProcessor();
    void editWiring();
    void layCable();
    void editCables();
    void takeAutomaticCables();
    void keepPorts();
    void feedPanels();

    Wiring &wiring() { return m_document->wiring(); }
    Chance chance();
    /// Mostly one that a cable has.
    PortName randomPort();
    std::vector<qsizetype> randomRows(const LayerList &list);
    /// The document and its presets, byte by byte.
    QByteArray archive() const;
    void expectSame(const QByteArray &one, const QByteArray &other);
    void expectArchiveOfHere();
    void expectSavedUnless(bool wasCancelled, qsizetype alertsBefore);
    void expectUnchangedOrOneStep(const QByteArray &before, int indexBefore, qsizetype alertsBefore);
    void checkList(const LayerList &list);
    void checkHistory();

    RandomValues m_values;
    ScriptedPerson m_person;
    QTemporaryDir m_folder;
    TestHost m_host;
    std::unique_ptr<LWAppDelegate> m_document = std::make_unique<LWAppDelegate>(m_person, pathOf("recovery"));
    std::unique_ptr<QMimeData> m_drag;
    QStringList m_done;
    /// What the document was after each step of the history, from before the oldest that is kept.
    std::vector<QByteArray> m_archives;
    const QUndoCommand *m_lastStep = nullptr;
    int m_index = 0;
    int m_screenNumber = 0;
    int m_mostSteps = 0;
};
