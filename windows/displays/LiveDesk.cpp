#include "windows/displays/LiveDesk.h"

#include "app/LWAppDelegate.h"
#include "app/Settings.h"
#include "base/NumberText.h"
#include "windows/MenuText.h"

#include <QMenu>
#include <QWidget>

#include <algorithm>

namespace {
/// A show that is in no file keeps nothing.
LiveOutput::Memory memoryOf(LWAppDelegate &document)
{
    return {[&document](const QString &display) {
                const QString path = document.projectPath();
                return path.isEmpty() ? QString() : Settings::wallRegion(display, path);
            },
            [&document](const QString &display, const QString &region) {
                if (const QString path = document.projectPath(); !path.isEmpty())
                    Settings::setWallRegion(display, path, region);
            }};
}
} // namespace

LiveDesk::LiveDesk(LWAppDelegate &document, QWidget &window)
    : m_document(document), m_window(window), m_live(document.composedOutput(), window, memoryOf(document))
{
    m_live.setPanelStep([this] { return panelOfSelected(); });
    connect(&document, &LWAppDelegate::composed, &m_live, &LiveOutput::showOutput);
    connect(&document, &LWAppDelegate::projectDidSave, &m_live, &LiveOutput::keepRegions);
    connect(&document, &LWAppDelegate::projectPathDidChange, &m_live, &LiveOutput::takeRegions);
    connect(&m_live, &LiveOutput::changed, this, &LiveDesk::followState);
}

void LiveDesk::followState()
{
    if (!m_awake && m_live.isAnyOn())
        m_awake = std::make_unique<ScreenAwake>(QDBusConnection::sessionBus());
    if (m_awake)
        m_awake->keep(m_live.isAnyOn());
}

QSize LiveDesk::panelOfSelected() const
{
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
