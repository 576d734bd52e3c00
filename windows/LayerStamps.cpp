#include "windows/LayerStamps.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

using namespace std::chrono_literals;

namespace {
/// More rows than any screen shows.
constexpr int mostStamps = 256;
/// A stamp that is made of this many pixels looks as one that is made of all.
constexpr double mostPixelsRead = 2'000'000;
/// A hand that draws or types wants another stamp more often than this; they are made when it rests.
constexpr auto rest = 80ms;

QImage stampOf(const QImage &picture, const QSize &size, qreal devicePixelRatio)
{
    if (picture.isNull() || size.isEmpty())
        return {};
    const double excess = double(picture.width()) * picture.height() / mostPixelsRead;
    const QImage sample = excess > 1 ? picture.scaled(picture.size() / std::sqrt(excess)) : picture;
    QImage stamp = sample.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    stamp.setDevicePixelRatio(devicePixelRatio);
    return stamp;
}
} // namespace

LayerStamps::LayerStamps(const QSize &size, IsInSight isInSight, QObject *parent)
    : QObject(parent), m_size(size), m_isInSight(std::move(isInSight)), m_stamps(mostStamps)
{
    m_idle.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, &LayerStamps::makeNext);
}

QImage LayerStamps::of(const QModelIndex &row, const LayerPointer &layer, qreal devicePixelRatio)
{
    const Stamp *const stamp = lastOf(*layer);
    if (!stamp || stamp->subject != subjectOf(*layer, devicePixelRatio))
        want(row, layer, devicePixelRatio, stamp ? rest : 0ms);
    return stamp ? stamp->image : QImage();
}

LayerStamps::Subject LayerStamps::subjectOf(const Layer &layer, qreal devicePixelRatio) const
{
    const QSizeF shown(layer.screenSizeWidth(), layer.screenSizeHeight());
    if (shown.isEmpty())
        return {layer.shownLook(), {}};
    const QSizeF fitted = shown.scaled(QSizeF(m_size) * devicePixelRatio, Qt::KeepAspectRatio);
    return {layer.shownLook(), fitted.toSize().expandedTo({1, 1})};
}

const LayerStamps::Stamp *LayerStamps::lastOf(const Layer &layer) const
{
    const Stamp *const last = m_stamps.object(&layer);
    return last && last->layer.lock().get() == &layer ? last : nullptr;
}

void LayerStamps::want(const QModelIndex &row, const LayerPointer &layer, qreal devicePixelRatio,
                       std::chrono::milliseconds delay)
{
    std::erase_if(m_wanted, [&](const Wanted &wanted) { return wanted.row == row; });
    m_wanted.push_back({row, layer, devicePixelRatio});
    const bool isSoonDue = m_idle.isActive() && m_idle.intervalAsDuration() < delay;
    if (!isSoonDue)
        m_idle.start(delay);
}

void LayerStamps::forgetGoneLayers()
{
    for (const Layer *const layer : m_stamps.keys()) {
        if (m_stamps.object(layer)->layer.expired())
            m_stamps.remove(layer);
    }
}

void LayerStamps::makeNext()
{
    bool isMade = false;
    while (!isMade && !m_wanted.empty()) {
        const Wanted next = std::move(m_wanted.front());
        m_wanted.pop_front();
        const auto layer = next.layer.lock();
        if (!layer || !next.row.isValid() || !m_isInSight(next.row))
            continue;
        isMade = make(layer, next.devicePixelRatio);
        emit ready(next.row);
    }
    if (!m_wanted.empty())
        m_idle.start(0);
}

/// The picture comes first: what waits in its file looks otherwise until then.
bool LayerStamps::make(const std::shared_ptr<const Layer> &layer, qreal devicePixelRatio)
{
    const QImage picture = layer->thumbnail();
    const Subject subject = subjectOf(*layer, devicePixelRatio);
    if (const Stamp *const last = lastOf(*layer); last && last->subject == subject)
        return false;
    m_stamps.insert(layer.get(), new Stamp{layer, subject, stampOf(picture, subject.size, devicePixelRatio)});
    return true;
}
