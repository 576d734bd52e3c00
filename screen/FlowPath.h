#pragma once

#include "drawing/DrawingSurface.h"
#include "grid/PanelGrid.h"

#include <QPainterPath>
#include <QPointF>

#include <vector>

/// The data path of a wall, one run per port: a serpentine through the panel centres with an arrowhead where it begins,
/// one in the middle of each row, one at each turn and one where it ends. Raster coordinates, y up, double precision.
namespace FlowPath {

enum class Direction
{
    Right,
    Left,
    Up,
    Down
};

/// A triangle that reaches `forward` from its centre, as far behind it, and `aside` there to both sides.
QPainterPath arrowhead(const QPointF &centre, const QPointF &forward, const QPointF &aside);

/// A triangle `Constants::arrowSize` long either way from its centre.
struct Arrowhead
{
    QPointF centre;
    Direction direction;

    bool operator==(const Arrowhead &) const = default;
    QPainterPath path() const;
};

/// One port's run, as it is drawn: `start`, `passing`, `line`, `end`, in this order.
struct Run
{
    Arrowhead start;
    std::vector<Arrowhead> passing;
    QPainterPath line;
    Arrowhead end;
};

/// A run that snakes along rows. `y` is the centre of its first row; 0 or less: none is given, and the run starts at
/// its bottom row (`fromBottom`) or its top one. `x` receives the last panel centre, if a row was walked at all.
/// `andDelimiter` is the number of rows, truncated; 0: all. The direction of the end arrowhead follows `andRight` and
/// the parity of the wall's rows, not of the run's.
Run rowsRun(const PanelGrid &grid, bool fromRight, bool fromBottom, double &x, const double &y, bool andRight,
            float andDelimiter);

/// The transpose: a run that snakes along columns. `x` is the centre of its first column, `y` receives the last one.
Run columnsRun(const PanelGrid &grid, bool fromRight, bool fromBottom, const double &x, double &y, bool andEnd,
               float andDelimiter);

/// An arrowhead that begins or ends a run, in its colour with an outline.
void drawOutlined(DrawingSurface &surface, const QPainterPath &arrowhead, const Colour &colour);

/// `colour`: of the line and the arrowheads on it.
void draw(DrawingSurface &surface, const Run &run, const Colour &colour);

/// Draws one run along rows; see rowsRun() and draw().
void drawFlowPathRowsFromRight(DrawingSurface &surface, const PanelGrid &grid, bool fromRight, bool fromBottom,
                               double &x, const double &y, bool andRight, float andDelimiter, const Colour &colour);
/// Draws one run along columns; see columnsRun() and draw().
void drawFlowPathColumnsFromRight(DrawingSurface &surface, const PanelGrid &grid, bool fromRight, bool fromBottom,
                                  const double &x, double &y, bool andEnd, float andDelimiter, const Colour &colour);

} // namespace FlowPath
