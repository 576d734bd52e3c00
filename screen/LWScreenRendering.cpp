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

ScreenChart chartOf(const LWScreen &screen, const LayerHost &host)
{
    ScreenChart chart;
    chart.col = screen.col();
    chart.row = screen.row();
    chart.panelWidth = screen.panelWidth();
    chart.panelHeight = screen.panelHeight();
    chart.xpoint = screen.xpoint();
    chart.ypoint = screen.ypoint();
    chart.bgEnable = screen.bgEnable();
    chart.rectColor = screen.rectColor();
    chart.rectColor2 = screen.rectColor2();
    chart.BoarderEnable = screen.BoarderEnable();
    chart.boarderColor = screen.boarderColor();
    chart.boarderWidth = screen.boarderWidth();
    chart.CircleEnable = screen.CircleEnable();
    chart.circleColor = screen.circleColor();
    chart.circleBWidth = screen.circleBWidth();
    chart.XYFontEnable = screen.XYFontEnable();
    chart.xyColor = screen.xyColor();
    chart.XYFontSize = screen.XYFontSize();
    chart.screenFontEnable = screen.screenFontEnable();
    chart.sfColor = screen.sfColor();
    chart.screenFontSize = screen.screenFontSize();
    chart.showPower = screen.showPower() || screen.showCurrent();
    chart.label = screen.label();
    chart.powerOnCell = screen.powerOnCell();
    chart.drawLabels = screen.drawLabels();
    chart.XYLabelDirection = screen.XYLabelDirection();
    chart.labelColor = screen.labelColor();
    chart.labelFontSize = screen.labelFontSize();
    chart.drawFlowPath = screen.drawFlowPath();
    chart.pattern = screen.pattern();
    chart.pixelLimit = screen.pixelLimit();
    chart.hiddenBoxes = screen.hiddenBoxes().value_or(QStringList());
    chart.popupIndex = host.popupIndex();
    chart.voltage = host.voltageCalc();
    chart.phases = host.phaseCalc();
    return chart;
}
} // namespace

void LWScreen::drawInRect()
{
    host().hideRectangle();
    const PanelGrid grid = panelGridOf(*this);
    setScreenSizeHeight(recordedSide(grid.rows.size()));
    setScreenSizeWidth(recordedSide(grid.columns.size()));

    const bool hasPanels = row() != 0 && col() != 0;
    if (hasPanels && screenFontEnable())
        PowerCalculator::chooseSupply(host());
    if (hasPanels && labelFontSize() == 0)
        setLabelFontSize(firstLabelFontSize);

    m_pendingChart = std::make_unique<ScreenChart>(chartOf(*this, host()));
}

QImage LWScreen::thumbnail() const
{
    if (m_pendingChart) {
        m_thumbnail = m_pendingChart->draw(std::move(m_thumbnail));
        m_pendingChart.reset();
    }
    return m_thumbnail;
}

void LWScreen::releasePicture()
{
    if (!m_pendingChart && !m_thumbnail.isNull())
        m_pendingChart = std::make_unique<ScreenChart>(chartOf(*this, host()));
    m_thumbnail = {};
}

void LWScreen::setThumbnail(const QImage &picture)
{
    m_pendingChart.reset();
    m_thumbnail = picture;
}
