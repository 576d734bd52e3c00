#include "grid/PanelGrid.h"

#include <QtNumeric>

#include <limits>

qint64 PanelGrid::pixels() const
{
    qint64 pixels = 0;
    return qMulOverflow(columns.size(), rows.size(), &pixels) ? std::numeric_limits<qint64>::max() : pixels;
}
