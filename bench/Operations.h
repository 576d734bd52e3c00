#pragma once

#include <functional>
#include <string>
#include <vector>

inline constexpr double noGoal = 0;

/// One line of the benchmark: an operation, what it is measured against, and how.
struct Operation
{
    std::string name;
    std::string reference;         ///< what counts as 1.0: memset or memcpy of the raster's bytes, or what else
    double goal;                   ///< highest ratio that is fast enough, or noGoal
    std::function<double()> ratio; ///< measures; makes its own inputs and lets go of them
    std::function<std::string()> remark = {}; ///< on what the last ratio was spent; may be missing
};

/// Walls and outputs of 1080p, 4K and 8K: what costs how much.
std::vector<Operation> plainOperations();
/// What has to stay fast, with the ratio that it must not exceed.
std::vector<Operation> operationsWithGoals();
