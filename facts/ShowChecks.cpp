#include "facts/ShowChecks.h"

#include "facts/LayerChecks.h"
#include "facts/Load.h"
#include "facts/PsdLimits.h"
#include "facts/UnknownValues.h"

#include <array>

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
} // namespace

namespace ShowChecks {

std::vector<Finding> of(const Project &project)
{
    std::vector<Finding> findings;
    const QSize output(project.outputWidth, project.outputHeight);
    for (std::size_t index = 0; index < project.layers.size(); ++index) {
        for (Finding &finding : LayerChecks::all(*project.layers[index], output)) {
            finding.layer = static_cast<qsizetype>(index);
            findings.push_back(std::move(finding));
        }
    }
    for (const auto &check : checks) {
        if (std::optional<Finding> finding = check(project))
            findings.push_back(std::move(*finding));
    }
    return findings;
}

} // namespace ShowChecks
