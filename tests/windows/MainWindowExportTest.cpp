#include "still/LWStill.h"
#include "tests/app/LayeredFile.h"
#include "tests/windows/WindowFixture.h"
#include "windows/LayerTable.h"
#include "windows/PowerBar.h"
#include "windows/ProgressDialog.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

namespace {
/// Exports of layered files, begun in the window.
class MainWindowExport : public WindowFixture
{
protected:
    void exportPsd(const std::vector<Answer> &answers)
    {
        press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier, answers);
    }

    QString told() { return window.findChild<QLabel *>(PowerBar::messageName)->accessibleName(); }

    QByteArray contents(const QString &name)
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void writeFile(const QString &name, const QByteArray &bytes)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    /// Seconds of work on a document of 4096 x 4096 whose layers all show one picture.
    void makeLongWork()
    {
        LWAppDelegate &document = window.document();
        document.setOutputWidth(4096);
        document.setOutputHeight(4096);
        QImage picture(4096, 4096, QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < picture.height(); ++y) {
            auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
            for (int x = 0; x < picture.width(); ++x)
                row[x] = qRgb(x / 16, y, x / 16 + y / 16);
        }
        for (int i = 0; i < 150; ++i)
            document.arraycontroller().insertObjectAtArrangedObjectIndex(LWStill::initWithimage(document, picture), 0);
    }
};
} // namespace

TEST_F(MainWindowExport, TheMenuOffersItBelowThePicture)
{
    QStringList entries;
    for (const QAction *action : window.menuBar()->actions().constFirst()->menu()->actions())
        entries.append(action->text().remove('&') + ' ' + action->shortcut().toString());
    EXPECT_EQ(entries.indexOf("Export PSD... Ctrl+Shift+E"), entries.indexOf("Export PNG... Ctrl+E") + 1);
}

TEST_F(MainWindowExport, WritesTheLayersAndSaysSo)
{
    exportPsd({entering(path("wall"))});

    const LayeredFile file = LayeredFile::read(contents("wall.psd"));
    EXPECT_EQ(file.size, QSize(1920, 1080));
    EXPECT_EQ(file.names(), QStringList{"Layer 0"});
    EXPECT_TRUE(shows("Exported wall.psd"));
    EXPECT_EQ(title(), "Untitled — Wallwright");
}

TEST_F(MainWindowExport, TheProposedNameHasNoExtensionSinceOneIsAlwaysAppended)
{
    pressControl(Qt::Key_O, {entering(greenProject("show.Orv"))});
    exportPsd({[](QWidget &panel) {
        const auto *field = panel.findChild<QLineEdit *>("fileNameEdit");
        ASSERT_NE(field, nullptr);
        EXPECT_EQ(field->text(), "show");
        EXPECT_EQ(panel.windowTitle(), "Export PSD");
        click(panel, "Save");
    }});

    EXPECT_FALSE(contents("show.psd").isEmpty());

    exportPsd({entering(path("a.psd"))});
    EXPECT_TRUE(shows("Exported a.psd.psd"));
    EXPECT_FALSE(contents("a.psd.psd").isEmpty());
}

TEST_F(MainWindowExport, TheFinalNameIsWhatIsAskedAbout)
{
    writeFile("wall.psd", "precious");
    writeFile("wall", "another one");

    exportPsd({entering(path("wall")), readingAndPressing("Cancel"), pressing("Cancel")});
    EXPECT_EQ(said, "\"wall.psd\" exists already.\nReplacing it cannot be undone.");
    EXPECT_EQ(contents("wall.psd"), "precious");

    exportPsd({entering(path("wall")), readingAndPressing("Replace")});
    EXPECT_TRUE(contents("wall.psd").startsWith("8BPS"));
    EXPECT_EQ(contents("wall"), "another one");

    exportPsd({entering(path("wall.psd"))}); // that is wall.psd.psd, and new
    EXPECT_TRUE(contents("wall.psd.psd").startsWith("8BPS"));
}

TEST_F(MainWindowExport, AFailureIsToldInTheStatusLine)
{
    ASSERT_TRUE(QDir().mkdir(path("wall.psd")));
    exportPsd({entering(path("wall"))});
    EXPECT_EQ(told(),
              "Cannot export " + path("wall.psd") + ": cannot be written: this is a folder or a device, not a file");

    exportPsd({pressing("Cancel")});
    EXPECT_EQ(told(), QString());
}

TEST_F(MainWindowExport, AnImpossibleSizeOpensNoPanel)
{
    window.document().setOutputHeight(30'001);
    exportPsd({});
    EXPECT_TRUE(told().startsWith("Cannot export an output of 1920 x 30001 pixels: ")) << qPrintable(told());
}

TEST_F(MainWindowExport, ALayerWithoutNameGetsOneInTheTable)
{
    window.document().arraycontroller().selectedLayer()->setLabel({});
    exportPsd({entering(path("wall"))});
    EXPECT_EQ(table().currentIndex().data().toString(), "Untitled 1");
}

TEST_F(MainWindowExport, LongWorkCanBeCancelledAndKeepsTheWindowFromEdits)
{
    makeLongWork();
    const qsizetype selection = window.document().arraycontroller().selectionIndex();
    exportPsd({entering(path("wall")), [&](QWidget &dialog) {
                   ASSERT_NE(qobject_cast<ProgressDialog *>(&dialog), nullptr);
                   const QPoint lowerRow = table().mapTo(&window, QPoint(20, 120));
                   QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, lowerRow);
                   QTest::keyClick(window.windowHandle(), Qt::Key_Q, Qt::ControlModifier);
                   click(dialog, "Cancel");
               }});

    EXPECT_EQ(told(), "Cancelled the export of wall.psd");
    EXPECT_FALSE(QFile::exists(path("wall.psd")));
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.document().arraycontroller().selectionIndex(), selection);
    EXPECT_EQ(window.findChild<ProgressDialog *>(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}
