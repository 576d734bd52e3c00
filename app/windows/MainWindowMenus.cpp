#include "app/Settings.h"
#include "app/windows/FoldingSide.h"
#include "app/windows/Icons.h"
#include "app/windows/LayerTable.h"
#include "app/windows/ListsPane.h"
#include "app/windows/MainWindow.h"
#include "app/windows/NumberText.h"
#include "app/windows/OutputPreview.h"
#include "app/windows/PowerBar.h"
#include "app/windows/PresetPanel.h"
#include "canvas/LWCanvasImageView.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>

const std::vector<MainWindow::Menu> &MainWindow::menus()
{
    static const std::vector<Menu> all{
        {"&File", &MainWindow::fillFileMenu},   {"&Edit", &MainWindow::fillEditMenu},
        {"&Layer", &MainWindow::fillLayerMenu}, {"&View", &MainWindow::fillViewMenu},
        {"&Help", &MainWindow::fillHelpMenu},
    };
    return all;
}

void MainWindow::addMenus()
{
    for (const Menu &menu : menus())
        menuBar()->addMenu(menu.title);
}

void MainWindow::fillMenus()
{
    const QList<QAction *> titles = menuBar()->actions();
    for (std::size_t i = 0; i < menus().size(); ++i)
        (this->*menus()[i].fill)(*titles[static_cast<qsizetype>(i)]->menu());
}

void MainWindow::fillFileMenu(QMenu &menu)
{
    addTold(menu, {"&New", "file-earmark-plus"}, QKeySequence::New, [this] { m_document.newProject(); });
    addTold(menu, {"&Open...", "folder2-open"}, QKeySequence::Open, [this] {
        m_interface.prepareOpenPanel("Open project");
        m_document.openProject();
    });
    QMenu *recent = menu.addMenu("Open &Recent");
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { listRecentFiles(*recent); });
    menu.addSeparator();
    addTold(menu, {"&Save", "save"}, QKeySequence::Save, [this] {
        m_interface.prepareSavePanel("Save project", ProjectFile::extension);
        m_document.save();
    });
    addTold(menu, {"Save &As..."}, Qt::CTRL | Qt::SHIFT | Qt::Key_S, [this] {
        m_interface.prepareSavePanel("Save project", ProjectFile::extension);
        m_document.saveProject();
    });
    QMenu *recover = menu.addMenu("Re&cover");
    connect(recover, &QMenu::aboutToShow, this, [this, recover] { listUnsavedWork(*recover); });
    menu.addSeparator();
    addTold(menu, {"&Export PNG..."}, Qt::CTRL | Qt::Key_E, [this] {
        m_interface.prepareSavePanel("Export PNG", "png");
        m_document.saveAction();
    });
    addTold(menu, {"Export &PSD..."}, Qt::CTRL | Qt::SHIFT | Qt::Key_E, [this] {
        m_interface.prepareSavePanel("Export PSD", "psd", WindowInterface::Appended::Always);
        m_document.savePSD();
    });
    menu.addSeparator();
    menu.addAction("&Quit", Qt::CTRL | Qt::Key_Q, this, &MainWindow::close);
}

void MainWindow::fillEditMenu(QMenu &menu)
{
    QAction *undo = m_document.undoStack().createUndoAction(this, "&Undo");
    undo->setShortcut(QKeySequence::Undo);
    undo->setIcon(Icons::icon("arrow-counterclockwise"));
    menu.addAction(undo);
    QAction *redo = m_document.undoStack().createRedoAction(this, "&Redo");
    redo->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    redo->setIcon(Icons::icon("arrow-clockwise"));
    menu.addAction(redo);
    menu.addSeparator();
    addTold(menu, {"Cu&t", "scissors"}, QKeySequence::Cut, [this] { m_document.cutToPasteboard(); });
    addTold(menu, {"&Copy", "files"}, QKeySequence::Copy, [this] { m_document.copyToPasteboard(); });
    addTold(menu, {"&Paste", "clipboard"}, QKeySequence::Paste, [this] { m_document.pasteFromPasteboard(); });
    addTold(menu, {"&Rename", "pencil"}, Qt::Key_F2, [this] { rename(); });
    QAction *duplicate = addTold(menu, {"D&uplicate Layer"}, Qt::CTRL | Qt::Key_D, [this] { m_document.copyLayer(); });
    QAction *remove = addTold(menu, {"D&elete", "trash"}, QKeySequence::Delete, [this] { removeSelected(); });
    addTold(menu, {"Select &All"}, QKeySequence::SelectAll, [this] { tableInUse().selectAll(); });
    m_layerTable->addActions({duplicate, remove});
}

