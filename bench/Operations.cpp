#include "bench/Operations.h"

#include "bench/ChartSubjects.h"
#include "bench/CompositionSubjects.h"
#include "bench/HandSubjects.h"
#include "bench/LiveSubjects.h"
#include "bench/MovingChartSubjects.h"
#include "bench/PngSubjects.h"
#include "bench/PsdSubjects.h"
#include "bench/ShowSubjects.h"
#include "bench/Start.h"
#include "bench/Timing.h"
#include "bench/WindowSubjects.h"
#include "bench/WiringSubjects.h"

#include <QSize>

#include <memory>
#include <utility>

using ChartSubjects::Labels;
using WindowSubjects::Paint;

namespace {
constexpr QSize fullHd(1920, 1080);
constexpr QSize ultraHd(3840, 2160);
constexpr QSize eightK(7680, 4320);

constexpr Colour halfBlue{0, 0.2, 0.6, 0.5};

/// The subject is made when it is measured, so that no two of them fill the memory.
using MakeSubject = std::function<Subject()>;

Operation againstMemset(std::string name, double goal, MakeSubject make)
{
    return {std::move(name), "memset", goal, [make = std::move(make)] { return timeOfMemset(make()); }};
}

Operation againstMemcpy(std::string name, double goal, MakeSubject make)
{
    return {std::move(name), "memcpy", goal, [make = std::move(make)] { return timeOfMemcpy(make()); }};
}

Operation againstReading(std::string name, double goal, MakeSubject make)
{
    return {std::move(name), "read", goal, [make = std::move(make)] { return timeOfReading(make()); }};
}

/// What a wall and an output of one size cost.
std::vector<Operation> operationsOfSize(const std::string &size, const QSize &output)
{
    constexpr int panelSide = 120;
    const int columns = output.width() / panelSide;
    const int rows = output.height() / panelSide;
    return {
        againstMemset("screen, everything on, " + size, noGoal,
                      [=] { return ChartSubjects::wall(columns, rows, panelSide); }),
        againstMemset("screen, without labels, " + size, noGoal,
                      [=] { return ChartSubjects::wall(columns, rows, panelSide, Labels::LeftOut); }),
        againstMemcpy("composition, 1 full layer, " + size, noGoal,
                      [=] { return CompositionSubjects::oneFullLayer(output); }),
        againstMemcpy("composition, 12 tiled layers, " + size, noGoal,
                      [=] { return CompositionSubjects::tiledLayers(output); }),
        againstMemcpy("composition, 50 overlapping layers, " + size, noGoal,
                      [=] { return CompositionSubjects::overlappingLayers(output, 50, NamedColour::black); }),
        againstMemset("composition, translucent background, " + size, noGoal,
                      [=] { return CompositionSubjects::overlappingLayers(output, 12, halfBlue); }),
        againstMemset("composition, transparent background, " + size, noGoal,
                      [=] { return CompositionSubjects::overlappingLayers(output, 12, NamedColour::clear); }),
        againstMemcpy("PNG, " + size, noGoal, [=] { return PngSubjects::encode(output); }),
        againstMemcpy("PSD, 12 tiled layers, " + size, noGoal, [=] { return PsdSubjects::tiledLayers(output); }),
    };
}

/// A frame of each chart that moves.
std::vector<Operation> movingCharts(double goal)
{
    std::vector<Operation> operations;
    for (const Chart &chart : Chart::all()) {
        if (chart.moves())
            operations.push_back({std::string("moving chart, 8K, ") + chart.name, "memset", goal,
                                  [&chart] { return MovingChartSubjects::timeOfFrame(chart); }});
    }
    return operations;
}

Operation startOfTheWindow(double goal)
{
    const auto spent = std::make_shared<std::string>();
    const auto ratio = [spent] {
        const Start::Measured measured = Start::measure();
        *spent = measured.spent;
        return measured.ratio;
    };
    return {"start to the first painted window", "empty", goal, ratio, [spent] { return *spent; }};
}
} // namespace

std::vector<Operation> plainOperations()
{
    std::vector<Operation> operations;
    for (const auto &[name, size] : {std::pair("1080p", fullHd), std::pair("4K", ultraHd), std::pair("8K", eightK)}) {
        for (Operation &operation : operationsOfSize(name, size))
            operations.push_back(std::move(operation));
    }
    for (const QString name : {"corporate", "festival", "studio"})
        operations.push_back(againstMemcpy("PSD, " + name.toStdString() + " example", noGoal,
                                           [=] { return PsdSubjects::example(name); }));
    return operations;
}

