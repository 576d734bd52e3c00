#include "bench/LiveSubjects.h"

#include "drawing/Raster.h"
#include "live/Pointing.h"
#include "live/ShownOutput.h"
#include "live/WallPicture.h"
#include "live/WallWindow.h"

#include <QCoreApplication>

#include <algorithm>
#include <memory>
#include <utility>

namespace {
constexpr QSize eightK(7680, 4320);
constexpr int side = 120;
constexpr qint64 frameTime = 20'000'000;

/// A display window that is painted as those of the program are.
class PaintedDisplay
{
public:
    PaintedDisplay()
    {
        composed.picture = QImage(eightK, Raster::format);
        composed.picture.fill(Qt::darkGray);
        composed.isOpaque = true;
        for (int y = 0; y < eightK.height(); y += side) {
            for (int x = 0; x < eightK.width(); x += side)
                panels.push_back({QRect(x, y, side, side), {QString("A%1").arg(x), "A3.12"}, true});
        }
        QObject::connect(&pointing, &Pointing::changed, &window, [this] { showLights(); });
        QObject::connect(&shown, &ShownOutput::changed, &window, [this] { showOutput(); });
        window.resize(eightK);
        window.show();
        QCoreApplication::processEvents();
    }

    void pointToNext()
    {
        m_pointed = (m_pointed + 1) % panels.size();
        pointing.move(panels[m_pointed].place.center());
        QCoreApplication::processEvents();
    }
    void showNextFrame()
    {
        now += frameTime;
        chart.tick();
        QCoreApplication::processEvents();
    }

    qint64 now = 0;
    ComposedOutput composed;
    LiveChart chart{[this] { return now; }};
    ShownOutput shown{composed, chart};
    WallLook look;
    std::vector<WallLight> panels;
    Pointing pointing{[this](const QPoint &pixel) { return panelAt(pixel); }};
    WallWindow window{[this](const QRect &part) { return WallPicture::draw(shown.output().picture, look, part); }};

private:
    std::optional<WallLight> panelAt(const QPoint &pixel) const
    {
        const auto panel = std::ranges::find_if(panels, [&](const auto &one) { return one.place.contains(pixel); });
        return panel == panels.end() ? std::nullopt : std::optional(*panel);
    }
    void showLights()
    {
        WallLook next = look;
        next.lights = pointing.lights();
        const std::optional<QRegion> where = WallPicture::difference(look, next, eightK);
        look = std::move(next);
        window.renew(where.value_or(QRect({}, eightK)));
    }
    void showOutput()
    {
        const std::optional<QRegion> where = shown.output().changes.since(std::exchange(m_painted, key()));
        window.renew(where.value_or(QRect({}, eightK)));
    }
    qint64 key() const { return shown.output().picture.cacheKey(); }

    std::size_t m_pointed = 0;
    qint64 m_painted = 0;
};

qint64 bytesOfOutput()
{
    return qint64{4} * eightK.width() * eightK.height();
}
} // namespace

Subject LiveSubjects::pointing()
{
    const auto display = std::make_shared<PaintedDisplay>();
    display->pointing.setOn(true);
    display->pointToNext();
    return {bytesOfOutput(), [display] { display->pointToNext(); }};
}

Subject LiveSubjects::frame()
{
    const auto display = std::make_shared<PaintedDisplay>();
    LiveChart::Style style;
    style.rate = 50;
    display->chart.show(*Chart::find("sweep"), style, {{QRect({}, eightK)}});
    return {bytesOfOutput(), [display] { display->showNextFrame(); }};
}