LayerTable &MainWindow::tableInUse()
{
    LayerTable &presets = m_presetPanel->table();
    return presets.hasFocus() ? presets : *m_layerTable;
}

void MainWindow::rename()
{
    LayerTable &table = tableInUse();
    if (&table == m_layerTable) {
        m_listsSide->open();
        m_lists->showLayers();
    }
    table.edit(table.currentIndex());
}

void MainWindow::removeSelected()
{
    if (&tableInUse() == m_layerTable)
        m_document.remove();
    else
        m_presetPanel->removeShown();
}

void MainWindow::fillLayerMenu(QMenu &menu)
{
    addTold(menu, {"Add &Screen", "grid"}, Qt::CTRL | Qt::SHIFT | Qt::Key_N, [this] { m_document.AddScreen(); });
    addTold(menu, {"Add &Image...", "image"}, Qt::CTRL | Qt::SHIFT | Qt::Key_I, [this] {
        m_interface.prepareOpenPanel("Add image");
        m_document.AddImage();
    });
    menu.addSeparator();
    addTold(menu, {"&Hide or Show", "eye"}, Qt::Key_H, [this] { m_document.toggleVisibility(); });
    m_layerTable->addAction(addTold(menu, {"Hide &Others"}, {}, [this] { m_document.hideOthers(); }));
    menu.addSeparator();
    addPlaces(menu);
    menu.addSeparator();
    menu.addAction(Icons::icon("search"), "Search &Presets", Qt::CTRL | Qt::Key_L, this, [this] {
        m_listsSide->open();
        m_lists->showPresets();
        m_presetPanel->search();
    });
}

void MainWindow::addPlaces(QMenu &menu)
{
    m_layerTable->addAction(addTold(menu, {"&Centre in Output"}, {}, [this] { m_document.centreInOutput(); }));
    QMenu *corners = menu.addMenu("&Fit to Output Corner");
    const auto addCorner = [this, corners](const QString &title, Qt::Corner corner) {
        addTold(*corners, {title}, {}, [this, corner] { m_document.fitToOutputCorner(corner); });
    };
    addCorner("Top &Left", Qt::TopLeftCorner);
    addCorner("Top &Right", Qt::TopRightCorner);
    addCorner("Bottom L&eft", Qt::BottomLeftCorner);
    addCorner("Bottom R&ight", Qt::BottomRightCorner);
    m_layerTable->addAction(corners->menuAction());
}

void MainWindow::fillViewMenu(QMenu &menu)
{
    using Tool = LWCanvasImageView::Tool;
    menu.addAction(Icons::icon("grid-3x3"), "P&anels Tool", Qt::Key_P, this,
                   [this] { m_canvas->setTool(Tool::Panels); });
    menu.addAction(Icons::icon("arrows-move"), "A&rrange Tool", Qt::Key_V, this,
                   [this] { m_canvas->setTool(Tool::Arrange); });
    menu.addSeparator();
    menu.addAction("&Lists", Qt::Key_F9, m_listsSide, &FoldingSide::toggle);
    menu.addAction("&Inspector", Qt::Key_F10, m_inspectorSide, &FoldingSide::toggle);
    menu.addSeparator();
    menu.addAction(Icons::icon("zoom-in"), "&Zoom In", QKeySequence::ZoomIn, m_canvas, &LWCanvasImageView::zoomIn);
    menu.addAction(Icons::icon("zoom-out"), "Zoom &Out", QKeySequence::ZoomOut, m_canvas, &LWCanvasImageView::zoomOut);
    menu.addAction("&100 %", Qt::CTRL | Qt::Key_1, m_canvas, &LWCanvasImageView::zoomTo100);
    menu.addAction("&Fit", Qt::CTRL | Qt::Key_0, m_canvas, &LWCanvasImageView::zoomToFit);
    menu.addSeparator();
    addTold(menu, {"Output &Preview", "display"}, {}, [this] { m_document.openPvw(); });
    QMenu *displays = menu.addMenu("Preview on &Display");
    connect(displays, &QMenu::aboutToShow, this, [this, displays] { listDisplays(*displays); });
    addTold(menu, {"Fi&ll the Display"}, Qt::Key_F11, [this] { showPreviewOnDisplay(); });
}

