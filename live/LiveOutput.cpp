#include "live/LiveOutput.h"

#include "base/NumberText.h"
#include "live/IdentifyCard.h"
#include "live/WallPicture.h"
#include "live/WallWindow.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {
constexpr std::chrono::seconds identifyTime{3};
constexpr std::chrono::seconds readOutTime{3};
/// The desktop has put a window where it wants it.
constexpr std::chrono::milliseconds untilPlaced{500};

bool isWayland()
{
    return QGuiApplication::platformName().startsWith("wayland");
}
} // namespace

LiveOutput::LiveOutput(const ShownOutput &shown, QWidget &window, Memory memory)
    : m_shown(shown), m_window(window), m_memory(std::move(memory))
{
    m_identifying.setSingleShot(true);
    m_identifying.setInterval(identifyTime);
    connect(&m_identifying, &QTimer::timeout, this, &LiveOutput::endIdentifying);
    m_nudged.setSingleShot(true);
    m_nudged.setInterval(readOutTime);
    connect(&m_nudged, &QTimer::timeout, this, &LiveOutput::changed);
    for (const QScreen *screen : QGuiApplication::screens())
        follow(*screen);
    connect(&shown, &ShownOutput::changed, this, &LiveOutput::showOutput);
    connect(&shown.chart(), &LiveChart::changed, this, &LiveOutput::changed);
    connect(qApp, &QGuiApplication::screenAdded, this, &LiveOutput::addScreen);
    connect(qApp, &QGuiApplication::screenRemoved, this, &LiveOutput::removeScreen);
}

LiveOutput::~LiveOutput() = default;

void LiveOutput::GoAway::operator()(WallWindow *window) const
{
    window->hide();
    window->deleteLater(); // it may be told of a key just now
}

/// The platform puts one that comes back behind all others; whoever counts them counts from the left.
std::vector<QScreen *> LiveOutput::screensByPlace()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    std::vector<QScreen *> all(screens.begin(), screens.end());
    std::ranges::stable_sort(
        all, {}, [](const QScreen *screen) { return std::pair(screen->geometry().x(), screen->geometry().y()); });
    return all;
}

QScreen *LiveOutput::screenOf(const QString &key)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const auto found =
        std::ranges::find_if(screens, [&](const QScreen *screen) { return WallDisplay::of(*screen).key() == key; });
    return found == screens.end() ? nullptr : *found;
}

void LiveOutput::follow(const QScreen &screen)
{
    m_wanted.appear(WallDisplay::of(screen).key());
    connect(&screen, &QScreen::geometryChanged, this, [this, &screen] {
        if (const auto wall = m_walls.find(WallDisplay::of(screen).key()); wall != m_walls.end())
            wall->second.display = WallDisplay::of(screen);
        tellDisplays();
    });
    connect(&screen, &QScreen::refreshRateChanged, this, &LiveOutput::changed);
}

void LiveOutput::addScreen(QScreen *screen)
{
    const QString key = WallDisplay::of(*screen).key();
    follow(*screen);
    if (m_wanted.isShown(key))
        show(key, *screen);
    tellDisplays();
}

void LiveOutput::removeScreen(QScreen *screen)
{
    const QString key = WallDisplay::of(*screen).key();
    m_wanted.vanish(key);
    if (const auto wall = m_walls.find(key); wall != m_walls.end())
        wall->second.window.reset();
    tellDisplays();
}

void LiveOutput::setOn(const QString &key, bool isOn)
{
    QScreen *const screen = screenOf(key);
    if (isOn && screen) {
        m_wanted.want(key);
        show(key, *screen);
    } else if (!isOn) {
        m_wanted.leave(key);
        switchOff(key);
    }
    tellDisplays();
}

void LiveOutput::leaveAll()
{
    m_wanted.leaveAll();
    for (auto &[key, wall] : m_walls)
        wall.window.reset();
    std::erase_if(m_walls, [](const auto &known) { return !known.second.isRegionKept; });
    tellDisplays();
}

/// A region that somebody chose is there again when the display is on again, in a show without a file too.
void LiveOutput::switchOff(const QString &key)
{
    const auto wall = m_walls.find(key);
    if (wall == m_walls.end())
        return;
    wall->second.window.reset();
    if (!wall->second.isRegionKept)
        m_walls.erase(wall);
}

void LiveOutput::show(const QString &key, QScreen &screen)
{
    const auto [place, isNew] = m_walls.try_emplace(key);
    Wall &wall = place->second;
    wall.display = WallDisplay::of(screen);
    if (isNew)
        wall.region = regionFor(key, wall.isRegionKept);
    if (!wall.window) {
        wall.window.reset(new WallWindow(
            [this](const QRect &part) { return WallPicture::draw(picture(), m_look, part); }, &m_window));
        connect(wall.window.get(), &WallWindow::displayDidChange, this, [this, key] { checkPlace(key); });
        connect(wall.window.get(), &WallWindow::closed, this, [this, key] { setOn(key, false); });
        connect(wall.window.get(), &WallWindow::pressed, this, [this, key](QKeyEvent *event) {
            if (press(*event, key))
                event->accept();
        });
    }
    wall.window->setRegion(wall.region);
    wall.window->fill(screen);
    QTimer::singleShot(untilPlaced, wall.window.get(), [this, key] { checkPlace(key); });
}

/// Desktops may put a window on another display than it asked for.
void LiveOutput::checkPlace(const QString &key)
{
    const auto found = m_walls.find(key);
    if (found == m_walls.end() || !found->second.window)
        return;
    Wall &wall = found->second;
    const bool wasElsewhere =
        std::exchange(wall.isElsewhere, wall.window->screen() && WallDisplay::of(*wall.window->screen()).key() != key);
    if (wasElsewhere != wall.isElsewhere)
        emit changed();
}

