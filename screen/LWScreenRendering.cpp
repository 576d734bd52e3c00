#include "base/NearestInt.h"
#include "layer/LayerHost.h"
#include "layer/PowerCalculator.h"
#include "layer/WallGrid.h"
#include "screen/LWScreen.h"

namespace {
constexpr double firstLabelFontSize = 40;

/// A side of the wall as the record keeps it: no raster is that large, but the number shall not turn into a small one.
int recordedSide(qint64 pixels)
{
    return nearestInt(pixels);
}
} // namespace

void LWScreen::drawInRect()
{
    const PanelGrid grid = panelGridOf(*this);
    setScreenSizeHeight(recordedSide(grid.rows.size()));
    setScreenSizeWidth(recordedSide(grid.columns.size()));

    const bool hasPanels = row() != 0 && col() != 0;
    if (hasPanels && screenFontEnable())
        PowerCalculator::chooseSupply(host());
    if (hasPanels && labelFontSize() == 0)
        setLabelFontSize(firstLabelFontSize);

    Look now = look();
    const bool isSame = m_rendered == now && !(isDrawn() && m_thumbnail.isNull());
    if (isSame)
        return;
    m_rendered = std::move(now);
    if (m_thumbnail.isNull())
        m_drawn.reset();
}

void LWScreen::showCables(const WallCablesPointer &cables)
{
    const bool isSame = m_cables == cables || (m_cables && cables && *m_cables == *cables);
    if (isSame)
        return;
    m_cables = cables;
    drawInRect();
}

LWScreen::Look LWScreen::look() const
{
    return {record(), {host().popupIndex(), host().voltageCalc(), host().phaseCalc(), m_cables}};
}

QImage LWScreen::thumbnail() const
{
    if (!isDrawn())
        drawPixels();
    return m_thumbnail;
}

void LWScreen::drawPixels() const
{
    const ScreenChart chart(*m_rendered->record, m_rendered->around);
    const bool isKept = m_drawn && !m_thumbnail.isNull() && m_thumbnail.isDetached();
    const auto change = isKept ? chart.changeSince({*m_drawn->record, m_drawn->around}) : std::nullopt;
    if (change) {
        mend(chart, *change);
    } else {
        m_thumbnail = chart.draw(std::move(m_thumbnail));
        m_changes = {};
    }
    m_drawn = m_rendered;
}

void LWScreen::mend(const ScreenChart &chart, const QRegion &where) const
{
    if (where.isEmpty())
        return;
    const qint64 before = m_thumbnail.cacheKey();
    for (const QRect &part : where)
        chart.drawPart(m_thumbnail, part);
    m_changes.add(before, where);
}

LayerLook LWScreen::shownLook() const
{
    if (!m_rendered)
        return {nullptr, {m_thumbnail.cacheKey()}};
    if (isDrawn() && m_thumbnail.isNull()) // it may be had when it is drawn again
        return {};
    const auto &[popupIndex, voltage, phases, cables] = m_rendered->around;
    return {m_rendered->record, {popupIndex, voltage, phases}, cables};
}

void LWScreen::releasePicture()
{
    if (m_thumbnail.isNull())
        return;
    m_thumbnail = {};
    if (!m_rendered)
        m_rendered = look();
    m_drawn.reset();
}

void LWScreen::setThumbnail(const QImage &picture)
{
    m_rendered.reset();
    m_drawn.reset();
    m_thumbnail = picture;
}