void MainWindow::fillHelpMenu(QMenu &menu)
{
    addTold(menu, {"&First Steps", "question-circle"}, QKeySequence::HelpContents, [this] { m_document.openHelp(); });
    addTold(menu, {"Help in the &Web"}, {}, [this] { m_document.orvsoftwarehelpurl(); });
    addTold(menu, {"Look for a New &Version"}, {}, [this] { m_document.webupdatecheck(); });
    menu.addSeparator();
    addTold(menu, {"&About Wallwright"}, {}, [this] { m_document.openAbout(); });
}

void MainWindow::listDisplays(QMenu &menu)
{
    menu.clear();
    int number = 0;
    for (QScreen *display : QGuiApplication::screens()) {
        const QSize size = (QSizeF(display->size()) * display->devicePixelRatio()).toSize();
        const QString name =
            QString("&%1: %2, %3").arg(++number).arg(display->name().replace('&', "&&"), NumberText::size(size));
        QAction *action = menu.addAction(name, this, [this, display = QPointer(display)] {
            if (!display)
                return; // it has gone while the menu was open
            m_display = display;
            if (display != outputPreview().display())
                outputPreview().showOn(*display);
            else
                showPreviewOnDisplay();
        });
        action->setCheckable(true);
        action->setChecked(m_preview && m_preview->display() == display);
    }
}

OutputPreview &MainWindow::outputPreview()
{
    if (m_preview)
        return *m_preview;
    m_preview = new OutputPreview(this);
    m_preview->showOutput(m_document.img());
    connect(&m_interface, &WindowInterface::outputComposed, m_preview, &OutputPreview::showOutput);
    connect(&m_interface, &WindowInterface::outputReleased, m_preview, &OutputPreview::releaseOutput);
    connect(m_preview, &OutputPreview::displayDidChange, m_powerBar, &PowerBar::showFailure);
    return *m_preview;
}

/// On the display that was chosen last, else on the first that does not show this window; and back again.
void MainWindow::showPreviewOnDisplay()
{
    if (m_preview && (m_preview->display() || m_preview->isWaiting()))
        return m_preview->leaveDisplay();
    QScreen *display = m_display;
    for (QScreen *other : QGuiApplication::screens()) {
        if (!display && other != screen())
            display = other;
    }
    outputPreview().showOn(display ? *display : *screen());
}

QAction *MainWindow::addTold(QMenu &menu, const Entry &entry, const QKeySequence &keys,
                             const std::function<void()> &act)
{
    return menu.addAction(entry.icon.isEmpty() ? QIcon() : Icons::icon(entry.icon), entry.title, keys, this,
                          [this, act] {
                              m_powerBar->clearMessage();
                              act();
                          });
}

void MainWindow::listRecentFiles(QMenu &menu)
{
    menu.clear();
    for (const QString &path : Settings::recentFiles()) {
        // An ampersand in a title is a key's mark; twice it is the sign itself.
        QAction *action = menu.addAction(QFileInfo(path).fileName().replace('&', "&&"), this, [this, path] {
            m_powerBar->clearMessage();
            m_document.openProjectPre(path);
            if (!QFileInfo::exists(path))
                Settings::forgetRecentFile(path);
        });
        action->setToolTip(QDir::toNativeSeparators(path));
    }
    menu.setToolTipsVisible(true);
    if (menu.isEmpty())
        menu.addAction("No recent projects")->setEnabled(false);
}

void MainWindow::listUnsavedWork(QMenu &menu)
{
    menu.clear();
    const std::vector<FoundCopy> copies = m_document.recoverable();
    for (const FoundCopy &copy : copies) {
        menu.addAction(titleOf(copy).replace('&', "&&"), this, [this, copy] {
            m_powerBar->clearMessage();
            m_document.recover(copy);
        });
    }
    if (copies.empty()) {
        menu.addAction("No unsaved work")->setEnabled(false);
        return;
    }
    menu.addSeparator();
    menu.addAction("Forget All...", this, [this, copies] { forget(copies); });
}

void MainWindow::forget(const std::vector<FoundCopy> &copies)
{
    if (!m_interface.confirm("Forget all unsaved work of ended programs?", "This cannot be undone.", "Forget"))
        return;
    for (const FoundCopy &copy : copies)
        m_document.discardRecoverable(copy);
}
