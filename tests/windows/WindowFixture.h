#pragma once

#include "windows/MainWindow.h"

#include <QImage>
#include <QTemporaryDir>
#include <QWindow>

#include <functional>
#include <gtest/gtest.h>
#include <vector>

class Inspector;
class LayerTable;
class LWCanvasImageView;

/// The program's window as it is after the start, on a screen that nobody sees.
class WindowFixture : public ::testing::Test
{
protected:
    /// What a person does with a dialog that has come up.
    using Answer = std::function<void(QWidget &dialog)>;

    WindowFixture();

    /// As the desktop shows it: with an asterisk where there are unsaved changes.
    static QString titleOf(const QWidget &shown) { return shown.windowHandle()->title(); }
    QString title() { return titleOf(window); }
    LayerTable &table();
    LayerTable &presetTable();
    LWCanvasImageView &canvas();
    Inspector &inspector();
    /// Clicks the button with this text, anywhere in `parent`; the test fails where there is none.
    static void click(QWidget &parent, const QString &buttonText);
    /// Whether a label of the window shows this text.
    bool shows(const QString &text);
    void resizeTo(const QSize &size);

    /// Does something that opens dialogs, and has the answers given to them one after the other. A dialog that nobody
    /// expects is closed, and the test fails; likewise where fewer come up.
    static void answer(const std::function<void()> &act, const std::vector<Answer> &answers);
    /// Answers a file panel: puts a name in and presses Enter.
    static Answer entering(const QString &name);
    static Answer pressing(const QString &buttonText);
    /// Notes what an alert or a question says, and presses a button of it.
    Answer readingAndPressing(const QString &buttonText);
    /// Presses Ctrl and this key in the window, and gives the answers to what comes up.
    void pressControl(Qt::Key key, const std::vector<Answer> &answers) { press(key, Qt::ControlModifier, answers); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers, const std::vector<Answer> &answers);

    /// Clicks through the menus, {"Layer", "Fit to output corner", "Top right"}, and gives the answers to what comes
    /// up.
    void choose(const QStringList &titles, const std::vector<Answer> &answers = {});

    QString path(const QString &name) const { return m_folder.filePath(name); }
    /// Writes a project with one green panel of 100 x 50 and 110 W at the top left of an output of 400 x 300.
    QString greenProject(const QString &name);

    /// What the output's view has on the screen, in device pixels, and where in it the output is.
    QImage seen();
    QRect placeOfOutput();

    MainWindow window;
    QString said; ///< what the last alert or question said

private:
    QTemporaryDir m_folder;
};
