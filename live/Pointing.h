#pragma once

#include "live/WallLook.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

/// Lights the panel under the pointer on the wall, while it is switched on or a key is held. Main thread only.
class Pointing final : public QObject
{
    Q_OBJECT

public:
    /// The topmost panel at a pixel of the output, from its top left; nullopt: there is none.
    using PanelAt = std::function<std::optional<WallLight>(const QPoint &pixel)>;

    explicit Pointing(PanelAt panelAt, QObject *parent = nullptr);

    /// The switch.
    void setOn(bool isOn);
    bool isOn() const { return m_isOn; }
    /// The key, which does what the switch does as long as it is held.
    void setHeld(bool isHeld);
    bool isHeld() const { return m_isHeld; }
    bool isActive() const { return m_isOn || m_isHeld; }

    /// Where the pointer is on the canvas; nullopt: it has left it, and in half a second the picture is back.
    void move(const std::optional<QPoint> &pixel);
    /// Lights a place three times in a second and a half, where pointing is active.
    void blink(const QRect &place);

    /// What is lit, the rest is black; nullopt: the picture is there.
    const std::optional<std::vector<WallLight>> &lights() const { return m_lights; }

signals:
    /// lights() or isActive() is another now.
    void changed();

private:
    void light(std::optional<std::vector<WallLight>> lights);
    void follow();
    void stepBlink();

    PanelAt m_panelAt;
    bool m_isOn = false;
    bool m_isHeld = false;
    std::optional<QPoint> m_pixel; ///< where the pointer is
    std::optional<std::vector<WallLight>> m_lights;
    QTimer m_away; ///< runs since the pointer has left
    QTimer m_blink;
    QRect m_blinking;
    int m_halves = 0; ///< of blinks that are still to come
};
