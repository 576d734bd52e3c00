#include "base/NumberText.h"
#include "live/IdentifyCard.h"
#include "live/LiveOutput.h"
#include "live/WallPicture.h"
#include "live/WallWindow.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

void LiveOutput::setLook(WallLook look)
{
    const std::optional<QRegion> where = WallPicture::difference(m_look, look, picture().size());
    m_look = std::move(look);
    renew(where);
    emit changed(); // also where nothing is frozen for want of a picture: buttons show it
}

void LiveOutput::setBlack(bool isBlack)
{
    WallLook look = m_look;
    look.isBlack = isBlack;
    if (isBlack)
        endIdentifying(); // nothing is over black
    setLook(look);
}

void LiveOutput::setFrozen(bool isFrozen)
{
    WallLook look = m_look;
    look.frozen = isFrozen ? picture() : QImage();
    setLook(look);
}

void LiveOutput::setLevel(int level)
{
    WallLook look = m_look;
    look.level = level;
    setLook(look);
}

void LiveOutput::setLights(const std::optional<std::vector<WallLight>> &lights, const QString &words)
{
    const bool areOthers = std::exchange(m_lightWords, lights ? words : QString()) != m_lightWords;
    WallLook look = m_look;
    look.lights = lights;
    if (m_look != look)
        setLook(look);
    else if (areOthers)
        emit changed();
}

QStringList LiveOutput::cardOf(const QString &key) const
{
    const std::vector<Row> all = rows();
    const auto row = std::ranges::find_if(all, [&](const Row &one) { return one.display.key() == key; });
    if (row == all.end())
        return {};
    QStringList lines{QString("%1: %2").arg(row - all.begin() + 1).arg(row->display.title()),
                      NumberText::size(row->display.pixels)};
    if (row->isOn)
        lines.last() += QString(" from %1, %2").arg(row->region.offset.x()).arg(row->region.offset.y());
    else
        lines.last() += ", no output";
    return lines;
}

void LiveOutput::identify()
{
    m_identifying.start();
    layCards();
    emit changed();
}

/// Displays may come, go and change while they tell which they are.
void LiveOutput::layCards()
{
    m_cards.clear();
    for (QScreen *screen : QGuiApplication::screens()) {
        const QString key = WallDisplay::of(*screen).key();
        const auto wall = m_walls.find(key);
        const bool isOn = wall != m_walls.end() && wall->second.window;
        if (isOn && !m_look.isBlack)
            wall->second.window->setCard(cardOf(key));
        else if (!isOn)
            m_cards.push_back(std::make_unique<IdentifyCard>(*screen, cardOf(key)));
    }
}

void LiveOutput::tellDisplays()
{
    if (isIdentifying())
        layCards();
    emit changed();
}

void LiveOutput::endIdentifying()
{
    m_identifying.stop();
    m_cards.clear();
    for (const auto &[key, wall] : m_walls) {
        if (wall.window)
            wall.window->setCard({});
    }
    emit changed();
}

/// What wins over all else.
QString LiveOutput::shownInWords() const
{
    if (m_look.isBlack)
        return "BLACKOUT";
    if (!m_lightWords.isEmpty())
        return m_lightWords.section(' ', 0, 0);
    if (isFrozen())
        return "FROZEN";
    return m_shown.chart().pictures().empty() ? QString("picture") : QString("chart");
}

std::vector<LiveOutput::Words> LiveOutput::words() const
{
    std::vector<Words> words;
    if (m_look.isBlack)
        words.push_back({"BLACKOUT", true});
    if (!m_lightWords.isEmpty())
        words.push_back({m_lightWords});
    if (isFrozen())
        words.push_back({"FROZEN: the wall shows an older state"});
    if (const LiveChart &chart = m_shown.chart(); !chart.pictures().empty())
        words.push_back({QString("CHART: %1").arg(chart.chart()->title)});
    if (m_look.level != 100)
        words.push_back({QString("WALL AT %1 %").arg(m_look.level)});
    if (isIdentifying())
        words.push_back({"IDENTIFY"});
    if (m_nudged.isActive())
        words.push_back({m_nudgedTo});
    return words;
}

void LiveOutput::nudge(const QString &key, const QPoint &by)
{
    const auto wall = m_walls.find(key);
    if (wall == m_walls.end())
        return;
    WallRegion region = wall->second.region;
    region.offset = WallRegion::within(region.offset + by);
    m_nudgedTo =
        QString("%1 FROM %2, %3").arg(wall->second.display.connector).arg(region.offset.x()).arg(region.offset.y());
    m_nudged.start();
    setRegion(key, region);
}

void LiveOutput::goHome(const QString &key)
{
    if (const auto wall = m_walls.find(key); wall != m_walls.end())
        nudge(key, -wall->second.region.offset);
}

bool LiveOutput::press(const QKeyEvent &event, const QString &display)
{
    const bool isArrow = event.key() == Qt::Key_Home || (event.key() >= Qt::Key_Left && event.key() <= Qt::Key_Down);
    const bool isChord = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (isChord && !isArrow)
        return false;
    if (event.isAutoRepeat() && !isArrow)
        return true; // a key that is held shall not flash the wall
    const QSize panel = m_panelStep ? m_panelStep() : QSize(1, 1);
    const bool isPanel = event.modifiers().testFlag(Qt::ControlModifier);
    const int step = event.modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
    const QSize by = isPanel ? panel : QSize(step, step);
    switch (event.key()) {
    case Qt::Key_Left:
        nudge(display, {-by.width(), 0});
        return true;
    case Qt::Key_Right:
        nudge(display, {by.width(), 0});
        return true;
    case Qt::Key_Up:
        nudge(display, {0, -by.height()});
        return true;
    case Qt::Key_Down:
        nudge(display, {0, by.height()});
        return true;
    case Qt::Key_Home:
        goHome(display);
        return true;
    case Qt::Key_I:
        identify();
        return true;
    case Qt::Key_B:
        setBlack(!m_look.isBlack);
        return true;
    case Qt::Key_F:
        setFrozen(!isFrozen());
        return true;
    case Qt::Key_F11:
        setOn(display, false);
        return true;
    case Qt::Key_Escape:
        event.modifiers().testFlag(Qt::ShiftModifier) ? leaveAll() : setOn(display, false);
        return true;
    default:
        break;
    }
    const int level = event.key() - Qt::Key_1;
    if (level < 0 || level >= std::ssize(levels))
        return false;
    setLevel(levels[static_cast<std::size_t>(level)]);
    return true;
}
