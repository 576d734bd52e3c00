#include "windows/displays/LiveDesk.h"

#include "app/LWAppDelegate.h"
#include "app/Settings.h"
#include "base/NumberText.h"
#include "facts/Load.h"
#include "windows/LayerText.h"
#include "windows/MenuText.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {
/// A show that is in no file keeps nothing.
LiveOutput::Memory memoryOf(LWAppDelegate &document)
{
    return {[&document](const QString &display) {
                const QString &path = document.projectPath();
                return path.isEmpty() ? QString() : Settings::wallRegion(display, path);
            },
            [&document](const QString &display, const QString &region) {
                if (const QString &path = document.projectPath(); !path.isEmpty())
                    Settings::setWallRegion(display, path, region);
            }};
}

qint64 steadyClock()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}
} // namespace

LiveDesk::LiveDesk(LWAppDelegate &document, QWidget &window)
    : m_document(document), m_window(window), m_chart(steadyClock), m_shown(document.composedOutput(), m_chart),
      m_live(m_shown, window, memoryOf(document)), m_pointing([this](const QPoint &pixel) { return lightAt(pixel); })
{
    m_live.setPanelStep([this] { return panelStep(); });
    connect(&document, &LWAppDelegate::composed, &m_shown, &ShownOutput::takeComposed);
    connect(&document, &LWAppDelegate::projectDidSave, this, [this](const QString &path) {
        m_saved = path;
        m_live.keepRegions();
    });
    // The path that has just been saved is that of the same show.
    connect(&document, &LWAppDelegate::projectPathDidChange, this, [this](const QString &path) {
        if (std::exchange(m_saved, {}) != path || path.isEmpty())
            takeShow();
    });
    connect(&m_live, &LiveOutput::changed, this, &LiveDesk::followState);
    connect(&document, &LWAppDelegate::changed, this, &LiveDesk::followShow);
    connect(&m_pointing, &Pointing::changed, this, &LiveDesk::showLights);
    m_walk.setMarks(Settings::wrongPanels()); // the search may take more than one evening
    connect(&m_walk, &WallWalk::marksDidChange, this, &Settings::setWrongPanels);
    connect(&m_walk, &WallWalk::changed, this, &LiveDesk::showLights);
}

LiveDesk::~LiveDesk()
{
    qApp->removeEventFilter(this); // windows of displays go later than what the filter asks
}

void LiveDesk::listenTo(QWidget &canvas)
{
    m_canvas = &canvas;
    qApp->installEventFilter(this);
}

