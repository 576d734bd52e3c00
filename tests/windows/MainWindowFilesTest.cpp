#include "canvas/LWCanvasImageView.h"
#include "tests/base/FullDisk.h"
#include "tests/windows/WindowFixture.h"
#include "windows/LayerTable.h"
#include "windows/PowerBar.h"
#include "windows/inspector/Inspector.h"
#include "windows/inspector/PicturePreview.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScreen>
#include <QTest>
#include <QTreeView>
#include <QUrl>
#include <QtMath>

namespace {
void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

class MainWindowFilesTest : public WindowFixture
{
protected:
    void expectFirstDocument(MainWindow &shown)
    {
        EXPECT_EQ(titleOf(shown), "Untitled — Wallwright");
        EXPECT_EQ(shown.document().OutputWidth(), 1920);
        EXPECT_EQ(shown.document().arraycontroller().rowCount(), 1);
        EXPECT_EQ(shown.document().arraycontroller().selectedLayer()->label(), "Layer 0");
    }
    void drop(const QString &file, const QPointF &place)
    {
        QMimeData dragged;
        dragged.setUrls({QUrl::fromLocalFile(file)});
        QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window, &enter);
        QDropEvent event(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window, &event);
    }
};

TEST_F(MainWindowFilesTest, AnOpenedProjectIsShown)
{
    const QString file = greenProject("show.Orv");
    pressControl(Qt::Key_O, {entering(file)});

    EXPECT_EQ(title(), "show.Orv — Wallwright");
    EXPECT_EQ(table().model()->rowCount(), 1);
    EXPECT_EQ(table().currentIndex().data().toString(), "Green");
    EXPECT_TRUE(shows("400 × 300 px"));
    EXPECT_TRUE(shows("Total Power: 1.00Amp"));
    const QRect place = placeOfOutput();
    EXPECT_EQ(seen().pixelColor(place.topLeft() + QPoint(199, 99)), QColor(0, 255, 0));
    EXPECT_EQ(seen().pixelColor(place.topLeft() + QPoint(202, 99)), QColor(0, 0, 0)); // beside the outline
}

TEST_F(MainWindowFilesTest, ACancelledPanelChangesNothing)
{
    pressControl(Qt::Key_O, {pressing("Cancel")});
    pressControl(Qt::Key_S, {pressing("Cancel")});
    pressControl(Qt::Key_E, {pressing("Cancel")});
    expectFirstDocument(window);
}

TEST_F(MainWindowFilesTest, ADamagedFileIsAnAlertAndChangesNothing)
{
    const QString file = greenProject("broken.Orv");
    writeFile(file, bytesOf(file).left(200));
    pressControl(Qt::Key_O, {entering(file), readingAndPressing("OK")});

    EXPECT_TRUE(said.startsWith("Cannot open " + file + ": ")) << qPrintable(said);
    EXPECT_TRUE(said.endsWith("\nThe document is unchanged.")) << qPrintable(said);
    expectFirstDocument(window);
}

TEST_F(MainWindowFilesTest, AFileHandedOverBeforeTheLaunchIsOpened)
{
    MainWindow second;
    EXPECT_TRUE(second.applicationOpenFile(greenProject("show.Orv")));
    second.start();
    EXPECT_EQ(titleOf(second), "show.Orv — Wallwright");
    EXPECT_EQ(second.document().OutputWidth(), 400);
}

TEST_F(MainWindowFilesTest, AMissingFileAtTheLaunchIsAnAlertOverTheFirstWall)
{
    MainWindow second;
    EXPECT_TRUE(second.applicationOpenFile(path("nowhere <b>.Orv")));
    answer([&] { second.start(); }, {readingAndPressing("OK")});

    EXPECT_TRUE(said.startsWith("Cannot open " + path("nowhere <b>.Orv") + ": ")) << qPrintable(said);
    EXPECT_TRUE(second.isVisible());
    expectFirstDocument(second);
}

TEST_F(MainWindowFilesTest, ASavedProjectHasItsNameInTheTitleAndOpensAgain)
{
    pressControl(Qt::Key_S, {entering(path("wall"))});
    EXPECT_EQ(title(), "wall.Orv — Wallwright");

    pressControl(Qt::Key_O, {entering(greenProject("show.Orv"))});
    pressControl(Qt::Key_O, {entering(path("wall.Orv"))});
    EXPECT_EQ(title(), "wall.Orv — Wallwright");
    EXPECT_TRUE(shows("Total Power: 72.73Amp"));
}