std::vector<Operation> operationsWithGoals()
{
    std::vector<Operation> operations{
        againstMemset("screen, everything on, 30 x 17 panels of 128 (4K)", 3,
                      [] { return ChartSubjects::wall(30, 17, 128); }),
        againstMemset("screen, everything on, 60 x 34 panels of 128 (8K)", 3,
                      [] { return ChartSubjects::wall(60, 34, 128); }),
        againstMemset("screen, everything on, 500 x 500 panels of 4", 100,
                      [] { return ChartSubjects::wall(500, 500, 4); }),
        againstMemset("screen, without labels, 500 x 500 panels of 4", 9,
                      [] { return ChartSubjects::wall(500, 500, 4, Labels::LeftOut); }),
        againstMemcpy("composition, 1 full layer, 8K", 1.3, [] { return CompositionSubjects::oneFullLayer(eightK); }),
        againstMemcpy("composition, 12 tiled layers, 8K", 1.7, [] { return CompositionSubjects::tiledLayers(eightK); }),
        againstMemcpy("composition, 50 overlapping layers, 8K", 3.5,
                      [] { return CompositionSubjects::overlappingLayers(eightK, 50, NamedColour::black); }),
        againstMemset("composition, translucent background, 12 layers, 8K", 8,
                      [] { return CompositionSubjects::overlappingLayers(eightK, 12, halfBlue); }),
        againstMemset("composition, transparent background, 12 layers, 8K", 1.2,
                      [] { return CompositionSubjects::overlappingLayers(eightK, 12, NamedColour::clear); }),
        againstMemcpy("PNG, 1080p", 5, [] { return PngSubjects::encode(fullHd); }),
        againstMemcpy("PNG, 4K", 5, [] { return PngSubjects::encode(ultraHd); }),
        againstMemcpy("PNG, 8K", 5, [] { return PngSubjects::encode(eightK); }),
        againstMemcpy("channels of a PSD, chart with circle, 8K", 3.2,
                      [] { return PsdSubjects::channels(eightK, PsdSubjects::Rows::Differ); }),
        againstMemcpy("channels of a PSD, chart whose rows repeat, 8K", 2.2,
                      [] { return PsdSubjects::channels(eightK, PsdSubjects::Rows::Repeat); }),
        againstMemcpy("PSD, 12 overlapping layers, 8K", 3, [] { return PsdSubjects::overlappingLayers(eightK, 12); }),
        againstReading("canvas, 8K in 1280 x 720, after an edit", 2,
                       [] { return WindowSubjects::canvas(eightK, Paint::AfterAnEdit); }),
        againstReading("canvas, 8K in 1280 x 720, once more", 0.1,
                       [] { return WindowSubjects::canvas(eightK, Paint::Again); }),
        againstMemset("panel click to canvas, 8K, 12 walls", 0.5, [] { return HandSubjects::panelClick(); }),
        againstMemset("drag of a 4K wall across 8K, a movement", 3, [] { return HandSubjects::wallDrag(); }),
        againstMemset("painting holes by drag, 8K, a panel", 1, [] { return HandSubjects::holePainting(); }),
        againstReading("zoom by wheel, 8K, a step", 2, [] { return HandSubjects::wheelZoom(); }),
        againstMemset("keystroke to canvas, 8K", 4, [] { return WindowSubjects::keystrokeIn8K(); }),
        // Of smaller outputs the window itself takes the larger part.
        againstMemset("keystroke to canvas, corporate example", 9,
                      [] { return WindowSubjects::keystrokeInExample("corporate"); }),
        againstMemset("keystroke to canvas, festival example", 4,
                      [] { return WindowSubjects::keystrokeInExample("festival"); }),
        againstMemset("keystroke to canvas, studio example", 5,
                      [] { return WindowSubjects::keystrokeInExample("studio"); }),
        {"edit to canvas, 500 layers", "1 layer", 1.2, [] { return ShowSubjects::timeOfEdit(500); }},
        {"selection, 5,000 layers", "2", 3, [] { return ShowSubjects::timeOfSelection(5000); }},
        {"memory of a step, 10,000 layers", "1 layer", 1.1, [] { return ShowSubjects::memoryOfStep(10'000); }},
        {"ports of 40,000 panels", "pass", 3, [] { return WiringSubjects::timeOfSplit(); }},
        {"checks of 500 walls", "pass", 3, [] { return WiringSubjects::timeOfChecks(); }},
        againstMemset("screen, wired by hand, 60 x 34 panels of 128 (8K)", 3,
                      [] { return WiringSubjects::handWiredWall(); }),
        againstMemset("pointer to painted display window, 8K", 0.2, [] { return LiveSubjects::pointing(); }),
        againstMemset("frame of a sweep to painted display window, 8K", 0.5, [] { return LiveSubjects::frame(); }),
        startOfTheWindow(1.5),
        {"size of the PNG, 1080p", "QImage", 1.35, [] { return PngSubjects::sizeRatio(fullHd); }},
        {"size of the PNG, 8K", "QImage", 1.35, [] { return PngSubjects::sizeRatio(eightK); }},
    };
    for (Operation &operation : movingCharts(2))
        operations.push_back(std::move(operation));
    return operations;
}
