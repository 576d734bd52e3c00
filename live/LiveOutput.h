#pragma once

#include "live/ShownOutput.h"
#include "live/WallDisplay.h"
#include "live/WallLook.h"
#include "live/WallRegion.h"
#include "live/WantedDisplays.h"

#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <vector>

class IdentifyCard;
class QScreen;
class QWidget;
class WallWindow;

/// The displays that show the output, and what stands on them in its place: none of it is in the document, and nothing
/// is on after a start. Main thread only.
class LiveOutput final : public QObject
{
    Q_OBJECT

public:
    /// Where regions are kept, by display and project; empty: none is.
    struct Memory
    {
        std::function<QString(const QString &display)> region = [](const QString &) { return QString(); };
        std::function<void(const QString &display, const QString &region)> keep = [](const QString &, const QString &) {
        };
    };
    /// A display that is there, or is waited for.
    struct Row
    {
        WallDisplay display;
        bool isConnected = true;
        bool isOn = false;
        WallRegion region = {};
        bool isRegionKept = false; ///< it is the show's own; else the one that a show begins with
        QString shows = {};        ///< "BLACKOUT", "picture"; empty where it is off or gone

        bool operator==(const Row &) const = default;
    };
    /// What stands on the wall, as the main window says it.
    struct Words
    {
        QString text;
        bool isDanger = false;
    };

    static constexpr std::array levels{100, 75, 50, 25, 10};

    /// `shown` is read whenever a display is painted; both outlive this.
    LiveOutput(const ShownOutput &shown, QWidget &window, Memory memory);
    ~LiveOutput() override;

    /// The show is another one: displays that are on take its regions.
    void takeRegions();
    /// The show has been saved under a name: that has its regions from now on.
    void keepRegions();

    /// Those that are there from left to right, then those that are waited for.
    std::vector<Row> rows() const;
    bool isOn(const QString &key) const { return m_wanted.isWanted(key); }
    bool isAnyOn() const { return m_wanted.isAnyWanted(); }
    void setOn(const QString &key, bool isOn);
    void leaveAll();
    void setRegion(const QString &key, const WallRegion &region);
    /// What stands against showing the output pixel for pixel, of all displays; empty: nothing.
    QString problem() const;

    const WallLook &look() const { return m_look; }
    void setBlack(bool isBlack);
    void setFrozen(bool isFrozen);
    bool isFrozen() const { return !m_look.frozen.isNull(); }
    /// One of `levels`.
    void setLevel(int level);
    /// Lit places on black, and what words() says of them; nullopt: the picture is there again.
    void setLights(const std::optional<std::vector<WallLight>> &lights, const QString &words = {});
    /// Whether any display shows some of a place of the output.
    bool isSeen(const QRect &place) const;
    /// Of the first display that is on, in Hz; 60 where none is, or none says.
    double frameRate() const;
    /// All displays tell for three seconds which they are.
    void identify();
    bool isIdentifying() const { return m_identifying.isActive(); }
    std::vector<Words> words() const;

    /// So many pixels are a panel, for the arrow keys with Ctrl.
    void setPanelStep(std::function<QSize()> step) { m_panelStep = std::move(step); }
    /// What the keys do on every display, and in the pane.
    bool press(const QKeyEvent &event, const QString &display);

signals:
    /// rows(), look(), words() or problem() is another now.
    void changed();

private:
    struct GoAway
    {
        void operator()(WallWindow *window) const;
    };
    struct Wall
    {
        WallDisplay display;
        WallRegion region = {};
        bool isRegionKept = false;
        std::unique_ptr<WallWindow, GoAway> window = {}; ///< null: it shows nothing, or is off
        bool isElsewhere = false;                        ///< the desktop has put it on another display
    };

    static std::vector<QScreen *> screensByPlace();
    static QScreen *screenOf(const QString &key);
    void follow(const QScreen &screen);
    void addScreen(QScreen *screen);
    void removeScreen(QScreen *screen);
    void show(const QString &key, QScreen &screen);
    void switchOff(const QString &key);
    void checkPlace(const QString &key);
    void setLook(WallLook look);
    void showOutput();
    bool isCovered() const;
    QString shownInWords() const;
    const QImage &picture() const { return m_shown.output().picture; }
    void renew(const std::optional<QRegion> &where);
    WallRegion regionFor(const QString &key, bool &isKept) const;
    QPoint rightOfOthers(const QString &key) const;
    void nudge(const QString &key, const QPoint &by);
    void goHome(const QString &key);
    QString problemOf(const Wall &wall) const;
    bool isWhole(const Wall &wall) const;
    QRegion shownParts() const;
    QStringList cardOf(const QString &key) const;
    void layCards();
    void endIdentifying();
    void tellDisplays();

    const ShownOutput &m_shown;
    QWidget &m_window;
    Memory m_memory;
    WallLook m_look;
    QString m_lightWords;
    WantedDisplays m_wanted;
    std::map<QString, Wall> m_walls; ///< by their keys
    QTimer m_identifying;
    QTimer m_nudged; ///< runs while words() says where a display was nudged to
    QString m_nudgedTo;
    std::vector<std::unique_ptr<IdentifyCard>> m_cards; ///< on displays that show no output
    std::function<QSize()> m_panelStep;
    qint64 m_painted = 0; ///< the cache key of the output that was shown last
    QSize m_outputSize;   ///< and its size
};
