#include "show/Redraw.h"

#include <QTimer>

#include <chrono>
#include <utility>

namespace {
constexpr std::chrono::milliseconds gateTime{100};
}

Redraw::Redraw(std::function<void()> compose, std::function<void()> show)
    : m_compose(std::move(compose)), m_show(std::move(show))
{}

void Redraw::update()
{
    m_isBehind = !m_isOpen;
    if (std::exchange(m_isOpen, false))
        m_compose();
    QTimer::singleShot(gateTime, this, &Redraw::openAndCatchUp);
    m_show();
}

void Redraw::openAndCatchUp()
{
    open();
    if (m_isBehind)
        update();
}

void Redraw::catchUp()
{
    if (!m_isBehind)
        return;
    open();
    update();
}