WallRegion LiveOutput::regionFor(const QString &key, bool &isKept) const
{
    const std::optional<WallRegion> kept = WallRegion::of(m_memory.region(key));
    isKept = kept.has_value();
    return kept.value_or(WallRegion{rightOfOthers(key)});
}

/// A display continues the output where those that are on end.
QPoint LiveOutput::rightOfOthers(const QString &key) const
{
    int right = 0;
    for (const auto &[other, wall] : m_walls) {
        if (other != key && m_wanted.isWanted(other))
            right = std::max(right, wall.region.part(wall.display.pixels).right() + 1);
    }
    return {right, 0};
}

void LiveOutput::takeRegions()
{
    const std::vector<Row> inOrder = rows();
    std::map<QString, Wall> before = std::exchange(m_walls, {});
    for (const Row &row : inOrder) {
        auto taken = before.extract(row.display.key());
        if (taken.empty())
            continue;
        Wall &wall = taken.mapped();
        wall.region = regionFor(taken.key(), wall.isRegionKept);
        if (!wall.isRegionKept && !m_wanted.isWanted(taken.key()))
            continue;
        if (wall.window)
            wall.window->setRegion(wall.region);
        m_walls.insert(std::move(taken));
    }
    emit changed();
}

void LiveOutput::keepRegions()
{
    for (auto &[key, wall] : m_walls) {
        if (wall.isRegionKept)
            m_memory.keep(key, wall.region.text());
    }
}

void LiveOutput::setRegion(const QString &key, const WallRegion &region)
{
    const auto wall = m_walls.find(key);
    if (wall == m_walls.end() || wall->second.region == region)
        return;
    wall->second.region = region;
    wall->second.isRegionKept = true;
    m_memory.keep(key, region.text());
    if (wall->second.window)
        wall->second.window->setRegion(region);
    tellDisplays();
}

std::vector<LiveOutput::Row> LiveOutput::rows() const
{
    std::vector<Row> rows;
    const QString shown = shownInWords();
    const auto add = [&](const QString &key, const WallDisplay &display, bool isConnected) {
        Row row{display, isConnected, m_wanted.isWanted(key)};
        if (const auto wall = m_walls.find(key); wall != m_walls.end()) {
            row.region = wall->second.region;
            row.isRegionKept = wall->second.isRegionKept;
        }
        if (row.isOn && isConnected)
            row.shows = shown;
        rows.push_back(row);
    };
    for (const QScreen *screen : screensByPlace()) {
        const WallDisplay display = WallDisplay::of(*screen);
        if (m_wanted.isConnected(display.key()))
            add(display.key(), display, true);
    }
    for (const QString &key : m_wanted.awaited()) {
        if (const auto wall = m_walls.find(key); wall != m_walls.end())
            add(key, wall->second.display, false);
    }
    return rows;
}

QRegion LiveOutput::shownParts() const
{
    QRegion parts;
    for (const auto &[key, wall] : m_walls) {
        if (m_wanted.isShown(key))
            parts += wall.region.part(wall.display.pixels);
    }
    return parts;
}

bool LiveOutput::isSeen(const QRect &place) const
{
    return shownParts().intersects(place);
}

double LiveOutput::frameRate() const
{
    for (const QString &key : m_wanted.all()) {
        const QScreen *const screen = screenOf(key);
        if (screen && screen->refreshRate() >= 1)
            return screen->refreshRate();
    }
    return 60;
}

QString LiveOutput::problemOf(const Wall &wall) const
{
    const QString &name = wall.display.connector;
    if (!m_wanted.isConnected(wall.display.key()))
        return QString("%1 is gone; the output returns to it when it is back.").arg(name);
    if (QString why = wall.display.whyNotExact(isWayland()); !why.isEmpty())
        return why;
    if (wall.isElsewhere)
        return QString("The output for %1 came up on %2; press I on it to see which display is which.")
            .arg(name, wall.window->screen()->name());
    if (isWhole(wall))
        return {};
    return QString("%1 has %2 pixels, the output %3; the rest is cut or black.")
        .arg(name, NumberText::size(wall.region.part(wall.display.pixels).size()), NumberText::size(picture().size()));
}

/// The displays show all of the output, and this one nothing else.
bool LiveOutput::isWhole(const Wall &wall) const
{
    const QRect output = picture().rect();
    const int slack = wall.display.slack();
    const QRect part = wall.region.part(wall.display.pixels).adjusted(0, 0, -slack, -slack);
    return output.isEmpty() || (output.contains(part) && (QRegion(output) - shownParts()).isEmpty());
}

QString LiveOutput::problem() const
{
    QStringList problems;
    for (const auto &[key, wall] : m_walls) {
        const QString problem = m_wanted.isWanted(key) ? problemOf(wall) : QString();
        if (!problem.isEmpty() && !problems.contains(problem))
            problems.append(problem);
    }
    return problems.join(' ');
}

void LiveOutput::showOutput()
{
    const qint64 before = std::exchange(m_painted, picture().cacheKey());
    if (!isCovered())
        renew(m_shown.output().changes.since(before));
    if (std::exchange(m_outputSize, picture().size()) != picture().size())
        emit changed(); // what does not fit is another now
}

/// Neither the picture nor a chart is seen.
bool LiveOutput::isCovered() const
{
    return m_look.isBlack || m_look.lights || isFrozen();
}

/// Pixels of the output look otherwise; nullopt: any may.
void LiveOutput::renew(const std::optional<QRegion> &where)
{
    for (const auto &[key, wall] : m_walls) {
        if (!wall.window)
            continue;
        if (where)
            wall.window->renew(*where);
        else
            wall.window->update();
    }
}
