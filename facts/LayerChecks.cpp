#include "facts/LayerChecks.h"

#include "base/NumberText.h"
#include "facts/WallPorts.h"
#include "facts/WallSize.h"
#include "layer/PixelBox.h"
#include "screen/LWScreen.h"
#include "screen/LostWall.h"
#include "still/LWStill.h"

#include <array>
#include <span>

namespace {
using Level = Finding::Level;
using LayerCheck = std::optional<Finding> (*)(const Layer &layer, const QSize &output);

bool isWall(const Layer &layer)
{
    return qobject_cast<const LWScreen *>(&layer) != nullptr;
}

QString sentenceOfMissing(const LWStill &still)
{
    const Address &picture = still.ImageURL();
    const QString path = picture.toLocalFile();
    const QString name = path.isEmpty() ? picture.relative : path;
    if (const std::optional<QString> obstacle = still.pictureObstacle())
        return QString("The picture %1 %2. It stays in the show.").arg(name, *obstacle);
    return QString("The picture %1 is missing or cannot be read; choose it again.").arg(name);
}

std::optional<Finding> pictureMissing(const Layer &layer, const QSize & /*output*/)
{
    const auto *still = qobject_cast<const LWStill *>(&layer);
    if (!still || still->ImageURL().relative.isEmpty() || !still->isPictureMissing())
        return std::nullopt;
    return Finding{.check = "picture-missing", .level = Level::Warning, .sentence = sentenceOfMissing(*still)};
}

/// Hidden walls are in the way of no picture of the output.
std::optional<Finding> wallTooLarge(const Layer &layer, const QSize & /*output*/)
{
    const WallSize size = WallSize::of(layer);
    if (!isWall(layer) || !size.isTooLargeToDraw)
        return std::nullopt;
    return Finding{.check = "wall-too-large",
                   .level = layer.visible() ? Level::Error : Level::Warning,
                   .sentence = LostWall::reason(size.width, size.height) + '.'};
}

std::optional<Finding> outsideOutput(const Layer &layer, const QSize &output)
{
    const PixelBox place = PixelBox::of(layer);
    if (place.isEmpty() || output.isEmpty() || place.meets({{0, output.width()}, {0, output.height()}}))
        return std::nullopt;
    return Finding{.check = "outside-output",
                   .level = Level::Warning,
                   .sentence = QString("It lies wholly outside the output of %1 px; change its left and top.")
                                   .arg(NumberText::size(output))};
}

std::optional<Finding> portOverLimit(const Layer &layer, const QSize & /*output*/)
{
    const LayerRecordPointer record = layer.record();
    const bool isChecked =
        isWall(layer) && record->processor.value_or(QString()).isEmpty(); // that of a processor is told with its ports
    const WallPorts ports = isChecked ? WallPorts::of(layer) : WallPorts();
    if (!ports.isOverLimit)
        return std::nullopt;
    return Finding{.check = "port-over-limit",
                   .level = Level::Error,
                   .port = 1,
                   .sentence = QString("One %1 of panels has %2 px, a port carries %3; raise the pixels per port or "
                                       "make the %1s shorter.")
                                   .arg(ports.lineName(), NumberText::grouped(Counted::limited(ports.linePixels)),
                                        NumberText::grouped(layer.pixelLimit()))};
}

std::optional<Finding> pictureNotChosen(const Layer &layer, const QSize & /*output*/)
{
    const auto *still = qobject_cast<const LWStill *>(&layer);
    const bool isNamed = still && (still->chart() || !still->ImageURL().relative.isEmpty());
    if (!still || isNamed || !still->thumbnail().isNull())
        return std::nullopt;
    return Finding{.check = "picture-not-chosen",
                   .level = Level::Warning,
                   .sentence = "It names no file; choose a picture or remove the layer."};
}

std::optional<Finding> chartNotDrawn(const Layer &layer, const QSize & /*output*/)
{
    const auto *still = qobject_cast<const LWStill *>(&layer);
    const std::optional<Result<ChartText>> chart = still ? still->chart() : std::nullopt;
    if (!chart || *chart)
        return std::nullopt;
    return Finding{.check = "chart-not-drawn",
                   .level = Level::Warning,
                   .sentence = QString("Nothing is drawn: %1; choose another chart or size.").arg(chart->error().text)};
}

std::optional<Finding> wallWithoutPixels(const Layer &layer, const QSize & /*output*/)
{
    const WallSize size = WallSize::of(layer);
    if (!isWall(layer) || size.hasPixels())
        return std::nullopt;
    return Finding{.check = "wall-without-pixels",
                   .level = Level::Warning,
                   .sentence = QString("It has %1 × %2 panels of %3 px; each of these numbers must be 1 or more.")
                                   .arg(NumberText::grouped(layer.col()), NumberText::grouped(layer.row()),
                                        NumberText::size(layer.panelWidth(), layer.panelHeight()))};
}

std::optional<Finding> patternUnknown(const Layer &layer, const QSize & /*output*/)
{
    if (!isWall(layer) || !layer.drawFlowPath() || FlowPattern::ofCode(layer.pattern()))
        return std::nullopt;
    return Finding{
        .check = "pattern-unknown",
        .level = Level::Warning,
        .sentence =
            QString("There is no pattern %1, so no data path is drawn; choose a pattern.").arg(layer.pattern())};
}

constexpr std::array<LayerCheck, 5> editing{&pictureMissing, &chartNotDrawn, &wallTooLarge, &outsideOutput,
                                            &portOverLimit};
constexpr std::array<LayerCheck, 3> claimed{&pictureNotChosen, &wallWithoutPixels, &patternUnknown};

void run(std::span<const LayerCheck> checks, const Layer &layer, const QSize &output, std::vector<Finding> &findings)
{
    for (const LayerCheck check : checks) {
        if (std::optional<Finding> finding = check(layer, output))
            findings.push_back(std::move(*finding));
    }
}
} // namespace

namespace LayerChecks {

std::vector<Finding> whileEditing(const Layer &layer, const QSize &output)
{
    std::vector<Finding> findings;
    run(editing, layer, output, findings);
    return findings;
}

std::vector<Finding> all(const Layer &layer, const QSize &output)
{
    std::vector<Finding> findings = whileEditing(layer, output);
    run(claimed, layer, output, findings);
    return findings;
}

} // namespace LayerChecks
