#include "app/LWAppDelegate.h"
#include "facts/WiredPorts.h"
#include "windows/WindowPerson.h"
#include "windows/inspector/Inspector.h"

#include <QPushButton>

#include <algorithm>

void Inspector::addSignalGroup()
{
    m_form->beginGroup("Signal", InspectorForm::Screens);
    m_form->addChoice("processor", [this] { return processors(); }, {.tip = "What feeds the wall"});
    m_form->addChoice("split",
                      [] {
                          return std::vector<InspectorChoice>{
                              {"Whole lines", "lines"}, {"Panel by panel", "panels"}, {"By hand", "hand"}};
                      },
                      {.text = "Cables", .tip = "How the panels are cut into ports", .name = "Way of splitting"});
    m_form->addSwitch("limitFromProcessor", {.text = "Its limit",
                                             .tip = "Pixels per port are what a port of the processor carries",
                                             .name = "Limit from the processor"});
    m_form->addNumber("firstPort", {.tip = "The port that the wall keeps; 0: the next free one"});
    m_form->addSwitch("goesOn", {.text = "Share a port",
                                 .tip = "The first panels hang on the last port of the wall before, while they fit",
                                 .name = "Going on with the port before"});
    auto *keep = new QPushButton("Keep these ports");
    keep->setToolTip("What other walls do changes them no more");
    connect(keep, &QPushButton::clicked, this, &Inspector::keepPorts);
    m_form->addControl({{}}, keep);
    m_form->addSwitch("portColours", {.text = "Colours", .tip = "Gives the cable of each port a colour of its own"});
    m_form->addSwitch("portNames", {.text = "Names", .tip = "Writes the port's name on its first panel"});
    m_form->addText("portName", {.text = "Form of names", .tip = "{processor} and {port} stand for their names"},
                    "{processor}{port}");
    m_form->addSwitch("panelPlaces", {.text = "Places", .tip = "Panel labels tell the place on the port, A3.12"});
}

/// By name; an empty one is none.
std::vector<InspectorChoice> Inspector::processors() const
{
    std::vector<InspectorChoice> choices{{"None", QString()}};
    for (const ProcessorSettings &settings : m_document.wiring().processors())
        choices.push_back({settings.name + ", " + settings.model, settings.name});
    return choices;
}

/// Of the selected walls; nullopt where no processor feeds them. A show without processors is not wired.
std::optional<WiredPorts> Inspector::wired() const
{
    const std::vector<LayerPointer> layers = m_document.selectedLayers();
    const auto isFed = [](const LayerPointer &layer) { return !ShowProcessors::of(*layer).isEmpty(); };
    if (std::none_of(layers.begin(), layers.end(), isFed))
        return std::nullopt;
    return WiredPorts::of(m_document.wiring().ports(), m_document.arraycontroller().selectionIndexes());
}

void Inspector::keepPorts()
{
    if (const Result<void> kept = m_document.wiring().keepPorts(m_document.arraycontroller().selectionIndexes()); !kept)
        m_person.tellFailure(kept.error().text);
}
