#include "facts/ShowChecks.h"

#include "facts/LayerChecks.h"
#include "facts/Load.h"
#include "facts/PlaceChecks.h"
#include "facts/PsdLimits.h"
#include "facts/UnknownValues.h"
#include "facts/WiringChecks.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {
using Level = Finding::Level;

std::optional<Finding> powerUncounted(const Project &project)
{
    if (Load::of(project.layers).isCounted)
        return std::nullopt;
    return Finding{.check = "power-uncounted",
                   .level = Level::Warning,
                   .sentence =
                       "The watts of all walls are beyond what can be counted, and the current with them; lower "
                       "the watts per panel."};
}

std::optional<Finding> outputTooLargeForPsd(const Project &project)
{
    const Result<void> fits = PsdLimits::checkOutputSize(project.outputWidth, project.outputHeight);
    if (fits)
        return std::nullopt;
    return Finding{.check = "output-size-not-for-psd",
                   .level = Level::Warning,
                   .sentence = QString("The show cannot be exported as PSD: %1.").arg(fits.error().text)};
}

std::optional<Finding> unknownValues(const Project &project)
{
    if (!UnknownValues::areIn(project))
        return std::nullopt;
    return Finding{.check = "unknown-values",
                   .level = Level::Note,
                   .sentence = UnknownValues::told(project, "The show") + " Open it with the program that wrote them."};
}

constexpr std::array checks{&powerUncounted, &outputTooLargeForPsd, &unknownValues};

void markMeant(std::vector<Finding> &findings, const std::vector<LayerPointer> &layers)
{
    for (Finding &finding : findings) {
        if (finding.layer && ShowChecks::isMeant(*layers[static_cast<std::size_t>(*finding.layer)], finding.check))
            finding.level = Level::Meant;
    }
}
} // namespace

namespace ShowChecks {

std::vector<Finding> of(const Project &project)
{
    return of(project, ShowPorts::of(project));
}

std::vector<Finding> of(const Project &project, const ShowPorts &ports)
{
    std::vector<Finding> findings;
    const QSize output(project.outputWidth, project.outputHeight);
    for (std::size_t index = 0; index < project.layers.size(); ++index) {
        for (Finding &finding : LayerChecks::all(*project.layers[index], output)) {
            finding.layer = static_cast<qsizetype>(index);
            findings.push_back(std::move(finding));
        }
    }
    std::ranges::move(PlaceChecks::of(project.layers, output), std::back_inserter(findings));
    std::ranges::move(WiringChecks::of(ports), std::back_inserter(findings));
    for (const auto &check : checks) {
        if (std::optional<Finding> finding = check(project))
            findings.push_back(std::move(*finding));
    }
    markMeant(findings, project.layers);
    return findings;
}

bool isMeant(const Layer &layer, const char *check)
{
    const LayerRecordPointer record = layer.record();
    return record->meant && record->meant->contains(QLatin1StringView(check));
}

} // namespace ShowChecks
