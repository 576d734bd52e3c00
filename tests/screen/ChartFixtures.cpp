#include "tests/screen/ChartFixtures.h"

ScreenChart blankWall()
{
    ScreenChart chart;
    chart.col = 4;
    chart.row = 3;
    chart.panelWidth = 100;
    chart.panelHeight = 100;
    chart.labelFontSize = 40;
    return chart;
}

ScreenChart twoColouredWall()
{
    ScreenChart chart = blankWall();
    chart.bgEnable = true;
    chart.rectColor = NamedColour::red;
    chart.rectColor2 = NamedColour::blue;
    return chart;
}

ScreenChart decoratedWall()
{
    ScreenChart chart = twoColouredWall();
    chart.xpoint = 120;
    chart.ypoint = -40;
    chart.BoarderEnable = true;
    chart.boarderColor = NamedColour::yellow;
    chart.boarderWidth = 2;
    chart.hiddenBoxes = PanelKeys(QStringList{"0,0", "2,3"});
    chart.CircleEnable = true;
    chart.circleColor = NamedColour::cyan;
    chart.circleBWidth = 4;
    chart.XYFontEnable = true;
    chart.xyColor = NamedColour::magenta;
    chart.XYFontSize = 20;
    chart.popupIndex = 2;
    chart.screenFontEnable = true;
    chart.sfColor = NamedColour::orange;
    chart.screenFontSize = 20;
    chart.showPower = true;
    chart.powerOnCell = 20;
    chart.label = "Main wall";
    chart.drawLabels = true;
    chart.labelColor = NamedColour::lightGray;
    chart.labelFontSize = 16;
    chart.drawFlowPath = true;
    chart.pixelLimit = 80000;
    return chart;
}

QColor pixelAt(const QImage &raster, int x, int y)
{
    return raster.pixelColor(x, raster.height() - 1 - y);
}

QRect drawnArea(const QImage &raster)
{
    QRect area;
    for (int y = 0; y < raster.height(); ++y) {
        for (int x = 0; x < raster.width(); ++x) {
            if (pixelAt(raster, x, y).alpha() != 0)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

QImage emptyRaster(const ScreenChart &chart)
{
    QImage raster(static_cast<int>(chart.wallWidth()), static_cast<int>(chart.wallHeight()),
                  QImage::Format_ARGB32_Premultiplied);
    raster.fill(Qt::transparent);
    return raster;
}
