#include "live/Pointing.h"

#include <chrono>
#include <utility>

namespace {
constexpr std::chrono::milliseconds untilPicture{500};
/// Lit, and dark: three times in a second and a half.
constexpr std::chrono::milliseconds halfOfBlink{250};
constexpr int blinks = 3;
} // namespace

Pointing::Pointing(PanelAt panelAt, QObject *parent) : QObject(parent), m_panelAt(std::move(panelAt))
{
    m_away.setSingleShot(true);
    m_away.setInterval(untilPicture);
    connect(&m_away, &QTimer::timeout, this, [this] { light(std::nullopt); });
    m_blink.setInterval(halfOfBlink);
    connect(&m_blink, &QTimer::timeout, this, &Pointing::stepBlink);
}

void Pointing::setOn(bool isOn)
{
    if (std::exchange(m_isOn, isOn) == isOn)
        return;
    follow();
    emit changed();
}

void Pointing::setHeld(bool isHeld)
{
    if (std::exchange(m_isHeld, isHeld) == isHeld)
        return;
    follow();
    emit changed();
}

void Pointing::move(const std::optional<QPoint> &pixel)
{
    m_pixel = pixel;
    if (!isActive() || m_blink.isActive())
        return;
    if (!pixel && m_lights && !m_away.isActive())
        m_away.start();
    if (pixel)
        follow();
}

/// Shows what is under the pointer now; nothing where pointing is not active.
void Pointing::follow()
{
    m_away.stop();
    m_blink.stop();
    if (!isActive() || !m_pixel)
        return light(std::nullopt);
    std::vector<WallLight> lights;
    if (const std::optional<WallLight> panel = m_panelAt(*m_pixel))
        lights.push_back(*panel);
    light(std::move(lights));
}

void Pointing::blink(const QRect &place)
{
    if (!isActive())
        return;
    m_away.stop();
    m_blinking = place;
    m_halves = 2 * blinks;
    m_blink.start();
    stepBlink();
}

void Pointing::stepBlink()
{
    if (m_halves == 0)
        return follow();
    const bool isLit = m_halves-- % 2 == 0;
    light(isLit ? std::vector<WallLight>{{m_blinking}} : std::vector<WallLight>());
}

void Pointing::light(std::optional<std::vector<WallLight>> lights)
{
    if (m_lights == lights)
        return;
    m_lights = std::move(lights);
    emit changed();
}
