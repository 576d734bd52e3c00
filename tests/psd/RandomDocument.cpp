#include "tests/psd/RandomDocument.h"

#include <QRandomGenerator>

#include <cstddef>

namespace {

constexpr int longestSide = 80;
constexpr qsizetype longestName = 255;

class Dice
{
public:
    explicit Dice(quint32 seed) : m_generator(seed) {}

    int from(int least, int most) { return m_generator.bounded(least, most + 1); }
    bool oneIn(int count) { return from(1, count) == 1; }
    double share() { return m_generator.generateDouble(); }
    template <typename T, std::size_t count>
    T oneOf(const T (&values)[count])
    {
        return values[std::size_t(from(0, int(count) - 1))];
    }

    Colour colour();
    KXPSDBlendMode blendMode();
    float opacity();
    QString name();
    PlannedEffects effects();
    QImage image(const QSize &size);
    QPoint offset(const QSize &image, const QSize &document);

private:
    std::optional<PlannedEffect> effect();
    QRgb pixel();
    QImage straightImage(const QSize &size);
    QImage indexedImage(const QSize &size);

    QRandomGenerator m_generator;
};

Colour Dice::colour()
{
    const auto component = [this] { return oneIn(2) ? share() : oneOf({0.0, 0.25, 0.5, 1.0}); };
    const double red = component();
    const double green = component();
    const double blue = component();
    return {red, green, blue, component()};
}

KXPSDBlendMode Dice::blendMode()
{
    using Mode = KXPSDBlendMode;
    static constexpr Mode modes[] = {
        Mode::normal,      Mode::darken,     Mode::lighten,    Mode::hue,          Mode::saturation,
        Mode::colour,      Mode::luminosity, Mode::multiply,   Mode::screen,       Mode::dissolve,
        Mode::overlay,     Mode::hardLight,  Mode::softLight,  Mode::difference,   Mode::exclusion,
        Mode::colourDodge, Mode::colourBurn, Mode::linearBurn, Mode::linearDodge,  Mode::vividLight,
        Mode::linearLight, Mode::pinLight,   Mode::hardMix,    Mode::darkerColour, Mode::lighterColour};
    return oneOf(modes);
}

float Dice::opacity()
{
    return oneIn(2) ? float(share()) : oneOf({0.0F, 0.2F, 0.5F, 1.0F, 1.0F, 1.0F});
}

QString Dice::name()
{
    const QStringList plain{"a", "Z", "7", " ", "\"", "/", "\n"};
    const QStringList accented{"ä", "É", "ß", "x", "Ω"};
    const QStringList wide{"😀", "字", "e\u0301", "🏳️‍🌈"};
    const QStringList alphabet = oneOf({plain, accented, wide});
    const int pieces = oneOf({0, from(1, 9), from(1, 9), from(1, 9), 255});
    QString name;
    for (int i = 0; i < pieces; ++i) {
        const QString &piece = alphabet[from(0, int(alphabet.size()) - 1)];
        if (name.size() + piece.size() <= longestName)
            name += piece;
    }
    return name;
}

/// One value in three lies outside of what the setters take.
std::optional<PlannedEffect> Dice::effect()
{
    if (oneIn(2))
        return {};
    PlannedEffect effect;
    effect.enabled = oneIn(2);
    effect.size = oneOf({from(0, 250), 250, from(-1000, 1000)});
    effect.angle = oneOf({from(-360, 360), from(-360, 360), from(-1000, 1000)});
    effect.distance = oneOf({from(0, 30000), 30000, from(-100000, 100000)});
    effect.colour = colour();
    effect.secondColour = colour();
    effect.blendMode = blendMode();
    effect.secondBlendMode = blendMode();
    effect.opacity = oneOf({from(0, 100), 100, from(-500, 500)});
    effect.secondOpacity = oneOf({from(0, 100), 100, from(-500, 500)});
    effect.useGlobalLight = oneIn(2);
    effect.style = oneOf({from(0, 5), from(0, 255), from(-100000, 100000)});
    effect.direction = oneOf({from(0, 1), from(0, 255), from(-100000, 100000)});
    return effect;
}

PlannedEffects Dice::effects()
{
    if (oneIn(2))
        return {};
    PlannedEffects effects;
    for (auto *kind : {&effects.dropShadow, &effects.innerShadow, &effects.outerGlow, &effects.innerGlow,
                       &effects.bevel, &effects.solidFill})
        *kind = effect();
    return effects;
}

QRgb Dice::pixel()
{
    const int alpha = oneOf({0, 255, 255, from(0, 255)});
    const int red = from(0, 255);
    const int green = from(0, 255);
    return qRgba(red, green, from(0, 255), alpha);
}

/// Noise, stretches of equal pixels that go on into the next row, or one colour, not premultiplied.
QImage Dice::straightImage(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32);
    const int longestStretch = oneOf({1, 5, 300, size.width() * size.height()});
    QRgb colour = pixel();
    int stretch = longestStretch;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            if (stretch-- == 0) {
                colour = pixel();
                stretch = from(1, longestStretch);
            }
            image.setPixel(x, y, colour);
        }
    }
    return image;
}

