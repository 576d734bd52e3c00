#pragma once

#include "live/PanelWalk.h"
#include "live/WallLook.h"

#include <QObject>
#include <QTimer>

#include <optional>

class QWidget;

/// Whether letters are typed there; null: nowhere.
bool isTypedIn(const QWidget *widget);

/// A walk along the cables of a show, by hand or by itself. While it is on, Page Down, Page Up (what a presenter's
/// remote sends) and X do what they do for it in every window of the program. Main thread only.
class WallWalk final : public QObject
{
    Q_OBJECT

public:
    static constexpr double leastSeconds = 0.2;
    static constexpr double mostSeconds = 5;

    explicit WallWalk(QObject *parent = nullptr);

    const PanelWalk &walk() const { return m_walk; }
    bool isOn() const { return m_isOn; }
    bool isByItself() const { return m_next.isActive(); }

    /// The panels that were marked before.
    void setMarks(const QStringList &marks);
    /// Gives it the panels of the show; only while it is on.
    void setPanels(const std::vector<ChartPanel> &panels);
    /// The panel where it is, lit; nullopt: it is off.
    std::optional<WallLight> light() const;

public slots:
    void setOn(bool isOn);
    void choose(int run);
    void goOn();
    void goBack();
    /// A panel each so many seconds, `leastSeconds` to `mostSeconds`.
    void setByItself(bool isByItself);
    void setSeconds(double seconds);
    void toggleMark();
    void clearMarks();
    /// Puts the marked panels on the clipboard, one on a line.
    void copyMarks() const;

signals:
    /// Panels were marked, or are not any more.
    void marksDidChange(const QStringList &marks);
    /// Something of it is another now.
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    PanelWalk m_walk;
    bool m_isOn = false;
    QTimer m_next;
};
