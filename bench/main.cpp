#include "bench/Operations.h"

#include <QApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {
constexpr char usage[] =
    "usage: wallwright_bench [--goals] [TEXT]\n"
    "Prints how many times longer operations take than a plain memset, memcpy or reading of the same bytes.\n"
    "  --goals  measure only what has a goal; ends with 1 where one is not held\n"
    "  TEXT     measure only operations whose name contains it\n";

enum ExitStatus
{
    done = 0,
    goalMissed = 1,
    misused = 2
};

void printLine(const Operation &operation, double ratio)
{
    std::printf("%-52s %-7s %7.2f", operation.name.c_str(), operation.reference.c_str(), ratio);
    if (operation.goal != noGoal)
        std::printf(" %7.2f  %s", operation.goal, ratio <= operation.goal ? "ok" : "over");
    std::printf("\n");
    if (operation.remark)
        std::printf("    %s\n", operation.remark().c_str());
    std::fflush(stdout); // the next one may take a while
}

ExitStatus measure(const std::vector<Operation> &operations, const std::string &text)
{
    const auto isAsked = [&](const Operation &operation) { return operation.name.find(text) != std::string::npos; };
    if (std::ranges::none_of(operations, isAsked)) {
        std::fprintf(stderr, "no operation has \"%s\" in its name\n", text.c_str());
        return misused;
    }
    int goals = 0;
    int held = 0;
    std::printf("%-52s %-7s %7s %7s\n", "operation", "to", "ratio", "goal");
    for (const Operation &operation : operations) {
        if (!isAsked(operation))
            continue;
        const double ratio = operation.ratio();
        printLine(operation, ratio);
        goals += operation.goal != noGoal ? 1 : 0;
        held += operation.goal != noGoal && ratio <= operation.goal ? 1 : 0;
    }
    if (goals > 0)
        std::printf("%d of %d goals are held\n", held, goals);
    return held == goals ? done : goalMissed;
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home; // what windows keep is not the person's
    for (const char *place : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        qputenv(place, home.path().toLocal8Bit());
    const QApplication application(argc, argv);
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool goals = std::erase(arguments, "--goals") > 0;
    if (arguments.size() > 1 || (!arguments.empty() && arguments[0].starts_with('-'))) {
        std::fputs(usage, stderr);
        return misused;
    }
    return measure(goals ? operationsWithGoals() : plainOperations(), arguments.empty() ? "" : arguments[0]);
}
