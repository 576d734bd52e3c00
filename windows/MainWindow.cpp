#include "windows/MainWindow.h"

#include "app/Settings.h"
#include "canvas/LWCanvasImageView.h"
#include "formats/FileFormat.h"
#include "windows/CanvasPane.h"
#include "windows/FoldingSide.h"
#include "windows/Icons.h"
#include "windows/LayerTable.h"
#include "windows/LayerText.h"
#include "windows/ListsPane.h"
#include "windows/OutputPreview.h"
#include "windows/PowerBar.h"
#include "windows/PresetPanel.h"
#include "windows/Theme.h"
#include "windows/inspector/Inspector.h"
#include "windows/tables/TablesPane.h"

#include <QCloseEvent>
#include <QDataStream>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QSplitter>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <utility>

namespace {
constexpr QSize firstSize{1280, 800};
/// What a display of 1280 x 800 at twice the size leaves below a title bar.
constexpr QSize leastSize{640, 360};
constexpr int listsWidth = 260;
constexpr int leastListsWidth = 200;
constexpr int inspectorWidth = 300;
constexpr int leastInspectorWidth = 260;
/// Below this width the presets fold into a tab beside the layers.
constexpr int wideWindow = 1100;
/// Below this one, lists and inspector fold to edges.
constexpr int narrowWindow = 900;
/// Nobody waits for a folder to be read before there is a window.
constexpr std::chrono::milliseconds afterFirstPaint{500};
} // namespace

MainWindow::MainWindow()
{
    Theme::apply();
    setAcceptDrops(true);
    showFile({});
    setMinimumSize(leastSize);
    resize(firstSize);
    addViews();
    addMenus();
    connectDocument();
    connectViews();
}

MainWindow::~MainWindow()
{
    m_document.undoStack().disconnect(this); // it tells that its steps go, when the actions have gone
    // The views show the document, so they go first.
    m_person.setCanvas(nullptr);
    delete std::exchange(m_preview, nullptr);
    delete takeCentralWidget();
}

void MainWindow::start()
{
    restoreLayout();
    // On a screen that is no larger than the window wants to be, a frame would push its edges out of sight.
    const QSize room = screen()->availableSize();
    if (restoreGeometry(Settings::windowGeometry()) ||
        (room.width() > firstSize.width() && room.height() > firstSize.height()))
        show();
    else
        showMaximized();
    m_layerTable->setFocus();
    m_document.applicationDidFinishLaunching();
    QTimer::singleShot(afterFirstPaint, this, &MainWindow::tellUnsavedWork);
}

QWidget *MainWindow::layersPanel()
{
    auto *panel = new QWidget;
    auto *column = new QVBoxLayout(panel);
    column->setContentsMargins(0, Theme::edge, 0, 0);
    column->setSpacing(Theme::gap);
    m_layerTable = new LayerTable(m_document.arraycontroller(), "Layers", LayerDelegate::Kind::Layers,
                                  [this](const Layer &layer) { return m_checks.sentences(layer); });
    m_layerTable->setObjectName("mainTView");
    m_layersHead = new QHBoxLayout;
    m_layersHead->setContentsMargins(Theme::edge, 0, Theme::edge, 0);
    m_layersHead->addStretch(1);
    m_addButton = headButton("+", "Add layer", "A screen or an image");
    m_addButton->setPopupMode(QToolButton::InstantPopup);
    m_deleteButton = headButton("−", "Delete layer", "Deletes the selected layers");
    connect(m_deleteButton, &QToolButton::clicked, &m_document, &LWAppDelegate::remove);
    m_layersHead->addWidget(m_addButton);
    m_layersHead->addWidget(m_deleteButton);
    column->addLayout(m_layersHead);
    column->addWidget(m_layerTable);
    return panel;
}

QToolButton *MainWindow::headButton(const QString &sign, const QString &name, const QString &tip)
{
    auto *button = new QToolButton;
    button->setText(sign);
    button->setAccessibleName(name);
    button->setToolTip(tip);
    return button;
}

