#pragma once

#include "app/LWAppDelegate.h"
#include "app/windows/WindowInterface.h"

#include <QMainWindow>

class LayerTable;
class OutputView;
class PowerBar;

/// The main window and the document in it: the layer table, the composed output, the power line, and the file menu.
class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    /// An empty window, not shown. Gives the application its look; a QApplication exists.
    MainWindow();
    ~MainWindow() override;

    /// Hands over a file that start() shall open; see LWAppDelegate::applicationOpenFile(). Always true.
    bool applicationOpenFile(const QString &path) { return m_document.applicationOpenFile(path); }
    /// Shows the window with the first document, then opens the file that was handed over, if any. What is wrong with
    /// that is told in an alert, and the first document stays.
    void start();

    LWAppDelegate &document() { return m_document; }

private:
    void addFileMenu();
    QWidget *layersPanel();
    void addViews();
    void connectDocument();
    void connectViews();
    void showFile(const QString &path);
    void openProject();
    void saveProject();
    void exportPng();
    void exportPsd();

    WindowInterface m_interface{*this};
    LWAppDelegate m_document{m_interface};
    LayerTable *m_layerTable;
    OutputView *m_outputView;
    PowerBar *m_powerBar;
};
