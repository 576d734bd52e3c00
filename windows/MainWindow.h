#pragma once

#include "app/LWAppDelegate.h"
#include "windows/CanvasLink.h"
#include "windows/Sheets.h"
#include "windows/WindowPerson.h"
#include "windows/checks/RestedChecks.h"
#include "windows/displays/LiveDesk.h"

#include <QKeySequence>
#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <utility>
#include <vector>

class CanvasPane;
class FoldingSide;
class Inspector;
class LayerTable;
class ListsPane;
class LWCanvasImageView;
class NoticeBar;
class PresetPanel;
class TablesPane;
class QHBoxLayout;
class QVBoxLayout;
class QMenu;
class QSplitter;
class QToolButton;
class OutputPreview;
class PowerBar;

/// The main window and the document in it: the menus, the layer table, the composed output and the power line.
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
    /// What it does with the displays of the wall.
    LiveDesk &desk() { return m_desk; }
    /// Gives the window its icons, and makes what is in the menus, the presets' table and the inspector's controls, if
    /// they are not there. Otherwise that is done after the first painting, so that nobody waits for them before there
    /// is a window.
    void makeLateParts();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// A window that is not wide folds its presets behind a tab; a narrow one both sides to edges.
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    /// Files become the open project, or stills.
    void dropEvent(QDropEvent *event) override;

private:
    /// A title in the menu bar, and what puts entries under it.
    struct Menu
    {
        const char *title;
        void (MainWindow::*fill)(QMenu &menu);
    };
    static const std::vector<Menu> &menus();
    void addMenus();
    void fillMenus();
    void fillFileMenu(QMenu &menu);
    void fillEditMenu(QMenu &menu);
    void fillLayerMenu(QMenu &menu);
    void fillCharts(QMenu &menu);
    void fillViewMenu(QMenu &menu);
    void fillHelpMenu(QMenu &menu);
    void addPlaces(QMenu &menu);
    struct Entry
    {
        QString title;
        QString icon = {}; ///< a name that Icons knows; empty: none
    };
    /// An action at whose start the message of the one before goes.
    QAction *addTold(QMenu &menu, const Entry &entry, const QKeySequence &keys, const std::function<void()> &act);
    /// The same, which cannot be chosen while `isOfUse` says no.
    QAction *addTold(QMenu &menu, const Entry &entry, const QKeySequence &keys, const std::function<void()> &act,
                     const std::function<bool()> &isOfUse);
    void enableActions();
    void addUndo(QMenu &menu);
    void addOrder(QMenu &menu);
    void addTools(QMenu &menu);
    void addPreview(QMenu &menu);
    void addTables(QMenu &menu);
    OutputPreview &outputPreview();
    void showLive();
    void listRecentFiles(QMenu &menu);
    void listUnsavedWork(QMenu &menu);
    void forget(const std::vector<FoundCopy> &copies);
    QWidget *layersPanel();
    void orderFocus();
    /// The table that keys go to: the presets while they have the focus, otherwise the layers.
    LayerTable &tableInUse();
    void rename();
    void moveRows(int distance);
    void addLayer(const std::function<void()> &act);
    void addImage();
    void removeSelected();
    QToolButton *headButton(const QString &sign, const QString &name, const QString &tip);
    void addViews();
    void addTablesPane();
    void giveTablesRoom();
    void showAsked(const std::vector<qsizetype> &layers, const QRectF &pixels);
    void connectDocument();
    void connectViews();
    void showPower();
    void rememberLayout() const;
    void restoreLayout();
    QString panelAt(const QPoint &pixel) const;
    void showLayerMenu(const QPoint &place);
    void foldSides(bool areFolded);
    void showFile(const QString &path);
    void tellUnsavedWork();
    void tellRemainingWork();
    void tellChangedElsewhere(const QString &path);
    void showNotice(NoticeBar *notice, QPointer<NoticeBar> &place);
    /// "show.Orv, 21/11/2026 02:14"
    static QString titleOf(const FoundCopy &copy);

    static constexpr QLatin1StringView nameOfNewDocument{"Untitled"};

    WindowPerson m_person{*this};
    LWAppDelegate m_document{m_person, RecoveryFolder::standardPath(), PresetStore::standardPath()};
    RestedChecks m_checks{m_document, this};
    LiveDesk m_desk{m_document, *this};
    CanvasLink m_canvasLink{m_document, m_desk.shown()};
    QString m_wallProblem; ///< that was told last
    QVBoxLayout *m_column; ///< notices, regions and power line
    QPointer<NoticeBar> m_unsavedWork;
    QPointer<NoticeBar> m_changedElsewhere;
    std::vector<std::pair<QAction *, std::function<bool()>>> m_conditions; ///< when actions can be chosen
    LayerTable *m_layerTable;
    QHBoxLayout *m_layersHead; ///< a title, which comes late, and two buttons
    QToolButton *m_addButton;
    QToolButton *m_deleteButton;
    QSplitter *m_regions;         ///< lists, canvas and inspector
    QByteArray m_unfoldedRegions; ///< how wide they were before the sides were folded
    FoldingSide *m_listsSide;
    FoldingSide *m_inspectorSide;
    ListsPane *m_lists;
    PresetPanel *m_presetPanel = nullptr; ///< null until makeLateParts()
    Inspector *m_inspector;
    QSplitter *m_middle; ///< the canvas, and the tables below it
    /// Of the tables, as they were left.
    struct TablesLayout
    {
        bool areOpen = false;
        int height = 200; ///< when they are open
        int page = 0;     ///< a TablesPane::Page
    };
    TablesLayout m_tablesLayout;
    CanvasPane *m_canvasPane;
    TablesPane *m_tablesPane = nullptr; ///< null until makeLateParts()
    LWCanvasImageView *m_canvas;        ///< the pane's
    PowerBar *m_powerBar;
    Sheets m_sheets{m_document, *this};
    OutputPreview *m_preview = nullptr; ///< made when it is first shown
};
