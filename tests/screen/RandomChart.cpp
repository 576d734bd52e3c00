#include "tests/screen/RandomChart.h"

#include <QTextStream>

std::string described(const ScreenChart &chart)
{
    QString text;
    QTextStream(&text) << chart.col << " x " << chart.row << " panels of " << chart.panelWidth << " x "
                       << chart.panelHeight << ", background " << chart.bgEnable << ", frames " << chart.BoarderEnable
                       << " of " << chart.boarderWidth << ", circle " << chart.CircleEnable << " of "
                       << chart.circleBWidth << ", corners " << chart.XYFontEnable << " of " << chart.XYFontSize
                       << ", centre " << chart.screenFontEnable << " of " << chart.screenFontSize << ", labels "
                       << chart.drawLabels << chart.XYLabelDirection << " of " << chart.labelFontSize << " alpha "
                       << (chart.labelColor ? chart.labelColor->alpha : -1) << ", path " << chart.drawFlowPath << " "
                       << chart.pattern << " by " << chart.pixelLimit;
    return text.toStdString();
}
