#include "bench/Charts.h"

ScreenChart Charts::everythingOn(int columns, int rows, int panelSide)
{
    ScreenChart chart;
    chart.col = columns;
    chart.row = rows;
    chart.panelWidth = panelSide;
    chart.panelHeight = panelSide;
    chart.bgEnable = true;
    chart.rectColor = Colour{0.1, 0.3, 0.6, 1};
    chart.rectColor2 = Colour{0.2, 0.5, 0.3, 1};
    chart.BoarderEnable = true;
    chart.boarderColor = NamedColour::white;
    chart.boarderWidth = 1;
    chart.CircleEnable = true;
    chart.circleColor = NamedColour::white;
    chart.circleBWidth = 4;
    chart.XYFontEnable = true;
    chart.xyColor = NamedColour::yellow;
    chart.XYFontSize = 50;
    chart.popupIndex = 2;
    chart.screenFontEnable = true;
    chart.sfColor = NamedColour::cyan;
    chart.screenFontSize = 50;
    chart.showPower = true;
    chart.powerOnCell = 200;
    chart.label = "Main wall";
    chart.drawLabels = true;
    chart.labelColor = NamedColour::white;
    chart.labelFontSize = 40;
    chart.drawFlowPath = true;
    chart.pattern = 0;
    chart.pixelLimit = 655360;
    return chart;
}

QImage Charts::picture(const QSize &size)
{
    return everythingOn(size.width() / 120, size.height() / 120, 120).draw({});
}

QImage Charts::picture(const QSize &size, int number)
{
    ScreenChart chart = everythingOn(size.width() / 60, size.height() / 60, 60);
    chart.rectColor = Colour::fromRgba8(QColor::fromHsv(number * 37 % 360, 200, 180).rgba());
    return chart.draw({});
}