void MainWindow::addViews()
{
    // From the outside in: a widget that is put into another is styled anew with all that is in it.
    auto *centre = new QWidget(this);
    m_column = new QVBoxLayout(centre);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    m_regions = new QSplitter(centre);
    m_column->addWidget(m_regions, 1);
    m_regions->setHandleWidth(1);
    m_regions->setChildrenCollapsible(false);
    m_listsSide = new FoldingSide("Lists", FoldingSide::Side::Left, m_regions);
    m_lists = new ListsPane(m_listsSide);
    m_lists->setLayers(layersPanel());
    m_lists->setMinimumWidth(leastListsWidth);
    m_listsSide->setContent(m_lists);
    m_regions->addWidget(m_listsSide);
    m_middle = new QSplitter(Qt::Vertical, m_regions);
    m_middle->setHandleWidth(1);
    m_middle->setChildrenCollapsible(false);
    m_canvasPane = new CanvasPane(m_canvasLink, m_middle);
    m_canvas = &m_canvasPane->canvas();
    m_person.setCanvas(m_canvas);
    m_canvas->installEventFilter(this);
    m_middle->addWidget(m_canvasPane);
    m_regions->addWidget(m_middle);
    m_inspectorSide = new FoldingSide("Inspector", FoldingSide::Side::Right, m_regions);
    m_inspector = new Inspector(m_document, m_person, m_inspectorSide);
    m_inspector->setMinimumWidth(leastInspectorWidth);
    m_inspectorSide->setContent(m_inspector);
    m_regions->addWidget(m_inspectorSide);
    m_regions->setStretchFactor(1, 1);
    m_regions->setSizes({listsWidth, firstSize.width() - listsWidth - inspectorWidth, inspectorWidth});
    m_powerBar = new PowerBar(centre);
    m_column->addWidget(m_powerBar);
    setCentralWidget(centre);
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_canvas && event->type() == QEvent::Paint) {
        m_canvas->removeEventFilter(this);
        QTimer::singleShot(0, this, &MainWindow::makeLateParts);
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::makeLateParts()
{
    if (m_presetPanel)
        return;
    setWindowIcon(QIcon(":/windows/wallwright.svg"));
    m_presetPanel = new PresetPanel(m_document);
    addTablesPane();
    fillMenus();
    m_canvasPane->showIcons();
    QLabel *title = Theme::title("Layers", m_layerTable);
    title->setObjectName(ListsPane::titleName);
    m_layersHead->insertWidget(0, title);
    m_lists->setPresets(m_presetPanel);
    m_addButton->setIcon(Icons::icon("plus-lg"));
    m_deleteButton->setIcon(Icons::icon("dash-lg"));
    m_inspector->makeControls();
    orderFocus();
}

void MainWindow::addTablesPane()
{
    m_tablesPane = new TablesPane(m_document, m_checks, m_desk, m_middle);
    m_middle->addWidget(m_tablesPane);
    m_middle->setStretchFactor(0, 1);
    m_middle->setStretchFactor(1, 0);
    m_tablesPane->setCurrentPage(static_cast<TablesPane::Page>(m_tablesLayout.page));
    m_tablesPane->setOpen(m_tablesLayout.areOpen);
    giveTablesRoom();
    connect(m_tablesPane, &TablesPane::didTurn, this, &MainWindow::giveTablesRoom);
    connect(m_middle, &QSplitter::splitterMoved, this, [this] { m_tablesLayout.height = m_middle->sizes().last(); });
    connect(m_tablesPane, &TablesPane::asked, this, &MainWindow::showAsked);
    connect(m_tablesPane, &TablesPane::failureTold, m_powerBar, &PowerBar::showFailure);
}

/// All of it is the canvas' while the tables are folded.
void MainWindow::giveTablesRoom()
{
    m_tablesLayout.areOpen = m_tablesPane->isOpen();
    m_tablesLayout.page = m_tablesPane->currentPage();
    const int height = m_tablesLayout.areOpen ? m_tablesLayout.height : 0;
    m_middle->setSizes({m_middle->height() - height, height});
}

/// The layers are selected, and the place is brought into sight.
void MainWindow::showAsked(const std::vector<qsizetype> &layers, const QRectF &pixels)
{
    if (!layers.empty()) {
        std::vector<qsizetype> rows = layers;
        std::sort(rows.begin(), rows.end());
        m_document.arraycontroller().setSelectionIndexes(std::move(rows), layers.front());
    }
    m_canvas->bringIntoSight(pixels);
}

/// Tab goes through the regions as they are read; by itself it would go as they were made.
void MainWindow::orderFocus()
{
    QWidget *last = m_lists->tabs();
    QWidget *const layers = m_layerTable->parentWidget();
    for (const QWidget *region :
         std::initializer_list<QWidget *>{layers, m_presetPanel, m_canvasPane, m_tablesPane, m_inspector, m_powerBar}) {
        for (QWidget *control : region->findChildren<QWidget *>()) {
            const bool takesTab = (control->focusPolicy() & Qt::TabFocus) != 0;
            if (!takesTab || control->focusProxy() || control->window() != this)
                continue;
            setTabOrder(last, control);
            last = control;
        }
    }
}

void MainWindow::connectDocument()
{
    connect(&m_document, &LWAppDelegate::changed, m_canvas, &LWCanvasImageView::showChanges);
    connect(&m_document, &LWAppDelegate::changed, m_layerTable->viewport(), qOverload<>(&QWidget::update));
    connect(&m_document, &LWAppDelegate::changed, this, &MainWindow::showPower);
    connect(&m_checks, &RestedChecks::rested, m_layerTable->viewport(), qOverload<>(&QWidget::update));
    connect(&m_desk.shown(), &ShownOutput::changed, m_canvas, &LWCanvasImageView::showOutput);
    connect(&m_document, &LWAppDelegate::composed, m_layerTable->viewport(), qOverload<>(&QWidget::update));
    connect(&m_person, &WindowPerson::sheetAsked, &m_sheets, &Sheets::begin);
    connect(&m_person, &WindowPerson::sheetDone, &m_sheets, &Sheets::end);
    connect(&m_person, &WindowPerson::outputPreviewAsked, this, [this] { outputPreview().showInWindow(); });
    connect(&m_person, &WindowPerson::failureTold, m_powerBar, &PowerBar::showFailure);
    connect(&m_person, &WindowPerson::statusTold, m_powerBar, &PowerBar::showStatus);
    connect(&m_person, &WindowPerson::fileChangedElsewhere, this, &MainWindow::tellChangedElsewhere);
    connect(&m_document, &LWAppDelegate::projectPathDidChange, this, &MainWindow::showFile);
    connect(&m_desk.live(), &LiveOutput::changed, this, &MainWindow::showLive);
    connect(&m_document.undoStack(), &QUndoStack::cleanChanged, this,
            [this](bool isClean) { setWindowModified(!isClean); });
    connect(&m_document.undoStack(), &QUndoStack::indexChanged, m_powerBar, &PowerBar::clearStatus);
}

void MainWindow::showPower()
{
    const qint64 volts = m_document.voltageCalc();
    const qint64 phases = m_document.phaseCalc();
    m_powerBar->showPowerResult(m_document.powerResult());
    m_powerBar->showSupply(volts, phases, LayerText::load(m_document.allScreensArray(), volts, phases));
}

void MainWindow::connectViews()
{
    connect(m_layerTable->itemDelegate(), &QAbstractItemDelegate::closeEditor, &m_document, &LWAppDelegate::endTyping);
    for (FoldingSide *side : {m_listsSide, m_inspectorSide})
        connect(side, &FoldingSide::left, m_canvas, [this] { m_canvas->setFocus(); });
    connect(m_layerTable, &LayerTable::eyeClicked, &m_document, &LWAppDelegate::toggleVisibilityOf);
    connect(m_powerBar, &PowerBar::voltageChosen, this, [this](int tag) {
        m_document.voltageSelect(tag);
        showPower(); // 110 V beside "Other" are those of the button, whether they are chosen already or not
    });
    connect(m_powerBar, &PowerBar::phaseChosen, &m_document, &LWAppDelegate::phaseSelect);
    connect(m_powerBar, &PowerBar::zoomChosen, m_canvas, &LWCanvasImageView::setZoom);
    connect(m_powerBar, &PowerBar::fitChosen, m_canvas, &LWCanvasImageView::zoomToFit);
    connect(m_canvas, &LWCanvasImageView::layerMenuAsked, this, &MainWindow::showLayerMenu);
    connect(m_canvas, &LWCanvasImageView::toolDidPress, m_inspector,
            [this](bool isOnLayer) { m_inspector->showOutputFirst(!isOnLayer); });
    connect(m_layerTable, &LayerTable::pressed, m_inspector, [this] { m_inspector->showOutputFirst(false); });
    connect(m_layerTable, &LayerTable::clicked, &m_desk, [this](const QModelIndex &row) { m_desk.blink(row.row()); });
    connect(&m_desk, &LiveDesk::told, m_powerBar, [this](const QString &sentence) {
        sentence.isEmpty() ? m_powerBar->clearStatus() : m_powerBar->showStatus(sentence);
    });
    m_desk.listenTo(*m_canvas);
    connect(m_canvas, &LWCanvasImageView::readOutDidChange, this, [this](const CanvasReadOut &readOut) {
        m_powerBar->showReadOut(readOut, readOut.pixel ? panelAt(*readOut.pixel) : QString());
        m_desk.pointAt(readOut.place);
    });
}

/// Where clicks go to the selected wall, its panel is meant whatever lies above it.
QString MainWindow::panelAt(const QPoint &pixel) const
{
    const LayerPointer selected = m_canvasLink.selectedLayer();
    const bool goesToSelected = canvasTool(m_canvas->tool()).goesToSelected;
    const QString meant = selected && goesToSelected ? LayerText::panelAt({selected}, pixel) : QString();
    return meant.isEmpty() ? LayerText::panelAt(m_document.allScreensArray(), pixel) : meant;
}

void MainWindow::showFile(const QString &path)
{
    m_person.setFile(path);
    // "[*]" in a title is Qt's sign for a changed document; twice it is the text itself.
    const QString name = path.isEmpty() ? QString(nameOfNewDocument) : QFileInfo(path).fileName();
    setWindowTitle(QString(name).replace("[*]", "[*][*]") + "[*] — Wallwright");
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_document.applicationShouldTerminate() == LWAppDelegate::TerminateReply::Cancel)
        return event->ignore();
    rememberLayout();
    m_desk.live().leaveAll();
    event->accept();
}

