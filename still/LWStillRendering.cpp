#include "layer/LayerHost.h"
#include "layer/Logging.h"
#include "still/LWStill.h"

#include <cmath>
#include <limits>

namespace {
static_assert(std::numeric_limits<float>::is_iec559, "a division by 0 has to give an infinity or no number");

/// What is taken off the output's size before it is fitted into the canvas; where selection borders lie on saved
/// designs depends on these two.
constexpr float lessWidth = 8.0F;
constexpr float lessHeight = 10.0F;

/// A view without a real size is as good as none.
float frameLength(double length)
{
    const bool isReal = std::abs(length) <= double{std::numeric_limits<float>::max()};
    return isReal ? static_cast<float>(length) : 0.0F;
}

/// An output as small as what is taken off has no scale, and what is beyond all numbers has no place.
float finite(float value)
{
    return std::isfinite(value) ? value : 0.0F;
}
} // namespace

LWStill::PreviewScale LWStill::calculateCoeff() const
{
    const float outputWidth = static_cast<float>(host().OutputWidth()) - lessWidth;
    const float outputHeight = static_cast<float>(host().OutputHeight()) - lessHeight;
    const QSizeF frame = host().canvasFrameSize();
    const float viewWidth = frameLength(frame.width());
    const float viewHeight = frameLength(frame.height());
    qCDebug(lcStill, "in data=%f %f %f %f", outputWidth, outputHeight, viewWidth, viewHeight);

    const float byHeight = viewHeight / outputHeight;
    const float byWidth = viewWidth / outputWidth;
    const float coefficient = finite(byHeight < byWidth ? byHeight : byWidth);
    return {coefficient, finite((viewWidth - outputWidth * coefficient) * 0.5F),
            finite((viewHeight - outputHeight * coefficient) * 0.5F)};
}

void LWStill::drawInRect()
{
    // The picture keeps its pixels: whoever composes it scales it to this size.
    setScreenSizeWidth(panelWidth());
    setScreenSizeHeight(panelHeight());
    followChart();
    m_rendered = record();
    placeMarker();
}

void LWStill::placeMarker()
{
    m_marker = markerOf(m_rendered ? *m_rendered : *record(), calculateCoeff());
}

LWStill::Marker LWStill::markerOf(const LayerRecord &still, const PreviewScale &scale)
{
    const float k = scale.coefficient;
    const float x = finite(static_cast<float>(still.xpoint) * k + scale.freeWidth + 1.0F);
    const float y = finite(static_cast<float>(still.ypoint) * k + scale.freeHeight + 1.0F);
    const float width = finite(static_cast<float>(still.screenSizeWidth) * k);
    const float height = finite(static_cast<float>(still.screenSizeHeight) * k);
    qCDebug(lcStill, "drawRectange (%d %d) * %f =  (%f,%f,%f,%f)", still.screenSizeWidth, still.screenSizeHeight, k, x,
            y, width, height);
    return {{x, y, width, height}, static_cast<float>((1.0 - k) + 1.0)};
}