TEST_F(MainWindowFilesTest, AFileIsReplacedOnlyWhenThatIsWanted)
{
    const QString file = path("wall.Orv");
    writeFile(file, "precious");
    // The name is typed without its ending; the file that it would replace counts.
    pressControl(Qt::Key_S, {entering(path("wall")), readingAndPressing("Cancel"), pressing("Cancel")});
    EXPECT_EQ(said, "\"wall.Orv\" exists already.\nReplacing it cannot be undone.");
    EXPECT_EQ(bytesOf(file), "precious");
    expectFirstDocument(window);

    pressControl(Qt::Key_S, {entering(path("wall")), readingAndPressing("Replace")});
    EXPECT_TRUE(bytesOf(file).startsWith("bplist00"));
}

TEST_F(MainWindowFilesTest, AProjectThatCannotBeSavedIsAnAlert)
{
    ASSERT_TRUE(QDir().mkdir(path("wall.Orv")));
    pressControl(Qt::Key_S, {entering(path("wall")), readingAndPressing("OK")});
    EXPECT_TRUE(said.startsWith("Cannot save " + path("wall.Orv") + ": ")) << qPrintable(said);
    expectFirstDocument(window);
}

TEST_F(MainWindowFilesTest, AFullDiskIsAnAlertAndSparesTheFile)
{
    pressControl(Qt::Key_S, {entering(path("wall"))});
    const QByteArray saved = bytesOf(path("wall.Orv"));
    window.document().AddScreen();
    {
        const FullDisk disk(100);
        pressControl(Qt::Key_S, {readingAndPressing("OK")});
    }
    EXPECT_TRUE(said.startsWith("Cannot save " + path("wall.Orv") + ": ")) << qPrintable(said);
    EXPECT_TRUE(said.endsWith("\nThe document is not saved.")) << qPrintable(said);
    EXPECT_EQ(bytesOf(path("wall.Orv")), saved);
    EXPECT_TRUE(window.isWindowModified());
}

TEST_F(MainWindowFilesTest, ADamagedFileThatIsDroppedIsAnAlertAndChangesNothing)
{
    writeFile(path("show.Orv"), "bplist00");
    answer([&] { drop(path("show.Orv"), QPointF(700, 400)); }, {readingAndPressing("OK")});
    EXPECT_TRUE(said.startsWith("Cannot open " + path("show.Orv") + ": ")) << qPrintable(said);
    expectFirstDocument(window);
}

TEST_F(MainWindowFilesTest, APictureHasItsMiddleAtThePixelWhereItIsDropped)
{
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::green);
    ASSERT_TRUE(picture.save(path("plate.png")));
    canvas().setZoom(200);
    const QPoint place = canvas().rect().center() + QPoint(30, -20);
    const QPointF travelled = (place - canvas().frame().topLeft()) * canvas().devicePixelRatioF() / 2;
    drop(path("plate.png"), canvas().mapTo(&window, place));
    const LayerPointer dropped = window.document().arraycontroller().selectedLayer();
    EXPECT_EQ(dropped->xpoint(), qFloor(travelled.x()) - 10);
    EXPECT_EQ(dropped->ypoint(), qFloor(travelled.y()) - 5);
}

TEST_F(MainWindowFilesTest, AnExportedPictureIsTheOutputPixelByPixel)
{
    pressControl(Qt::Key_E, {entering(path("wall.png"))});

    const QImage written(path("wall.png"));
    ASSERT_EQ(written.size(), QSize(1920, 1080));
    EXPECT_EQ(written.convertToFormat(QImage::Format_ARGB32_Premultiplied), window.document().offscreenRep());
    EXPECT_EQ(title(), "Untitled — Wallwright");
}

TEST_F(MainWindowFilesTest, TheExportHasItsKeyInFieldsToo)
{
    int fields = 0;
    for (QLineEdit *field : inspector().findChildren<QLineEdit *>()) {
        if (!field->isVisible() || !field->isEnabled() || fields == 6)
            continue;
        ++fields;
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setFocus();
        answer([] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_E, Qt::ControlModifier); },
               {pressing("Cancel")});
    }
    EXPECT_EQ(fields, 6);
}

