#pragma once

#include "grid/PanelKeys.h"
#include "screen/LWScreen.h"

#include <QPoint>
#include <QRect>
#include <QSet>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class CanvasDocument;

/// A press on a panel of a wall and a drag from there over others. The press switches its panel, as a click does; the
/// drag gives the others the state that this one got. Main thread only.
class PanelPainting
{
public:
    /// A press at an output pixel of the wall, which is the selected layer. `document` outlives this.
    PanelPainting(CanvasDocument &document, std::shared_ptr<LWScreen> wall, const QPoint &pixel);

    enum class Shape
    {
        Stroke,   ///< all panels that the pointer has come over
        Rectangle ///< those between the press and the pointer
    };
    /// The pointer is at that pixel, which may lie beside the wall. Where other panels are painted than before, the
    /// document is told to update().
    void track(const QPoint &pixel, Shape shape);
    /// Makes it one edit.
    void finish();
    /// All panels are as they were.
    void cancel();

private:
    Cell placeOf(const QPoint &pixel) const;
    void strokeTo(const Cell &place);
    void addToStroke(const Cell &panel);
    QRect rectangleTo(const Cell &place) const;
    PanelKeys keysAtPress() const { return m_atPress.value_or(PanelKeys()); }
    void beginAnew();
    void paintStroke();
    void paintRectangle(const QRect &rectangle);
    bool isPainted(const Cell &panel) const;
    void switchOff(const std::vector<Cell> &come);
    void switchOn();
    void orderRectangle();

    CanvasDocument &m_document;
    std::shared_ptr<LWScreen> m_wall;
    std::optional<PanelKeys> m_atPress; ///< of the wall; none: it had no list
    std::optional<Cell> m_first;        ///< under the press; none: the wall has no panels to paint
    bool m_switchesOff = false;
    CellSet m_offAtPress;
    PanelKeys m_keys; ///< with what is painted; where it switches off, behind those of the press
    std::vector<Cell> m_stroke;
    QSet<std::pair<int, int>> m_inStroke;
    std::ptrdiff_t m_paintedOfStroke = 0;
    QRect m_paintedRectangle; ///< columns and rows
    Cell m_place;             ///< where the pointer is; beside the wall one further
    Shape m_shape = Shape::Stroke;
};
