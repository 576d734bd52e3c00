#pragma once

#include <QtGlobal>

#include <initializer_list>
#include <vector>

/// Where the patches of charts begin and end: each edge is worked out from the start, so that there are neither gaps
/// nor a drift.
namespace ChartEdges {

/// total * part / whole, rounded half up; 0 where the whole is 0.
int at(int total, qint64 part, qint64 whole);

/// 0, the edges between patches of these shares, and `total`.
std::vector<int> ofShares(int total, std::initializer_list<int> shares);

/// Of `count` equal patches.
std::vector<int> equal(int total, int count);

/// Of patches whose widths in pixels are known.
std::vector<int> ofWidths(std::initializer_list<int> widths);

} // namespace ChartEdges
