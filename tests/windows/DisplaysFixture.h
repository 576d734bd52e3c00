#pragma once

#include "canvas/LWCanvasImageView.h"
#include "charts/Chart.h"
#include "live/WallWindow.h"
#include "tests/windows/WindowFixture.h"
#include "windows/LayerTable.h"
#include "windows/OutputView.h"
#include "windows/Theme.h"
#include "windows/charts/ChartChoice.h"
#include "windows/displays/DisplaysPage.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QTime>
#include <QToolButton>
#include <QWindow>

/// The program where three displays are connected, see three-displays.json: the window's, one of 1280 x 1024, and one
/// as large as the output.
class DisplaysTest : public WindowFixture
{
protected:
    DisplaysTest() { window.makeLateParts(); }

    static QScreen &display(qsizetype number) { return *QGuiApplication::screens().at(number); }
    void toggle(const QString &title) { choose({"View", "Output on display", title}); }
    /// The window on a display; null: it shows no output.
    WallWindow *on(qsizetype number)
    {
        for (WallWindow *shown : window.findChildren<WallWindow *>()) {
            if (shown->isVisible() && shown->screen() == &display(number))
                return shown;
        }
        return nullptr;
    }
    QPoint offsetOn(qsizetype number) { return row(number).region.offset; }
    LiveOutput::Row row(qsizetype number)
    {
        return window.findChild<DisplaysModel *>() ? window.findChild<DisplaysModel *>()->row(static_cast<int>(number))
                                                   : LiveOutput::Row();
    }
    QToolButton &tool(const QString &text)
    {
        for (QToolButton *button : window.findChildren<QToolButton *>()) {
            if (button->text() == text)
                return *button;
        }
        ADD_FAILURE() << qPrintable(text);
        return *window.findChild<QToolButton *>();
    }
    /// What stands on the wall, in the main window.
    QString words()
    {
        QStringList words;
        for (const QLabel *label : window.findChildren<QLabel *>("wallWords")) {
            if (label->isVisible())
                words.append(label->text());
        }
        return words.join(" · ");
    }
    static void press(QWidget &there, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&there, key, modifiers);
    }
    using WindowFixture::press;
    /// The pointer is there on the canvas, in pixels of the output.
    void pointTo(const std::optional<QPoint> &pixel)
    {
        CanvasReadOut readOut;
        readOut.pixel = readOut.place = pixel;
        emit canvas().readOutDidChange(readOut);
    }
    DisplaysPage &pane() { return *window.findChild<DisplaysPage *>(); }
    /// A choice of the pane.
    void chooseIn(const QString &name, const QString &text)
    {
        for (QComboBox *combo : pane().findChildren<QComboBox *>()) {
            if (combo->accessibleName() == name)
                combo->setCurrentText(text);
        }
    }
    /// In the menu of the pane, which has small pictures.
    void chooseChart(const QString &group, const QString &title)
    {
        QToolButton &button = *pane().findChild<ChartChoice *>()->findChild<QToolButton *>();
        emit button.menu()->aboutToShow();
        for (QAction *groups : button.menu()->actions()) {
            for (QAction *action : groups->text() == group ? groups->menu()->actions() : QList<QAction *>()) {
                if (action->text() == title)
                    return action->trigger();
            }
        }
        ADD_FAILURE() << qPrintable(title);
    }
    static QImage picture(QWidget &there) { return there.grab().toImage(); }

    const QString stage = "2: Stage, 1,280 × 1,024";
    const QString wall = "3: Wall, 1,920 × 1,080";
};