QImage Dice::indexedImage(const QSize &size)
{
    QImage image(size, QImage::Format_Indexed8);
    const int colours = from(1, 256);
    image.setColorCount(colours);
    for (int i = 0; i < colours; ++i)
        image.setColor(i, pixel());
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, uint(x > 0 && !oneIn(4) ? image.pixelIndex(x - 1, y) : from(0, colours - 1)));
    }
    return image;
}

QImage Dice::image(const QSize &size)
{
    const auto format = oneOf({QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32,
                               QImage::Format_RGBA8888, QImage::Format_Grayscale8, QImage::Format_Indexed8});
    QImage image = format == QImage::Format_Indexed8 ? indexedImage(size) : straightImage(size).convertToFormat(format);
    if (oneIn(8))
        image.setDevicePixelRatio(2); // says how large an image is to be shown, not how many pixels it has
    return image;
}

/// Anywhere, also outside. An image does not stick out to the left and to the right at once: rows would be longer than
/// the document.
QPoint Dice::offset(const QSize &image, const QSize &document)
{
    int x = oneOf({0, from(-image.width() - 2, document.width() + 2), from(-image.width() / 2, document.width() / 2)});
    const int y =
        oneOf({0, from(-image.height() - 2, document.height() + 2), from(-image.height() / 2, document.height() / 2)});
    if (x < 0 && x + image.width() > document.width())
        x = document.width() - image.width();
    return {x, y};
}

PlannedStep randomStep(Dice &dice, const QSize &document)
{
    PlannedStep step;
    step.kind = dice.oneOf({PlannedStep::AddPicture, PlannedStep::AddPicture, PlannedStep::AddPicture,
                            PlannedStep::AddPicture, PlannedStep::OpenGroup, PlannedStep::CloseGroup});
    step.blendMode = dice.blendMode();
    if (step.kind == PlannedStep::CloseGroup)
        return step;
    step.name = dice.name();
    step.opacity = dice.opacity();
    step.effects = dice.effects();
    step.isOpened = dice.oneIn(2);
    if (step.kind == PlannedStep::OpenGroup)
        return step;
    const bool coversAll = dice.oneIn(4);
    const QSize size(dice.from(1, longestSide), dice.from(1, longestSide * 2));
    step.image = dice.oneIn(50) ? QImage() : dice.image(coversAll ? document : size);
    step.offset = coversAll ? QPoint(0, 0) : dice.offset(step.image.size(), document);
    step.shouldFlip = dice.oneIn(coversAll ? 3 : 8);
    step.shouldUnpremultiply = dice.oneIn(4);
    return step;
}

} // namespace

PlannedDocument randomDocument(quint32 seed)
{
    Dice dice(seed);
    PlannedDocument document;
    document.size = {dice.from(1, longestSide), dice.from(1, longestSide)};
    document.hasTransparentLayers = dice.oneIn(2);
    document.resolutionUnit = dice.from(1, 2);
    document.resolution = dice.oneIn(2) ? float(dice.from(1, 600)) : float(1 + 599 * dice.share());
    document.colorProfile = dice.from(0, 3);
    for (int steps = dice.from(0, 8); steps > 0; --steps)
        document.steps.push_back(randomStep(dice, document.size));
    return document;
}
