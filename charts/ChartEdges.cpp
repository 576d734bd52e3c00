#include "charts/ChartEdges.h"

#include <numeric>

namespace ChartEdges {

int at(int total, qint64 part, qint64 whole)
{
    return whole == 0 ? 0 : static_cast<int>((2 * total * part + whole) / (2 * whole));
}

std::vector<int> ofShares(int total, std::initializer_list<int> shares)
{
    const int whole = std::accumulate(shares.begin(), shares.end(), 0);
    std::vector<int> edges{0};
    int sum = 0;
    for (const int share : shares)
        edges.push_back(at(total, sum += share, whole));
    return edges;
}

std::vector<int> equal(int total, int count)
{
    std::vector<int> edges;
    for (int i = 0; i <= count; ++i)
        edges.push_back(at(total, i, count));
    return edges;
}

std::vector<int> ofWidths(std::initializer_list<int> widths)
{
    std::vector<int> edges{0};
    for (const int width : widths)
        edges.push_back(edges.back() + width);
    return edges;
}

} // namespace ChartEdges
