#pragma once

#include "charts/ChartText.h"
#include "facts/ChartPanels.h"
#include "live/LiveOutput.h"
#include "live/Pointing.h"
#include "live/ScreenAwake.h"
#include "windows/displays/WallWalk.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <optional>

class LWAppDelegate;
class QKeyEvent;
class QMenu;

/// What a main window does with the displays of the wall: which show they belong to, the one that was chosen last, and
/// that the screen stays awake. Main thread only.
class LiveDesk final : public QObject
{
    Q_OBJECT

public:
    /// Both outlive this.
    LiveDesk(LWAppDelegate &document, QWidget &window);
    ~LiveDesk() override;

    LiveOutput &live() { return m_live; }
    Pointing &pointing() { return m_pointing; }
    WallWalk &walk() { return m_walk; }
    LiveChart &chart() { return m_chart; }
    /// What canvas, preview and displays show.
    const ShownOutput &shown() const { return m_shown; }
    /// What a chart is laid over.
    enum class ChartArea
    {
        Output,
        EachWall,
        SelectedWalls
    };
    /// At the frame rate of the displays. `isOver`: the picture is seen where the chart is black.
    void showChart(const ChartText &chosen, ChartArea area, bool isOver);
    /// Of those walls at full white, "63.88 A at 230 V, 3 phases, 44.08 kW"; empty: nobody says what they draw.
    QString power(ChartArea area) const;
    /// Where the pointer is when Q is held to point; while pointing is active no press there edits.
    void listenTo(QWidget &canvas);
    /// Where the pointer is on the canvas, in pixels of the output, beside it too; nullopt: it has left the canvas.
    void pointAt(const std::optional<QPoint> &pixel);
    /// A layer's row was clicked: its wall blinks while pointing is active.
    void blink(int row);
    /// A display is switched on, or off; it is the one that toggleLast() is about then.
    void toggle(const QString &key);
    /// The display that was chosen last, else the first that does not show the window.
    void toggleLast();
    /// Fills a menu with the displays; choosing one switches it on or off.
    void listIn(QMenu &menu);

signals:
    /// What was asked of a person for the show before counts no more.
    void anotherShow();
    /// Something to tell the person who points or walks; empty: it is so no more.
    void told(const QString &sentence);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool takeKey(const QKeyEvent &key);
    void followState();
    void followShow();
    void takeShow();
    void showLights();
    bool isInArea(qsizetype row, ChartArea area) const;
    std::vector<LiveChart::Place> placesOfChart(const Chart &chart);
    QSize panelStep();
    const ChartPanels &panels();
    const ChartPanel *panelAt(const QPoint &pixel);
    std::optional<WallLight> lightAt(const QPoint &pixel);
    void tellUnseen(const WallLight *light);

    LWAppDelegate &m_document;
    QWidget &m_window;
    QPointer<QWidget> m_canvas; ///< see listenTo()
    LiveChart m_chart;
    ShownOutput m_shown; ///< which the next one looks at
    LiveOutput m_live;
    QString m_saved;                      ///< the path that was saved just now
    std::unique_ptr<ScreenAwake> m_awake; ///< null until the first display is on
    QString m_last;                       ///< key of the display that was chosen last
    Pointing m_pointing;
    WallWalk m_walk;
    bool m_wasWalking = false;
    ChartArea m_chartArea = ChartArea::Output;
    std::optional<QPoint> m_pointer;     ///< see pointAt()
    std::optional<ChartPanels> m_panels; ///< of the show as it is; nullopt: nobody has asked since it changed
    QRect m_unseen;                      ///< the panel that was told to be on no display
};
