#include "app/LWAppDelegate.h"
#include "still/LWStill.h"
#include "windows/charts/ChartChoice.h"
#include "windows/inspector/Inspector.h"

#include <algorithm>

namespace {
/// Of stills that all show a chart: the one that they share.
std::optional<ChartText> sharedChart(const std::vector<LayerPointer> &layers)
{
    const std::optional<QVariant> text = InspectorForm::commonValue(layers, "chart");
    const Result<ChartText> chart = ChartText::parse(text ? text->toString() : QString());
    return chart ? std::optional(*chart) : std::nullopt;
}
} // namespace

/// Only where all that is selected shows a chart.
void Inspector::addChartChoice()
{
    auto *choice = new ChartChoice(Qt::Vertical, LWStill::takesChart);
    m_form->addWide("Chart", choice);
    connect(choice, &ChartChoice::chosen, this, [this, choice] {
        const std::optional<ChartText> before = sharedChart(shownLayers());
        const bool isOther = !before || before->chart != choice->value().chart;
        if (isOther)
            m_document.endTyping(); // each chart is a step, what is turned of one is one
        edit("chart", choice->value().text());
        if (isOther)
            m_document.endTyping();
    });
    m_form->addShow([choice](const std::vector<LayerPointer> &layers) {
        const bool areCharts = std::ranges::all_of(
            layers, [](const LayerPointer &layer) { return !layer->value("chart").toString().isNull(); });
        choice->setVisible(areCharts);
        if (areCharts)
            choice->setValue(sharedChart(layers));
    });
}
