#pragma once

#include <string>

/// How long the program takes from the start of its process to its first painted window, on an X server of its own.
namespace Start {

struct Measured
{
    double ratio;      ///< to a program that shows an empty window; infinite where it cannot be measured
    std::string spent; ///< on what, in ms: "libraries 21, application 30, ..."
};

/// Starts both in turn; medians.
Measured measure();

} // namespace Start
