#pragma once

#include "screen/ScreenChart.h"

#include <QRandomGenerator>

#include <cmath>
#include <initializer_list>
#include <string>
#include <tuple>
#include <utility>

/// What a chart is like, for messages.
std::string described(const ScreenChart &chart);

/// Draws charts from a number, the same ones every time.
class RandomChart
{
public:
    explicit RandomChart(quint32 seed) : m_random(seed) {}

    ScreenChart chart()
    {
        ScreenChart chart;
        chooseGeometry(chart);
        choosePanels(chart);
        chooseTexts(chart);
        chart.drawFlowPath = oneIn(2);
        chart.pattern = between(-1, 9);
        const int panels = between(-3 * std::abs(chart.col), 3 * std::abs(chart.col) + 5);
        chart.pixelLimit = oneIn(4) ? 0 : qint64{panels} * chart.panelWidth * chart.panelHeight + between(-1, 1);
        return chart;
    }

    /// Gives the chart cables of its surroundings, or of its own, or takes them away.
    void wire(ScreenChart &chart)
    {
        chart.split = oneOf({CableSplit::Lines, CableSplit::Panels, CableSplit::Hand, CableSplit::Hand});
        chart.portColours = oneIn(2);
        chart.portNames = oneIn(4);
        chart.panelPlaces = oneIn(4);
        chart.drawFlowPath = !oneIn(6);
        lay(chart);
    }

    /// Lays the cables anew.
    void lay(ScreenChart &chart)
    {
        WallCables cables;
        for (int port = between(0, 3); port > 0; --port) {
            WallCable cable{.port = {"A", port}, .firstPlace = between(1, 3), .begins = oneIn(2), .ends = oneIn(2)};
            if (oneIn(3))
                cable.backup = PortName{"A", port + 10};
            Cell cell{between(0, std::abs(chart.col)), between(0, std::abs(chart.row))};
            for (int panels = between(0, 12); panels > 0; --panels) {
                cable.cells.push_back(cell);
                (oneIn(2) ? cell.column : cell.row) += oneOf({-1, 1, 1, 2});
            }
            cables.push_back(cable);
        }
        WallRuns runs;
        for (const WallCable &cable : cables)
            runs.push_back({cable.port, cable.begins ? 1 : 2, cable.cells});
        chart.cables = oneIn(4) ? nullptr : std::make_shared<const WallCables>(cables);
        chart.runs = CableRuns(runs);
    }

    /// The chart with something else, mostly what a person edits often.
    void edit(ScreenChart &chart)
    {
        switch (between(0, 9)) {
        case 0:
            return chooseGeometry(chart);
        case 1:
            return choosePanels(chart);
        case 2:
            return chooseTexts(chart);
        case 3:
            return moveWall(chart);
        case 4:
        case 5:
            return editText(chart);
        case 6:
            return editUnseen(chart);
        default:
            return switchPanels(chart);
        }
    }

private:
    int between(int lowest, int highest) { return m_random.bounded(lowest, highest + 1); }
    bool oneIn(int count) { return between(1, count) == 1; }
    template <typename T>
    T oneOf(std::initializer_list<T> choices)
    {
        return choices.begin()[between(0, static_cast<int>(choices.size()) - 1)];
    }

    Colour colour()
    {
        const auto component = [this] { return between(0, 20) / 20.0; };
        return {component(), component(), component(), oneIn(2) ? 1 : component()};
    }
    OptionalColour maybeColour() { return oneIn(6) ? OptionalColour() : colour(); }

    void chooseGeometry(ScreenChart &chart)
    {
        const int most = oneOf({2, 5, 12, 40});
        chart.col = between(1, most);
        chart.row = between(1, most);
        chart.panelWidth = between(1, 480 / most);
        chart.panelHeight = between(1, 360 / most);
        if (oneIn(12))
            std::tie(chart.col, chart.panelWidth) = std::pair(-chart.col, -chart.panelWidth);
        if (oneIn(12))
            std::tie(chart.row, chart.panelHeight) = std::pair(-chart.row, -chart.panelHeight);
        chart.xpoint = between(-2000, 9000);
        chart.ypoint = between(-2000, 9000);
    }

