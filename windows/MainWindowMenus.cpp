#include "app/Settings.h"
#include "base/NumberText.h"
#include "canvas/LWCanvasImageView.h"
#include "show/LayerPasteboard.h"
#include "still/LWStill.h"
#include "windows/FoldingSide.h"
#include "windows/Icons.h"
#include "windows/LayerTable.h"
#include "windows/ListsPane.h"
#include "windows/MainWindow.h"
#include "windows/MenuText.h"
#include "windows/OutputPreview.h"
#include "windows/PowerBar.h"
#include "windows/PresetPanel.h"
#include "windows/charts/ChartChoice.h"
#include "windows/ports/CableMenu.h"
#include "windows/tables/TablesPane.h"

#include <QActionGroup>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

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
    LayerList &layers = m_document.arraycontroller();
    connect(&layers, &LayerList::selectionIndexesDidChange, this, &MainWindow::enableActions);
    connect(&m_document.undoStack(), &QUndoStack::indexChanged, this, &MainWindow::enableActions);
    enableActions();
}

void MainWindow::fillFileMenu(QMenu &menu)
{
    addTold(menu, {"&New", "file-earmark-plus"}, QKeySequence::New, [this] { m_document.newProject(); });
    addTold(menu, {"&Open...", "folder2-open"}, QKeySequence::Open, [this] { m_document.openProject(); });
    QMenu *recent = menu.addMenu("Open &recent");
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { listRecentFiles(*recent); });
    menu.addSeparator();
    addTold(menu, {"&Save", "save"}, QKeySequence::Save, [this] { m_document.save(); });
    addTold(menu, {"Save &as..."}, Qt::CTRL | Qt::SHIFT | Qt::Key_S, [this] { m_document.saveProject(); });
    QMenu *recover = menu.addMenu("Re&cover");
    connect(recover, &QMenu::aboutToShow, this, [this, recover] { listUnsavedWork(*recover); });
    menu.addSeparator();
    addTold(menu, {"&Export PNG..."}, Qt::CTRL | Qt::Key_E, [this] { m_document.saveAction(); });
    addTold(menu, {"Export &PSD..."}, Qt::CTRL | Qt::SHIFT | Qt::Key_E, [this] { m_document.savePSD(); });
    menu.addSeparator();
    menu.addAction("&Quit", Qt::CTRL | Qt::Key_Q, this, &MainWindow::close);
}

void MainWindow::fillEditMenu(QMenu &menu)
{
    addUndo(menu);
    menu.addSeparator();
    addTold(menu, {"Cu&t", "scissors"}, QKeySequence::Cut, [this] { m_document.cutToPasteboard(); });
    QAction *copy = addTold(menu, {"&Copy", "files"}, QKeySequence::Copy, [this] { m_document.copyToPasteboard(); });
    addTold(
        menu, {"&Paste", "clipboard"}, QKeySequence::Paste, [this] { m_document.pasteFromPasteboard(); },
        LayerPasteboard::hasLayers);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &MainWindow::enableActions);
    QAction *rename = addTold(menu, {"&Rename", "pencil"}, Qt::Key_F2, [this] { this->rename(); });
    QAction *duplicate = addTold(menu, {"D&uplicate layer"}, Qt::CTRL | Qt::Key_D,
                                 [this] { addLayer([this] { m_document.copyLayer(); }); });
    QAction *remove = addTold(menu, {"D&elete", "trash"}, QKeySequence::Delete, [this] { removeSelected(); });
    addTold(menu, {"Select &all"}, QKeySequence::SelectAll, [this] { tableInUse().selectAll(); });
    m_layerTable->addActions({rename, copy, duplicate, remove});
}