TEST_F(MainWindowFilesTest, AFailedExportIsToldUntilTheNextAttempt)
{
    resizeTo({2560, 1440});
    auto *told = window.findChild<QLabel *>(PowerBar::messageName);
    ASSERT_TRUE(QDir().mkdir(path("wall.png")));
    pressControl(Qt::Key_E, {entering(path("wall"))});
    EXPECT_TRUE(told->text().startsWith("Cannot export " + path("wall.png") + ": ")) << qPrintable(told->text());
    EXPECT_EQ(told->accessibleName(), told->text());

    resizeTo({700, 600});
    EXPECT_LT(told->width(), told->sizeHint().width()); // it ends in an ellipsis

    const QColor warning = told->palette().color(QPalette::WindowText);
    pressControl(Qt::Key_E, {entering(path("other.png"))});
    EXPECT_EQ(told->text(), "Exported other.png");
    EXPECT_EQ(told->accessibleName(), "Exported other.png");
    EXPECT_NE(told->palette().color(QPalette::WindowText), warning);
}

TEST_F(MainWindowFilesTest, TheDocumentNamesWhatIsExportedFromIt)
{
    pressControl(Qt::Key_O, {entering(greenProject("show.Orv"))});
    pressControl(Qt::Key_E, {[](QWidget &panel) {
                     const auto *field = panel.findChild<QLineEdit *>("fileNameEdit");
                     ASSERT_NE(field, nullptr);
                     EXPECT_EQ(field->text(), "show.png");
                     EXPECT_EQ(panel.windowTitle(), "Export PNG");
                     click(panel, "Cancel");
                 }});
}

TEST_F(MainWindowFilesTest, FilePanelsOfferFiltersAndAllFilesFirst)
{
    const auto filters = [](const QStringList &expected) {
        return [expected](QWidget &panel) {
            const auto &files = dynamic_cast<QFileDialog &>(panel);
            EXPECT_EQ(files.nameFilters().first(), "All files (*)");
            EXPECT_EQ(files.selectedNameFilter(), "All files (*)");
            EXPECT_EQ(files.nameFilters().mid(1), expected);
            const QHeaderView &columns = *panel.findChild<QTreeView *>("treeView")->header();
            EXPECT_GT(columns.sectionSize(0), 200);
            panel.close();
        };
    };
    pressControl(Qt::Key_O, {filters({"Projects (*.Orv *.orv *.json)"})});
    pressControl(Qt::Key_E, {filters({"png files (*.png)"})});
}

TEST_F(MainWindowFilesTest, FilePanelsTakeNoMoreThanTheScreen)
{
    const QSize room = window.screen()->availableSize();
    ASSERT_LT(room.width(), 880);
    const auto measure = [room](QWidget &panel) {
        EXPECT_LE(panel.frameGeometry().width(), room.width());
        EXPECT_LE(panel.frameGeometry().height(), room.height());
        panel.close();
    };
    pressControl(Qt::Key_O, {measure});
    press(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier, {measure});
}

TEST_F(MainWindowFilesTest, ThePanelForPicturesShowsThemInSmall)
{
    QImage picture(640, 320, QImage::Format_RGB32);
    picture.fill(Qt::green);
    ASSERT_TRUE(picture.save(path("plate.png")));
    press(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier, {[this](QWidget &panel) {
              auto *preview = panel.findChild<PicturePreview *>();
              ASSERT_NE(preview, nullptr);
              emit dynamic_cast<QFileDialog &>(panel).currentChanged(path("plate.png"));
              EXPECT_EQ(preview->pixmap().deviceIndependentSize(), QSizeF(200, 100));
              EXPECT_EQ(preview->pixmap().toImage().pixelColor(100, 50), QColor(Qt::green));
              emit dynamic_cast<QFileDialog &>(panel).currentChanged(path("no such file"));
              EXPECT_TRUE(preview->pixmap().isNull());
              panel.close();
          }});
}

TEST_F(MainWindowFilesTest, APictureThatIsTooLargeForAPreviewSaysHowLargeItIs)
{
    PicturePreview preview;
    QImage picture(8001, 8000, QImage::Format_Mono); // 64 million pixels are shown
    picture.fill(0);
    ASSERT_TRUE(picture.save(path("large.png")));
    preview.showFile(path("large.png"));
    EXPECT_EQ(preview.text(), "8,001 × 8,000 px, too large for a preview");
    EXPECT_EQ(preview.toolTip(), "8,001 × 8,000 px");
}

TEST_F(MainWindowFilesTest, APictureHasItsPreviewBeforeAnyOtherWasRead)
{
    QImageReader::setAllocationLimit(128); // MiB, as at the start
    PicturePreview preview;
    QImage picture(5900, 5900, QImage::Format_Mono);
    picture.fill(1);
    ASSERT_TRUE(picture.save(path("large.png")));
    preview.showFile(path("large.png"));
    EXPECT_EQ(preview.text(), "");
    EXPECT_EQ(preview.pixmap().deviceIndependentSize(), QSizeF(200, 200));
}
