#pragma once

#include "live/LiveOutput.h"
#include "live/ScreenAwake.h"

#include <QObject>
#include <QString>

#include <memory>

class LWAppDelegate;
class QMenu;

/// What a main window does with the displays of the wall: which show they belong to, the one that was chosen last, and
/// that the screen stays awake. Main thread only.
class LiveDesk final : public QObject
{
    Q_OBJECT

public:
    /// Both outlive this.
    LiveDesk(LWAppDelegate &document, QWidget &window);

    LiveOutput &live() { return m_live; }
    /// A display is switched on, or off; it is the one that toggleLast() is about then.
    void toggle(const QString &key);
    /// The display that was chosen last, else the first that does not show the window.
    void toggleLast();
    /// Fills a menu with the displays; choosing one switches it on or off.
    void listIn(QMenu &menu);

private:
    void followState();
    QSize panelOfSelected() const;

    LWAppDelegate &m_document;
    QWidget &m_window;
    LiveOutput m_live;
    std::unique_ptr<ScreenAwake> m_awake; ///< null until the first display is on
    QString m_last;                       ///< key of the display that was chosen last
};