void MainWindow::addUndo(QMenu &menu)
{
    const auto add = [&menu](QAction *action, const char *icon, const QKeySequence &keys) {
        action->setIcon(Icons::icon(icon));
        action->setShortcut(keys);
        menu.addAction(action);
    };
    const QUndoStack &stack = m_document.undoStack();
    add(stack.createUndoAction(&menu, "&Undo"), "arrow-counterclockwise", QKeySequence::Undo);
    add(stack.createRedoAction(&menu, "&Redo"), "arrow-clockwise", Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
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

void MainWindow::moveRows(int distance)
{
    const bool areLayers = &tableInUse() == m_layerTable;
    m_document.moveSelectedRows(areLayers ? m_document.arraycontroller() : m_document.presetarraycontroller(),
                                distance);
}

/// Folded layers come forward with the new one, which is selected and scrolled to.
void MainWindow::addLayer(const std::function<void()> &act)
{
    m_lists->showLayers();
    act();
}

void MainWindow::addImage()
{
    addLayer([this] { m_document.AddImage(); });
}

/// The pictures in it take a while to draw.
void MainWindow::fillCharts(QMenu &menu)
{
    if (!menu.isEmpty())
        return;
    ChartChoice::fillMenu(menu, LWStill::takesChart,
                          [this](const Chart &chart) { addLayer([&] { m_document.addChart(chart.name); }); });
}

void MainWindow::fillLayerMenu(QMenu &menu)
{
    QAction *screen = addTold(menu, {"Add &screen", "grid"}, Qt::CTRL | Qt::SHIFT | Qt::Key_N,
                              [this] { addLayer([this] { m_document.AddScreen(); }); });
    QAction *image =
        addTold(menu, {"Add &image...", "image"}, Qt::CTRL | Qt::SHIFT | Qt::Key_I, [this] { addImage(); });
    QMenu *charts = menu.addMenu("Add &chart");
    connect(charts, &QMenu::aboutToShow, this, [this, charts] { fillCharts(*charts); });
    auto *atButton = new QMenu(m_addButton);
    atButton->addActions({screen, image});
    m_addButton->setMenu(atButton);
    menu.addSeparator();
    m_layerTable->addAction(
        addTold(menu, {"&Hide or show", "eye"}, Qt::Key_H, [this] { m_document.toggleVisibility(); }));
    m_layerTable->addAction(addTold(
        menu, {"Hide &others"}, {}, [this] { m_document.hideOthers(); },
        [this] { return m_document.allScreensArray().size() > m_document.selectedLayers().size(); }));
    menu.addSeparator();
    addOrder(menu);
    addPlaces(menu);
    menu.addSeparator();
    m_layerTable->addAction(addTold(menu, {"&Keep as preset"}, {}, [this] { m_document.keepAsPresets(); }));
    menu.addAction(Icons::icon("search"), "Search &presets", Qt::CTRL | Qt::Key_L, this, [this] {
        m_listsSide->open();
        m_lists->showPresets();
        m_presetPanel->search();
    });
}

/// The keys are the lists' own: in the canvas they nudge, in a field they mean nothing.
void MainWindow::addOrder(QMenu &menu)
{
    const auto addMove = [&](const QString &title, Qt::Key key, int distance) {
        QAction *move = addTold(menu, {title}, Qt::CTRL | key, [this, distance] { moveRows(distance); });
        move->setShortcutContext(Qt::WidgetShortcut);
        m_layerTable->addAction(move);
        m_presetPanel->table().addAction(move);
    };
    addMove("Move &up", Qt::Key_Up, -1);
    addMove("Move &down", Qt::Key_Down, 1);
}

void MainWindow::addPlaces(QMenu &menu)
{
    m_layerTable->addAction(addTold(menu, {"&Centre in output"}, {}, [this] { m_document.centreInOutput(); }));
    QMenu *corners = menu.addMenu("&Fit to output corner");
    const auto addCorner = [this, corners](const QString &title, Qt::Corner corner) {
        addTold(*corners, {title}, {}, [this, corner] { m_document.fitToOutputCorner(corner); });
    };
    addCorner("Top &left", Qt::TopLeftCorner);
    addCorner("Top &right", Qt::TopRightCorner);
    addCorner("Bottom l&eft", Qt::BottomLeftCorner);
    addCorner("Bottom r&ight", Qt::BottomRightCorner);
    m_layerTable->addAction(corners->menuAction());
}

void MainWindow::fillViewMenu(QMenu &menu)
{
    addTools(menu);
    menu.addSeparator();
    menu.addAction("&Lists", Qt::Key_F9, m_listsSide, &FoldingSide::toggle);
    menu.addAction("&Inspector", Qt::Key_F10, m_inspectorSide, &FoldingSide::toggle);
    addTables(menu);
    menu.addSeparator();
    menu.addAction(Icons::icon("zoom-in"), "&Zoom in", QKeySequence::ZoomIn, m_canvas, &LWCanvasImageView::zoomIn);
    menu.addAction(Icons::icon("zoom-out"), "Zoom &out", QKeySequence::ZoomOut, m_canvas, &LWCanvasImageView::zoomOut);
    menu.addAction("&100 %", Qt::CTRL | Qt::Key_1, m_canvas, &LWCanvasImageView::zoomTo100);
    menu.addAction("&Fit", Qt::CTRL | Qt::Key_0, m_canvas, &LWCanvasImageView::zoomToFit);
    menu.addSeparator();
    addPreview(menu);
}

void MainWindow::addTables(QMenu &menu)
{
    const auto add = [&](const QString &title, TablesPane::Page page) {
        QAction *action = menu.addAction(title, m_tablesPane, [this, page] { m_tablesPane->toggle(page); });
        action->setCheckable(true);
        const auto check = [this, action, page] { action->setChecked(m_tablesPane->isOpenAt(page)); };
        connect(m_tablesPane, &TablesPane::didTurn, action, check);
        check();
        return action;
    };
    add("Por&ts", TablesPane::Ports);
    add("Chec&ks", TablesPane::Checks);
    add("&Displays", TablesPane::Displays)->setShortcut(Qt::Key_F11);
}

void MainWindow::addTools(QMenu &menu)
{
    auto *tools = new QActionGroup(&menu);
    for (const CanvasToolRow &tool : canvasTools()) {
        QAction *action = menu.addAction(Icons::icon(tool.icon), tool.title, tool.key, this,
                                         [this, name = tool.name] { m_canvas->setTool(name); });
        action->setCheckable(true);
        action->setChecked(m_canvas->tool() == tool.name);
        tools->addAction(action);
        connect(m_canvas, &LWCanvasImageView::toolDidChange, action,
                [action, name = tool.name](CanvasToolName now) { action->setChecked(now == name); });
    }
}

void MainWindow::addPreview(QMenu &menu)
{
    QAction *preview = addTold(menu, {"Output &preview", "display"}, {}, [this] {
        if (m_preview && m_preview->isVisible())
            m_preview->close();
        else
            m_document.openPvw();
    });
    preview->setCheckable(true);
    connect(&menu, &QMenu::aboutToShow, preview,
            [this, preview] { preview->setChecked(m_preview && m_preview->isVisible()); });
    QMenu *displays = menu.addMenu("Output o&n display");
    connect(displays, &QMenu::aboutToShow, this, [this, displays] { m_desk.listIn(*displays); });
    addTold(menu, {"Fi&ll the display"}, Qt::SHIFT | Qt::Key_F11, [this] { m_desk.toggleLast(); });
}

void MainWindow::fillHelpMenu(QMenu &menu)
{
    addTold(menu, {"&First steps", "question-circle"}, QKeySequence::HelpContents, [this] { m_document.openHelp(); });
    if (LWAppDelegate::hasWebPages()) {
        addTold(menu, {"Help in the &web"}, {}, [this] { m_document.orvsoftwarehelpurl(); });
        addTold(menu, {"Look for a new &version"}, {}, [this] { m_document.webupdatecheck(); });
    }
    menu.addSeparator();
    addTold(menu, {"&About Wallwright"}, {}, [this] { m_document.openAbout(); });
}

OutputPreview &MainWindow::outputPreview()
{
    if (m_preview)
        return *m_preview;
    m_preview = new OutputPreview(m_desk.shown(), this);
    return *m_preview;
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

QAction *MainWindow::addTold(QMenu &menu, const Entry &entry, const QKeySequence &keys,
                             const std::function<void()> &act, const std::function<bool()> &isOfUse)
{
    QAction *action = addTold(menu, entry, keys, act);
    m_conditions.emplace_back(action, isOfUse);
    return action;
}

void MainWindow::enableActions()
{
    for (const auto &[action, isOfUse] : m_conditions)
        action->setEnabled(isOfUse());
}

void MainWindow::listRecentFiles(QMenu &menu)
{
    menu.clear();
    for (const QString &path : Settings::recentFiles()) {
        // An ampersand in a title is a key's mark; twice it is the sign itself.
        QAction *action = menu.addAction(menuText(QFileInfo(path).fileName()), this, [this, path] {
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
        menu.addAction(menuText(titleOf(copy)), this, [this, copy] {
            m_powerBar->clearMessage();
            m_document.recover(copy);
            tellRemainingWork();
        });
    }
    if (copies.empty()) {
        menu.addAction("No unsaved work")->setEnabled(false);
        return;
    }
    menu.addSeparator();
    menu.addAction("Forget all...", this, [this, copies] { forget(copies); });
}

void MainWindow::forget(const std::vector<FoundCopy> &copies)
{
    if (!m_person.confirm("Forget all unsaved work of ended programs?", "This cannot be undone.", "Forget"))
        return;
    for (const FoundCopy &copy : copies)
        m_document.discardRecoverable(copy);
    tellRemainingWork();
}

/// With the tool for cables, those of the panel there come first.
void MainWindow::showLayerMenu(const QPoint &place)
{
    QMenu menu(this);
    const auto pixel = m_canvas->readOut().pixel;
    if (m_canvas->tool() == CanvasToolName::Data && pixel) {
        const auto tell = [this](const Result<void> &done) {
            m_powerBar->showFailure(done ? QString() : done.error().text);
        };
        CableMenu cables(m_document, tell);
        cables.fill(menu, *pixel);
    }
    menu.addActions(m_layerTable->actions());
    menu.exec(place);
}
