#include "app/windows/MainWindow.h"

#include "app/windows/LayerTable.h"
#include "app/windows/OutputView.h"
#include "app/windows/PowerBar.h"
#include "app/windows/Theme.h"

#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>

namespace {
constexpr QSize firstSize{1280, 800};
constexpr int layersWidth = 260;
constexpr int leastLayersWidth = 160;
constexpr QLatin1StringView nameOfNewDocument{"Untitled"};
} // namespace

MainWindow::MainWindow()
{
    Theme::apply();
    setWindowIcon(QIcon(":/windows/wallwright.svg"));
    showFile(nameOfNewDocument);
    resize(firstSize);
    addFileMenu();
    addViews();
    connectDocument();
    connectViews();
}

MainWindow::~MainWindow()
{
    // The table shows the document's list, so it goes first.
    delete takeCentralWidget();
}

void MainWindow::start()
{
    // On a screen that is no larger than the window wants to be, a frame would push its edges out of sight.
    const QSize room = screen()->availableSize();
    if (room.width() > firstSize.width() && room.height() > firstSize.height())
        show();
    else
        showMaximized();
    m_document.applicationDidFinishLaunching();
}

void MainWindow::addFileMenu()
{
    QMenu *menu = menuBar()->addMenu("&File");
    menu->addAction("&Open...", Qt::CTRL | Qt::Key_O, this, &MainWindow::openProject);
    menu->addAction("&Save...", Qt::CTRL | Qt::Key_S, this, &MainWindow::saveProject);
    menu->addSeparator();
    menu->addAction("&Export PNG...", Qt::CTRL | Qt::Key_E, this, &MainWindow::exportPng);
    menu->addAction("Export &PSD...", Qt::CTRL | Qt::SHIFT | Qt::Key_E, this, &MainWindow::exportPsd);
    menu->addSeparator();
    menu->addAction("&Quit", Qt::CTRL | Qt::Key_Q, this, &MainWindow::close);
}

QWidget *MainWindow::layersPanel()
{
    auto *panel = new QWidget;
    panel->setMinimumWidth(leastLayersWidth);
    auto *column = new QVBoxLayout(panel);
    column->setContentsMargins(0, Theme::edge, 0, 0);
    column->setSpacing(Theme::gap);
    auto *title = new QLabel("Layers");
    title->setFont(Theme::titleFont());
    title->setContentsMargins(Theme::edge, 0, Theme::edge, 0);
    QPalette colours = title->palette();
    colours.setColor(QPalette::WindowText, Theme::dimText);
    title->setPalette(colours);
    m_layerTable = new LayerTable(m_document.arraycontroller());
    title->setBuddy(m_layerTable);
    column->addWidget(title);
    column->addWidget(m_layerTable);
    return panel;
}

void MainWindow::addViews()
{
    auto *regions = new QSplitter;
    regions->setHandleWidth(1);
    regions->setChildrenCollapsible(false);
    regions->addWidget(layersPanel());
    m_outputView = new OutputView;
    regions->addWidget(m_outputView);
    regions->setStretchFactor(1, 1);
    regions->setSizes({layersWidth, firstSize.width() - layersWidth});

    auto *centre = new QWidget;
    auto *column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(regions, 1);
    m_powerBar = new PowerBar;
    column->addWidget(m_powerBar);
    setCentralWidget(centre);
}

void MainWindow::connectDocument()
{
    connect(&m_interface, &WindowInterface::outputComposed, m_outputView, &OutputView::showOutput);
    connect(&m_interface, &WindowInterface::outputReleased, m_outputView, &OutputView::releaseOutput);
    connect(&m_interface, &WindowInterface::canvasRepaintAsked, m_outputView, qOverload<>(&QWidget::update));
    connect(&m_interface, &WindowInterface::layersRendered, m_layerTable->viewport(), qOverload<>(&QWidget::update));
    connect(&m_interface, &WindowInterface::powerComputed, m_powerBar, &PowerBar::showPowerResult);
    connect(&m_interface, &WindowInterface::failureTold, m_powerBar, &PowerBar::showFailure);
    connect(&m_interface, &WindowInterface::statusTold, m_powerBar, &PowerBar::showStatus);
    connect(&m_interface, &WindowInterface::fileDidChange, this, &MainWindow::showFile);
}

void MainWindow::connectViews()
{
    connect(m_powerBar, &PowerBar::voltageChosen, &m_document, &LWAppDelegate::voltageSelect);
    connect(m_powerBar, &PowerBar::phaseChosen, &m_document, &LWAppDelegate::phaseSelect);
    connect(m_outputView, &OutputView::shownSizeDidChange, m_powerBar, &PowerBar::showOutputSize);
}

void MainWindow::showFile(const QString &path)
{
    // "[*]" in a title is Qt's sign for a changed document; twice it is the text itself.
    const QString name = QFileInfo(path).fileName().replace("[*]", "[*][*]");
    setWindowTitle(name + " — Wallwright");
}

void MainWindow::openProject()
{
    m_powerBar->clearMessage();
    m_document.openProject();
}

void MainWindow::saveProject()
{
    m_powerBar->clearMessage();
    m_interface.prepareSavePanel("Save project", "Orv");
    m_document.saveProject();
}

void MainWindow::exportPng()
{
    m_powerBar->clearMessage();
    m_interface.prepareSavePanel("Export PNG", "png");
    m_document.saveAction();
}

void MainWindow::exportPsd()
{
    m_powerBar->clearMessage();
    m_interface.prepareSavePanel("Export PSD", "psd", WindowInterface::Appended::Always);
    m_document.savePSD();
}