    void choosePanels(ScreenChart &chart)
    {
        chart.bgEnable = !oneIn(4);
        chart.rectColor = maybeColour();
        chart.rectColor2 = maybeColour();
        chart.BoarderEnable = !oneIn(3);
        chart.boarderColor = maybeColour();
        chart.boarderWidth = oneOf({-1, 0, 1, 1, 2, 3, 7, 30, 1000});
        chart.hiddenBoxes = PanelKeys();
        for (int i = oneIn(2) ? between(1, 8) : 0; i > 0; --i) {
            const int row = between(0, std::abs(chart.row));
            chart.hiddenBoxes->append({between(0, std::abs(chart.col)), row});
        }
        chart.CircleEnable = oneIn(2);
        chart.circleColor = maybeColour();
        chart.circleBWidth = oneOf({-3, 0, 1, 2, 4, 5, 9, 40, 700});
    }

    void chooseTexts(ScreenChart &chart)
    {
        chart.screenFontEnable = oneIn(2);
        chart.screenFontSize = fontSize();
        chart.sfColor = maybeColour();
        chart.label = oneOf<QString>({QString(), "", "Main wall", "Bühne – links ÄÖ", "W%1%%2/\nfi"});
        chart.showPower = oneIn(2);
        chart.powerOnCell = oneOf({0, 1, 200, 123'456'789, -5});
        chart.voltage = oneOf<qint64>({110, 208, 230, 0, -1});
        chart.phases = oneOf<qint64>({1, 3, 0});
        chart.XYFontEnable = oneIn(2);
        chart.XYFontSize = fontSize();
        chart.xyColor = maybeColour();
        chart.popupIndex = between(-1, 3);
        chart.drawLabels = oneIn(2);
        chart.labelColor = maybeColour();
        chart.labelFontSize = oneOf({0.3, 5.5, 9.0, 9.0, 12.75, 24.0, 33.0, 300.0, 1200.0, -2.0});
        chart.XYLabelDirection = oneIn(2);
    }

    void moveWall(ScreenChart &chart)
    {
        chart.xpoint += between(-20, 20);
        chart.ypoint += between(-2, 2);
    }
    void editText(ScreenChart &chart)
    {
        switch (between(0, 11)) {
        case 0:
            chart.screenFontEnable = !chart.screenFontEnable;
            break;
        case 1:
            chart.screenFontSize = fontSize();
            break;
        case 2:
            chart.sfColor = maybeColour();
            break;
        case 3:
            chart.label = chart.label.value_or(QString()) + "j";
            break;
        case 4:
            chart.label = std::nullopt;
            break;
        case 5:
            chart.showPower = !chart.showPower;
            break;
        case 6:
            chart.showCurrent = !chart.showCurrent;
            break;
        case 7:
            chart.powerOnCell += 10;
            break;
        case 8:
            std::tie(chart.voltage, chart.phases) = std::pair(oneOf<qint64>({110, 230, 400}), oneOf<qint64>({1, 3}));
            break;
        case 9:
            chart.XYFontEnable = !chart.XYFontEnable;
            break;
        case 10:
            std::tie(chart.XYFontSize, chart.popupIndex) = std::pair(fontSize(), between(0, 2));
            break;
        default:
            chart.xyColor = maybeColour();
        }
    }
    void editUnseen(ScreenChart &chart)
    {
        chart.visible = !chart.visible;
        chart.aspectHidden = oneIn(2);
        chart.showPowerl = oneIn(2);
    }
    void switchPanels(ScreenChart &chart)
    {
        for (int i = oneOf({1, 1, 1, 2, 5, 30}); i > 0; --i) {
            if (!chart.hiddenBoxes)
                chart.hiddenBoxes = PanelKeys();
            const int row = between(0, std::abs(chart.row));
            chart.hiddenBoxes->toggle(row, between(0, std::abs(chart.col)));
        }
    }
    int fontSize() { return oneOf({-3, 0, 1, 2, 5, 9, 13, 20, 33, 80, 500, 1100, 20000}); }

    QRandomGenerator m_random;
};
