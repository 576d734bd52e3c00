#include "tests/psd/ReadEffects.h"

namespace {

LayeredDocument::FileColour readColour(DocumentCursor &file)
{
    file.expect(0, 2, "a colour's space");
    LayeredDocument::FileColour colour{};
    for (quint16 &component : colour)
        component = quint16(file.number(2, "a colour"));
    file.expect(0, 2, "a colour's fourth component");
    return colour;
}

void expectColour(DocumentCursor &file, const LayeredDocument::FileColour &colour)
{
    const qsizetype place = file.position();
    if (readColour(file) != colour)
        file.refuse(place, "the second colour is not the first");
}

bool readFlag(DocumentCursor &file, const char *what)
{
    return file.number(1, 0, 1, what) == 1;
}

/// The head of a record: returns where it ends.
qsizetype readHead(DocumentCursor &file, const QByteArray &key, quint32 size, quint32 version)
{
    file.key({"8BIM"}, "an effect's signature");
    file.key({key}, "an effect's key");
    file.expect(size, 4, "an effect's size");
    file.expect(version, 4, "an effect's version");
    return file.position() - 4 + size;
}

void readCommonState(DocumentCursor &file)
{
    const qsizetype end = readHead(file, "cmnS", 7, 0);
    file.expect(1, 1, "the visibility of effects");
    file.expectZeros(2, "the unused end of the common state");
    file.expectEnd(end, "the common state");
}

LayeredDocument::Shadow readShadow(DocumentCursor &file, const QByteArray &key)
{
    LayeredDocument::Shadow shadow;
    const qsizetype end = readHead(file, key, 51, 2);
    shadow.size = file.number(2, 0, 250, "a shadow's size");
    file.expectZeros(4, "the space behind a shadow's size");
    shadow.angle = file.number(4, "a shadow's angle");
    shadow.distance = file.number(4, 0, 30000, "a shadow's distance");
    file.expectZeros(2, "the space behind a shadow's distance");
    shadow.colour = readColour(file);
    shadow.blendMode = readBlendMode(file);
    shadow.enabled = readFlag(file, "a shadow's switch");
    shadow.useGlobalLight = readFlag(file, "a shadow's light");
    shadow.opacity = file.number(1, "a shadow's opacity");
    expectColour(file, shadow.colour);
    file.expectEnd(end, "a shadow");
    return shadow;
}

LayeredDocument::Glow readGlow(DocumentCursor &file, const QByteArray &key, bool hasSource)
{
    LayeredDocument::Glow glow;
    const qsizetype end = readHead(file, key, hasSource ? 43 : 42, 2);
    glow.size = file.number(2, 0, 250, "a glow's size");
    file.expectZeros(6, "the space behind a glow's size");
    glow.colour = readColour(file);
    glow.blendMode = readBlendMode(file);
    glow.enabled = readFlag(file, "a glow's switch");
    glow.opacity = file.number(1, "a glow's opacity");
    if (hasSource)
        glow.source = file.number(1, "a glow's source");
    expectColour(file, glow.colour);
    file.expectEnd(end, "a glow");
    return glow;
}

LayeredDocument::Bevel readBevel(DocumentCursor &file)
{
    LayeredDocument::Bevel bevel;
    const qsizetype end = readHead(file, "bevl", 78, 2);
    bevel.angle = file.number(2, "the bevel's angle");
    file.expect(1, 4, "the bevel's strength");
    bevel.size = file.number(4, 0, 250, "the bevel's size");
    file.expectZeros(2, "the space behind the bevel's size");
    bevel.highlightBlendMode = readBlendMode(file);
    bevel.shadowBlendMode = readBlendMode(file);
    bevel.highlightColour = readColour(file);
    bevel.shadowColour = readColour(file);
    bevel.style = file.number(1, "the bevel's style");
    bevel.highlightOpacity = file.number(1, "the bevel's highlight opacity");
    bevel.shadowOpacity = file.number(1, "the bevel's shadow opacity");
    bevel.enabled = readFlag(file, "the bevel's switch");
    bevel.useGlobalLight = readFlag(file, "the bevel's light");
    bevel.direction = file.number(1, "the bevel's direction");
    expectColour(file, bevel.highlightColour);
    expectColour(file, bevel.shadowColour);
    file.expectEnd(end, "the bevel");
    return bevel;
}

LayeredDocument::SolidFill readSolidFill(DocumentCursor &file)
{
    LayeredDocument::SolidFill fill;
    const qsizetype end = readHead(file, "sofi", 34, 2);
    fill.blendMode = readBlendMode(file);
    fill.colour = readColour(file);
    fill.opacity = file.number(1, "the fill's opacity");
    fill.enabled = readFlag(file, "the fill's switch");
    expectColour(file, fill.colour);
    file.expectEnd(end, "the fill");
    return fill;
}

} // namespace

QByteArray readBlendMode(DocumentCursor &file)
{
    file.key({"8BIM"}, "a blend mode's signature");
    return file.key({"norm", "dark", "lite", "hue ", "sat ", "colr", "lum ", "mul ", "scrn",
                     "diss", "over", "hLit", "sLit", "diff", "smud", "div ", "idiv", "lbrn",
                     "lddg", "vLit", "lLit", "pLit", "hMix", "dkCl", "lgCl"},
                    "a blend mode");
}

LayeredDocument::Effects readEffects(DocumentCursor &file)
{
    LayeredDocument::Effects effects;
    file.expect(0, 2, "the version of the effects");
    file.expect(7, 2, "the number of effects");
    readCommonState(file);
    effects.dropShadow = readShadow(file, "dsdw");
    effects.innerShadow = readShadow(file, "isdw");
    effects.outerGlow = readGlow(file, "oglw", false);
    effects.innerGlow = readGlow(file, "iglw", true);
    effects.bevel = readBevel(file);
    effects.solidFill = readSolidFill(file);
    return effects;
}