void MainWindow::rememberLayout() const
{
    QByteArray state;
    QDataStream stream(&state, QIODevice::WriteOnly);
    stream << (m_listsSide->isFolded() ? m_unfoldedRegions : m_regions->saveState()) << m_lists->saveState();
    stream << m_tablesLayout.areOpen << m_tablesLayout.height << m_tablesLayout.page;
    Settings::setWindowGeometry(saveGeometry());
    Settings::setWindowState(state);
}

void MainWindow::restoreLayout()
{
    QByteArray regions;
    QByteArray lists;
    QDataStream state(Settings::windowState());
    state >> regions >> lists;
    TablesLayout tables;
    state >> tables.areOpen >> tables.height >> tables.page;
    if (tables.height > 0 && tables.page >= 0 && tables.page < TablesPane::PageCount)
        m_tablesLayout = tables;
    m_regions->restoreState(regions);
    m_lists->restoreState(lists);
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    m_lists->setFolded(width() < wideWindow);
    foldSides(width() < narrowWindow);
}

void MainWindow::foldSides(bool areFolded)
{
    if (m_listsSide->isFolded() != areFolded) {
        if (areFolded)
            m_unfoldedRegions = m_regions->saveState();
        for (FoldingSide *side : {m_listsSide, m_inspectorSide})
            side->setFolded(areFolded);
        if (!areFolded)
            m_regions->restoreState(m_unfoldedRegions);
    }
    // The splitter itself gives no room to the canvas that a side has no use for any more.
    if (areFolded)
        m_regions->setSizes({FoldingSide::edgeWidth, m_regions->width(), FoldingSide::edgeWidth});
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    m_powerBar->clearMessage();
    QStringList pictures;
    for (const QUrl &url : event->mimeData()->urls()) {
        const QString path = url.toLocalFile();
        if (const FileFormat *format = FileFormat::named(path); format && format->gives == FileFormat::Gives::Project)
            return m_document.openProjectPre(path);
        if (path.isEmpty())
            m_powerBar->showFailure(QString("Cannot place %1: it is no file on this computer; save it here first, then "
                                            "drop that.")
                                        .arg(url.toDisplayString()));
        else
            pictures.append(path);
    }
    const QPointF place = m_canvas->mapFrom(this, event->position().toPoint());
    const bool isOnCanvas = m_canvas->rect().contains(place.toPoint());
    m_document.addImages(pictures, isOnCanvas ? m_person.pixelAt(place) : std::nullopt);
}
