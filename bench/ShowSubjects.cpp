#include "bench/ShowSubjects.h"

#include "bench/Timing.h"
#include "screen/LWScreen.h"
#include "windows/MainWindow.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <malloc.h>
#include <vector>

namespace {
constexpr int panelSide = 4;
constexpr int columns = 2;
constexpr int wallsAbreast = 100;

class ShownShow
{
public:
    explicit ShownShow(int layers)
    {
        window.makeLateParts();
        window.start();
        std::vector<LayerPointer> walls;
        walls.reserve(static_cast<std::size_t>(layers));
        for (int wall = 0; wall < layers; ++wall)
            walls.push_back(makeWall(wall));
        document().arraycontroller().setLayers(walls, {0});
        document().finishEdit("walls");
        QCoreApplication::processEvents();
    }

    void edit()
    {
        document().timerupdate(); // as if nobody had edited for a while
        document().setValue(columns + m_turns++ % 2, "arrangedObjects.col");
        document().endTyping();
        QCoreApplication::processEvents();
    }

    void select()
    {
        LayerList &layers = document().arraycontroller();
        layers.setSelectionIndex((layers.selectionIndex() + 1) % static_cast<qsizetype>(layers.layers().size()));
        QCoreApplication::processEvents();
    }

    /// Bytes of a step.
    /// The median of some batches: now and then one holds what else the program keeps.
    double memoryOfStep()
    {
        constexpr int steps = 60;
        memoryOfSteps(steps); // what a first edit makes is there then
        std::array<double, 7> batches{};
        std::ranges::generate(batches, [this] { return memoryOfSteps(steps) / steps; });
        std::ranges::nth_element(batches, batches.begin() + batches.size() / 2);
        return batches[batches.size() / 2];
    }

private:
    double memoryOfSteps(int steps)
    {
        const std::size_t before = mallinfo2().uordblks;
        for (int step = 0; step < steps; ++step)
            edit();
        return static_cast<double>(mallinfo2().uordblks) - static_cast<double>(before);
    }

    LWAppDelegate &document() { return window.document(); }

    LayerPointer makeWall(int number)
    {
        LayerPointer wall = LWScreen::init(document());
        wall->setPanelWidth(panelSide);
        wall->setPanelHeight(panelSide);
        wall->setCol(columns);
        wall->setRow(columns);
        wall->setXpoint(number % wallsAbreast * panelSide * columns);
        wall->setYpoint(number / wallsAbreast * panelSide * columns);
        return wall;
    }

    MainWindow window;
    int m_turns = 0;
};
} // namespace

namespace ShowSubjects {

double timeOfEdit(int layers)
{
    ShownShow one(1);
    ShownShow many(layers);
    return timeOf([&] { many.edit(); }, [&] { one.edit(); });
}

double timeOfSelection(int layers)
{
    ShownShow two(2);
    ShownShow many(layers);
    return timeOf([&] { many.select(); }, [&] { two.select(); });
}

double memoryOfStep(int layers)
{
    const double ofOne = ShownShow(1).memoryOfStep();
    return ShownShow(layers).memoryOfStep() / ofOne;
}

} // namespace ShowSubjects