bool LiveDesk::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return takeKey(static_cast<const QKeyEvent &>(*event)) || QObject::eventFilter(watched, event);
    case QEvent::WindowDeactivate:
        m_pointing.setHeld(false);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        // Who points at a panel says "this one", and switches nothing off.
        if (watched == m_canvas && m_pointing.isActive()) {
            emit told("Point is on: a click changes nothing.");
            return true;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

/// Q points as long as it is held while the pointer or the keyboard is on the canvas, and no text is typed.
bool LiveDesk::takeKey(const QKeyEvent &key)
{
    const bool isPress = key.type() == QEvent::KeyPress;
    const bool isHere = m_canvas && (m_canvas->underMouse() || m_canvas->hasFocus());
    if (key.key() != Qt::Key_Q || (!isPress && !m_pointing.isHeld()))
        return false;
    // Another key may have been pressed before Q is let go.
    if (isPress && (key.modifiers() != Qt::NoModifier || !isHere || isTypedIn(QApplication::focusWidget())))
        return false;
    if (!key.isAutoRepeat())
        m_pointing.setHeld(isPress);
    return true;
}

void LiveDesk::followShow()
{
    m_panels.reset();
    if (m_walk.isOn())
        m_walk.setPanels(panels().panels());
    if (const Chart *const chart = m_chart.chart())
        m_chart.setPlaces(placesOfChart(*chart));
}

/// What flashes, and what draws all that walls can, is begun by hand in each show.
void LiveDesk::takeShow()
{
    m_live.takeRegions();
    if (const Chart *const chart = m_chart.chart();
        chart && (chart->flashes || chart->isFullWhite(m_chart.style().options)))
        m_chart.end();
    emit anotherShow();
}

void LiveDesk::showChart(const ChartText &chosen, ChartArea area, bool isOver)
{
    m_chartArea = area;
    m_chart.show(*chosen.chart, {chosen.range, m_live.frameRate(), chosen.options, isOver},
                 placesOfChart(*chosen.chart));
}

/// Walls that a chart over the output or the walls, all or the selected ones, is about.
bool LiveDesk::isInArea(qsizetype row, ChartArea area) const
{
    const std::vector<qsizetype> &selected = m_document.arraycontroller().selectionIndexes();
    return area != ChartArea::SelectedWalls || std::ranges::find(selected, row) != selected.end();
}

/// The topmost wall last. Panels and walls only for a chart that heeds them: others need not be drawn anew when those
/// change.
std::vector<LiveChart::Place> LiveDesk::placesOfChart(const Chart &chart)
{
    const ChartPanels &show = panels();
    const QRect output(0, 0, m_document.OutputWidth(), m_document.OutputHeight());
    const auto place = [&](const QRect &box, const std::vector<ChartPanel> &its, const std::vector<QRect> &walls) {
        LiveChart::Place made{box};
        if (chart.needsPanels)
            made.panels = its;
        if (chart.heedsWalls)
            made.walls = walls;
        return made;
    };
    if (m_chartArea == ChartArea::Output)
        return {place(output, show.panels(), show.boxes())};
    std::vector<LiveChart::Place> places;
    for (const ChartPanels::Wall &wall : show.walls) {
        if (isInArea(wall.row, m_chartArea) && wall.box.intersects(output))
            places.insert(places.begin(), place(wall.box, wall.panels, {wall.box}));
    }
    return places;
}

QString LiveDesk::power(ChartArea area) const
{
    std::vector<LayerPointer> lit;
    for (qsizetype row = 0; row < std::ssize(m_document.allScreensArray()); ++row) {
        if (isInArea(row, area))
            lit.push_back(m_document.arraycontroller().layer(row));
    }
    const Load load = Load::of(lit);
    return load.watts > 0 || !load.isCounted ? LayerText::load(lit, m_document.voltageCalc(), m_document.phaseCalc())
                                             : QString();
}

const ChartPanels &LiveDesk::panels()
{
    if (!m_panels)
        m_panels = ChartPanels::of(m_document.allScreensArray(), m_document.wiring().ports());
    return *m_panels;
}

void LiveDesk::pointAt(const std::optional<QPoint> &pixel)
{
    m_pointer = pixel;
    m_pointing.move(pixel);
}

/// The topmost; null where there is none.
const ChartPanel *LiveDesk::panelAt(const QPoint &pixel)
{
    if (!m_shown.output().picture.valid(pixel))
        return nullptr;
    for (const ChartPanels::Wall &wall : panels().walls) {
        const auto panel =
            std::ranges::find_if(wall.panels, [&](const ChartPanel &one) { return one.box.contains(pixel); });
        if (panel != wall.panels.end())
            return &*panel;
    }
    return nullptr;
}

std::optional<WallLight> LiveDesk::lightAt(const QPoint &pixel)
{
    const ChartPanel *const panel = panelAt(pixel);
    if (!panel)
        return std::nullopt;
    QStringList words{panel->name.trimmed()};
    if (panel->number > 0)
        words.append(panel->port + '.' + QString::number(panel->number));
    words.removeAll(QString());
    return WallLight{panel->box, words, true};
}

void LiveDesk::blink(int row)
{
    const auto &walls = panels().walls;
    const auto wall = std::ranges::find(walls, qsizetype{row}, &ChartPanels::Wall::row);
    if (wall != walls.end())
        m_pointing.blink(wall->box);
}

/// Who points comes before who walks.
void LiveDesk::showLights()
{
    if (!std::exchange(m_wasWalking, m_walk.isOn()) && m_walk.isOn())
        m_walk.setPanels(panels().panels());
    if (const auto &pointed = m_pointing.lights()) {
        m_live.setLights(pointed, "POINT");
        tellUnseen(pointed->empty() ? nullptr : &pointed->front());
    } else if (const std::optional<WallLight> light = m_walk.light()) {
        m_live.setLights(std::vector{*light}, "WALK " + m_walk.walk().words());
        tellUnseen(&*light);
    } else {
        m_live.setLights(std::nullopt);
        tellUnseen(nullptr);
    }
}

/// Once for each place.
void LiveDesk::tellUnseen(const WallLight *light)
{
    const QRect place = light && !m_live.isSeen(light->place) ? light->place : QRect();
    if (std::exchange(m_unseen, place) != place && !place.isNull())
        emit told(
            QString("No display shows %1.").arg(light->words.isEmpty() ? QString("it") : light->words.join(", ")));
}

void LiveDesk::followState()
{
    if (!m_awake && m_live.isAnyOn())
        m_awake = ScreenAwake::ofDesktop();
    if (m_awake)
        m_awake->keep(m_live.isAnyOn());
    m_chart.setRate(m_live.frameRate());
}

/// Of the wall under the pointer, else of the selected one.
QSize LiveDesk::panelStep()
{
    if (const ChartPanel *const panel = m_pointer ? panelAt(*m_pointer) : nullptr)
        return panel->box.size();
    const LayerPointer selected = m_document.arraycontroller().selectedLayer();
    if (!selected || selected->kind() != LayerKind::Wall)
        return {1, 1};
    return QSize(selected->panelWidth(), selected->panelHeight()).expandedTo({1, 1});
}

void LiveDesk::toggle(const QString &key)
{
    m_last = key;
    m_live.setOn(key, !m_live.isOn(key));
}

void LiveDesk::toggleLast()
{
    const std::vector<LiveOutput::Row> rows = m_live.rows();
    const auto isLast = [this](const LiveOutput::Row &row) { return row.display.key() == m_last; };
    if (std::ranges::any_of(rows, isLast))
        return toggle(m_last);
    const QString here = WallDisplay::of(*m_window.screen()).key();
    const auto isOther = [&](const LiveOutput::Row &row) { return row.display.key() != here; };
    const auto other = std::ranges::find_if(rows, isOther);
    toggle(other == rows.end() ? here : other->display.key());
}

void LiveDesk::listIn(QMenu &menu)
{
    menu.clear();
    int number = 0;
    for (const LiveOutput::Row &row : m_live.rows()) {
        const QString name = QString("&%1: %2, %3")
                                 .arg(++number)
                                 .arg(menuText(row.display.title()), NumberText::size(row.display.pixels));
        QAction *action = menu.addAction(name, this, [this, key = row.display.key()] { toggle(key); });
        action->setCheckable(true);
        action->setChecked(row.isOn);
    }
}
