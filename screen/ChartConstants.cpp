#include "screen/ChartConstants.h"

const ChartConstants &ChartConstants::init2()
{
    static const ChartConstants constants{
        .arrowSize = 10.0,
        .startColor = NamedColour::green,
        .endColor = NamedColour::red,
        .pathColor = NamedColour::white,
        .pathLineWidth = 5.0,
        .arrowGlyphs = {u"\u2B05\uFE0F"_qs, u"\u27A1\uFE0F"_qs, u"\u2B07\uFE0F"_qs, u"\u2B06\uFE0F"_qs, u"\u23F9"_qs},
        .labelMargin = 5.0,
    };
    return constants;
}
