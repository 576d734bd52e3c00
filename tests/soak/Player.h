#pragma once

#include "tests/app/RandomValues.h"
#include "tests/soak/Bystander.h"
#include "windows/MainWindow.h"

#include <QEvent>
#include <QPoint>
#include <QString>
#include <QTemporaryDir>

#include <span>
#include <vector>

class LayerTable;
class LWCanvasImageView;

/// A person who does anything in the program's window. The acts follow from the seed; how far timers have come between
/// them depends on the machine.
class Player
{
public:
    explicit Player(unsigned seed);

    /// What comes next, as a name.
    const char *choose();
    /// Does it. What is grown beyond what a long walk can afford is left for a small show.
    void play();
    /// Walks back and forth through the history, ends whatever is open and begins with a new show without a history.
    void rest();

    /// `promise` is broken where that does not hold: says so and aborts.
    static void require(bool holds, const char *promise);

private:
    struct Act
    {
        const char *name;
        int weight;
        void (Player::*run)();
    };
    static std::span<const Act> acts();

    LWAppDelegate &document() { return m_window.document(); }
    LayerList &layers() { return document().arraycontroller(); }
    LayerList &anyList() { return m_values.oneIn(3) ? document().presetarraycontroller() : layers(); }
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString anyPath() { return path(m_values.oneOf<QString>({m_names.begin(), m_names.end()})); }
    void fillFolder();
    bool isLarge();
    void requireWhole(const LayerList &list);
    void walkBackAndForth();
    void endWithLostStep(const QByteArray &then, const QByteArray &now);
    void closeAll();

    // HandActs.cpp
    QWidget &surface();
    template <class Widget>
    Widget *anyOf();
    QPoint placeIn(const QWidget &widget);
    Qt::KeyboardModifiers modifiers();
    static void sendMouse(QWidget &widget, QEvent::Type type, const QPoint &place, Qt::MouseButton button,
                          Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers);
    void drag(QWidget &widget, Qt::MouseButton button);
    void clickCanvas();
    void dragCanvas();
    void abandonDrag();
    void turnWheel();
    void dragPart();
    void clickButton();
    void clickTable();
    void typeIntoField();
    void chooseInBox();
    void pressKey();
    void chooseInMenu();
    void resizeWindow();
    void wait();
    void runEvents();

    // ShowActs.cpp
    void editProperty();
    void editOutput();
    void togglePanel();
    void dragRows();
    void selectRows();
    void addProcessor();
    void changeProcessor();
    void hangOnProcessor();
    void addWall();
    void addPreset();
    void undo() { document().undoStack().undo(); }
    void redo() { document().undoStack().redo(); }
    void chooseSupply();

    // FileActs.cpp
    void open();
    void save();
    void dropFiles();
    void workInOtherProgram();
    void openPicture();

    RandomValues m_values;
    QTemporaryDir m_folder;
    QStringList m_names; ///< of files, there or not
    Bystander m_bystander;
    MainWindow m_window;
    LWCanvasImageView *m_canvas = nullptr;
    const Act *m_act = nullptr;
};
