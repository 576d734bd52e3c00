#include "windows/ports/CableMenu.h"

#include "app/LWAppDelegate.h"
#include "layer/PixelBox.h"
#include "screen/LWScreen.h"
#include "windows/MenuText.h"

#include <QInputDialog>
#include <QMenu>

#include <algorithm>

namespace {
using Runs = PortEdits::ShowRuns;

std::optional<CableHand::Panel> panelAt(const std::vector<LayerPointer> &layers, const QPoint &pixel)
{
    const auto isThere = [&](const LayerPointer &layer) {
        return layer->visible() && PixelBox::of(*layer).contains(pixel);
    };
    const auto found = std::ranges::find_if(layers, isThere);
    const auto *wall = found == layers.end() ? nullptr : qobject_cast<const LWScreen *>(found->get());
    const auto cell = wall ? wall->panelAt(pixel.x(), pixel.y()) : std::nullopt;
    return cell ? std::optional(CableHand::Panel{*found, *cell}) : std::nullopt;
}

/// Of a processor; where nobody says how many, as many as any may have.
int portCount(const ShowProcessors::Processors &processors, const QString &name)
{
    const ProcessorSettings *const settings = ShowProcessors::find(processors, name);
    const ProcessorModel *const model = settings ? catalogueOf(*settings).model(settings->model) : nullptr;
    return model && model->ports > 0 ? model->ports : static_cast<int>(PortPairs::mostPorts);
}
} // namespace

CableMenu::CableMenu(LWAppDelegate &document, Tell tell) : m_document(document), m_tell(std::move(tell)) {}

void CableMenu::fill(QMenu &menu, const QPoint &pixel) const
{
    const auto panel = panelAt(m_document.allScreensArray(), pixel);
    if (!panel)
        return;
    if (const auto port = CableHand::portAt(*panel))
        fillForPort(menu, *panel, *port);
    fillForWall(menu, *panel);
    menu.addSeparator();
}

void CableMenu::addEdit(QMenu &menu, const QString &text, const QString &name, const Wiring::CableEdit &edit) const
{
    menu.addAction(menuText(text), [&document = m_document, tell = m_tell, name, edit] {
        tell(document.wiring().editCables(name, edit));
    });
}

void CableMenu::addEditWithPort(QMenu &menu, const QString &text, const QString &name, const PortName &port,
                                std::function<Result<Runs>(const Runs &, const PortName &)> edit) const
{
    QWidget *const window = menu.parentWidget();
    const int most = portCount(m_document.wiring().processors(), port.processor);
    menu.addAction(menuText(text) + "...",
                   [&document = m_document, tell = m_tell, text, name, port, edit, window, most] {
                       bool isChosen = false;
                       const int number = QInputDialog::getInt(window, text, "Port of processor " + port.processor,
                                                               static_cast<int>(port.number), 1, most, 1, &isChosen);
                       const PortName chosen{port.processor, number};
                       if (!isChosen)
                           return;
                       tell(document.wiring().editCables(name, [&](const Runs &runs) { return edit(runs, chosen); }));
                   });
}

void CableMenu::fillForPort(QMenu &menu, const CableHand::Panel &panel, const PortName &port) const
{
    const auto &layers = m_document.allScreensArray();
    const auto wall = static_cast<std::size_t>(std::ranges::find(layers, panel.wall) - layers.begin());
    const PortEdits::WallCell at{wall, panel.cell};
    const QString called = port.text();
    addEdit(menu, "Reverse " + called, "reversing of a cable",
            [port](const Runs &runs) { return PortEdits::reverse(runs, port); });
    addEdit(menu, "Split " + called + " here", "splitting of a cable",
            [at, free = m_document.wiring().cables().freePort(port.processor, panel.wall)](const Runs &runs) {
                return PortEdits::splitHere(runs, at, free);
            });
    addEdit(menu, "Join " + called + " with the next port", "joining of cables",
            [port](const Runs &runs) { return PortEdits::joinWithNext(runs, port); });
    addEditWithPort(menu, called + " takes port", "port of a cable", port,
                    [port](const Runs &runs, const PortName &to) { return PortEdits::takePort(runs, port, to); });
    addEditWithPort(
        menu, "Renumber from " + called, "numbers of ports", port,
        [port](const Runs &runs, const PortName &to) { return PortEdits::renumberFrom(runs, port, to.number); });
    addEditWithPort(menu, "Exchange " + called + " with port", "exchanging of ports", port,
                    [port](const Runs &runs, const PortName &to) { return PortEdits::exchange(runs, port, to); });
    QMenu *others = menu.addMenu("Move " + menuText(called) + " to processor");
    for (const ProcessorSettings &settings : m_document.wiring().processors()) {
        if (settings.name != port.processor)
            addEdit(*others, settings.name + ", " + settings.model, "processor of a cable",
                    [port, name = settings.name](const Runs &runs) {
                        return PortEdits::moveToProcessor(runs, {port}, name);
                    });
    }
    others->menuAction()->setVisible(!others->isEmpty());
    addEdit(menu, "Clear " + called, "clearing of a cable",
            [port](const Runs &runs) { return PortEdits::clear(runs, port); });
}

void CableMenu::fillForWall(QMenu &menu, const CableHand::Panel &panel) const
{
    const auto &layers = m_document.allScreensArray();
    const qsizetype row = std::ranges::find(layers, panel.wall) - layers.begin();
    if (panel.wall->record()->split != CableSplit::Hand) {
        menu.addAction("Take the automatic cables as mine", [&document = m_document, tell = m_tell, row] {
            tell(document.wiring().takeAsLaidByHand({row}));
        });
        return;
    }
    menu.addAction("Feed panels that are not fed",
                   [&document = m_document, tell = m_tell, row] { tell(document.wiring().feed(row)); });
    menu.addAction("Back to automatic cables", [&document = m_document] {
        document.setValueOfSelection("lines", LayerList::keyPathPrefix + QString("split"));
    });
}
