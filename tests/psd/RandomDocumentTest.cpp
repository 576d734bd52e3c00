#include "tests/psd/RandomDocument.h"

#include "psd/KXPSDWriter.h"
#include "tests/psd/ExpectedDocument.h"
#include "tests/psd/LayeredDocument.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>

namespace {

constexpr quint32 documents = 2000;

template <typename Effect>
Effect anyEffect(const PlannedEffect &planned)
{
    Effect effect;
    effect.setEnabled(planned.enabled);
    effect.setColor(planned.colour);
    effect.setBlendMode(planned.blendMode);
    effect.setOpacity(planned.opacity);
    if constexpr (requires { effect.setSize(0); })
        effect.setSize(planned.size);
    if constexpr (requires { effect.setDistance(0); }) {
        effect.setAngle(planned.angle);
        effect.setDistance(planned.distance);
        effect.setUseGlobalLight(planned.useGlobalLight);
    }
    if constexpr (requires { effect.setSource(0); })
        effect.setSource(planned.style);
    return effect;
}

template <>
KXPSDBevelEffectLayerInformation anyEffect(const PlannedEffect &planned)
{
    KXPSDBevelEffectLayerInformation effect;
    effect.setEnabled(planned.enabled);
    effect.setAngle(planned.angle);
    effect.setSize(planned.size);
    effect.setHighlightBlendMode(planned.blendMode);
    effect.setShadowBlendMode(planned.secondBlendMode);
    effect.setHighlightColor(planned.colour);
    effect.setShadowColor(planned.secondColour);
    effect.setStyle(planned.style);
    effect.setHighlightOpacity(planned.opacity);
    effect.setShadowOpacity(planned.secondOpacity);
    effect.setUseGlobalLight(planned.useGlobalLight);
    effect.setDirection(planned.direction);
    return effect;
}

template <typename Effect>
void give(std::optional<Effect> &effect, const std::optional<PlannedEffect> &planned)
{
    if (planned)
        effect = anyEffect<Effect>(*planned);
}

void giveEffects(KXPSDLayer &layer, const PlannedEffects &planned)
{
    give(layer.effects().dropShadowEffectLayerInformation, planned.dropShadow);
    give(layer.effects().innerShadowEffectLayerInformation, planned.innerShadow);
    give(layer.effects().outerGlowEffectLayerInformation, planned.outerGlow);
    give(layer.effects().innerGlowEffectLayerInformation, planned.innerGlow);
    give(layer.effects().bevelEffectLayerInformation, planned.bevel);
    give(layer.effects().solidFillEffectLayerInformation, planned.solidFill);
}

void takeStep(KXPSDWriter &writer, const PlannedStep &step)
{
    if (step.kind == PlannedStep::CloseGroup) {
        if (const auto layer = writer.closeCurrentGroupLayer())
            layer->setBlendMode(step.blendMode);
        return;
    }
    const auto layer = step.kind == PlannedStep::OpenGroup
                           ? writer.openGroupLayerWithName(step.name, step.opacity, step.isOpened)
                           : writer.addLayerWithCGImage(step.image, step.name, step.opacity, step.offset);
    layer->setBlendMode(step.blendMode);
    layer->setShouldFlipLayerData(step.shouldFlip);
    layer->setShouldUnpremultiplyLayerData(step.shouldUnpremultiply);
    giveEffects(*layer, step.effects);
}

QByteArray fileOf(const PlannedDocument &planned, KXPSDError &error)
{
    KXPSDWriter writer(planned.size, planned.resolution, planned.resolutionUnit, planned.hasTransparentLayers, {});
    writer.setColorProfile(planned.colorProfile);
    for (const PlannedStep &step : planned.steps)
        takeStep(writer, step);
    return writer.createPSDDataWithError(&error);
}

void expectSamePlanes(const std::vector<QByteArray> &read, const std::vector<QByteArray> &expected)
{
    ASSERT_EQ(read.size(), expected.size());
    for (std::size_t channel = 0; channel < read.size(); ++channel) {
        ASSERT_EQ(read[channel].size(), expected[channel].size());
        const auto [difference, other] =
            std::mismatch(read[channel].begin(), read[channel].end(), expected[channel].begin());
        EXPECT_TRUE(difference == read[channel].end())
            << "channel " << channel << ", sample " << difference - read[channel].begin() << ": "
            << int(quint8(*difference)) << ", not " << int(quint8(*other));
    }
}

void expectSameLayer(const LayeredDocument::Layer &read, const LayeredDocument::Layer &expected)
{
    EXPECT_EQ(read.name.toStdString(), expected.name.toStdString());
    EXPECT_EQ(read.section, expected.section);
    EXPECT_EQ(read.opacity, expected.opacity);
    EXPECT_EQ(read.blendMode.toStdString(), expected.blendMode.toStdString());
    ASSERT_EQ(read.effects.has_value(), expected.effects.has_value());
    if (read.effects) {
        EXPECT_TRUE(read.effects->dropShadow == expected.effects->dropShadow);
        EXPECT_TRUE(read.effects->innerShadow == expected.effects->innerShadow);
        EXPECT_TRUE(read.effects->outerGlow == expected.effects->outerGlow);
        EXPECT_TRUE(read.effects->innerGlow == expected.effects->innerGlow);
        EXPECT_TRUE(read.effects->bevel == expected.effects->bevel);
        EXPECT_TRUE(read.effects->solidFill == expected.effects->solidFill);
    }
    expectSamePlanes(read.planes, expected.planes);
}

void expectSame(const LayeredDocument &read, const LayeredDocument &expected)
{
    EXPECT_EQ(QSize(read.width, read.height), QSize(expected.width, expected.height));
    EXPECT_EQ(read.channels, expected.channels);
    EXPECT_EQ(read.horizontalResolution, expected.horizontalResolution);
    EXPECT_EQ(read.verticalResolution, expected.verticalResolution);
    EXPECT_EQ(read.resolutionUnit, expected.resolutionUnit);
    EXPECT_TRUE(read.colourProfile == expected.colourProfile);
    ASSERT_EQ(read.layers.size(), expected.layers.size());
    for (std::size_t i = 0; i < read.layers.size(); ++i) {
        SCOPED_TRACE("layer " + std::to_string(i));
        expectSameLayer(read.layers[i], expected.layers[i]);
    }
    SCOPED_TRACE("the merged image");
    expectSamePlanes(read.merged, expected.merged);
}

void expectReadBack(const PlannedDocument &planned)
{
    const LayeredDocument expected = expectedDocument(planned);
    KXPSDError error;
    const QByteArray file = fileOf(planned, error);
    if (expected.layers.empty()) {
        EXPECT_TRUE(file.isEmpty());
        EXPECT_EQ(error.code, KXPSDError::NoVisibleLayers);
        return;
    }
    const Result<LayeredDocument> read = LayeredDocument::read(file);
    ASSERT_TRUE(read.has_value()) << qPrintable(read.error().text);
    expectSame(*read, expected);
}

/// How often things occur in the random documents.
std::map<std::string, int> occurrences()
{
    std::map<std::string, int> count;
    for (quint32 seed = 1; seed <= documents; ++seed) {
        const PlannedDocument planned = randomDocument(seed);
        const QRect document(QPoint(0, 0), planned.size);
        const std::vector<LayeredDocument::Layer> layers = expectedDocument(planned).layers;
        count["document without visible layers"] += layers.empty();
        for (const LayeredDocument::Layer &layer : layers) {
            count["group"] += layer.section == LayeredDocument::GroupBound;
            count["opened group"] += layer.section == LayeredDocument::OpenedGroup;
            count["effects"] += layer.effects.has_value();
            count["longest name"] += layer.name.size() == 255;
        }
        for (const PlannedStep &step : planned.steps) {
            if (step.image.isNull())
                continue;
            const QRect place(step.offset, step.image.size());
            const bool isVisible = document.intersects(place);
            count["format " + std::to_string(step.image.format())] += 1;
            count["layer outside"] += !isVisible;
            count["layer inside"] += document.contains(place);
            count["layer over the left edge"] += isVisible && place.left() < 0;
            count["layer over the right edge"] += isVisible && place.right() > document.right();
            count["layer over top and bottom"] += isVisible && place.top() < 0 && place.bottom() > document.bottom();
            count["layer upside down"] += isVisible && step.shouldFlip;
            count["unpremultiplied layer"] += isVisible && step.shouldUnpremultiply;
        }
    }
    return count;
}

} // namespace

TEST(RandomDocument, IsReadBackAsItWasPutIn)
{
    for (quint32 seed = 1; seed <= documents; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        expectReadBack(randomDocument(seed));
        if (HasFailure())
            return;
    }
}

TEST(RandomDocument, HasSomeOfEverything)
{
    const std::map<std::string, int> count = occurrences();
    EXPECT_EQ(count.size(), 18U);
    for (const auto &[what, times] : count)
        EXPECT_GE(times, 50) << what;
}
