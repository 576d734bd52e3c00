#include "windows/CanvasLink.h"

#include <algorithm>
#include <utility>
#include <vector>

void CanvasLink::select(const LayerPointer &layer, bool extends)
{
    LayerList &list = m_document.arraycontroller();
    const auto &layers = list.layers();
    const qsizetype row = std::find(layers.begin(), layers.end(), layer) - layers.begin();
    if (!extends)
        return list.setSelectionIndex(row);
    std::vector<qsizetype> rows = list.selectionIndexes();
    if (std::erase(rows, row) > 0)
        return list.setSelectionIndexes(std::move(rows), list.selectionIndex());
    rows.push_back(row);
    list.setSelectionIndexes(std::move(rows), row);
}
