#pragma once

#include "canvas/tools/Attraction.h"

#include <QPoint>
#include <QSizeF>

#include <optional>
#include <vector>

class CanvasDocument;

/// A drag of the selected layers over the output. Main thread only.
class Arranging
{
public:
    /// The topmost visible layer at an output pixel, which may lie beside the output; null where there is none.
    static LayerPointer layerAt(const CanvasDocument &document, const QPoint &pixel);
    /// A press at an output pixel: selects the layer there, with `extends` adds it to the selection or takes it out of
    /// one of several. Returns the layer that a drag from there takes hold of; null for none.
    static LayerPointer press(CanvasDocument &document, const QPoint &pixel, bool extends);

    /// A drag of the document's selected layers from that pixel on; `grabbed` is one of them. `document` outlives this.
    Arranging(CanvasDocument &document, LayerPointer grabbed, const QPoint &pixel);

    /// The pointer is at that pixel: the layers go as far as it went, all by the same way. Within `reach` pixels across
    /// and down the box around them goes to the lines of the visible layers that stay and of the output; nullopt: it
    /// does not. Where the way is another one than before, the document is told to update().
    void track(const QPoint &pixel, const std::optional<QSizeF> &reach);
    /// Makes it one edit, if anything has moved.
    void finish();
    /// It was a click and no drag: the layer that it took hold of is selected alone.
    void click();
    /// All layers are where they were.
    void cancel();

    const Layer &grabbed() const { return *m_grabbed; }
    /// The lines that the box has been attracted to, see Attraction::met(): x of upright ones, y of level ones.
    const std::vector<double> &uprightLines() const { return m_uprightLines; }
    const std::vector<double> &levelLines() const { return m_levelLines; }

private:
    struct Way
    {
        qint64 x = 0;
        qint64 y = 0;

        bool operator==(const Way &) const = default;
    };
    struct Moved
    {
        LayerPointer layer;
        int xAtPress;
        int yAtPress;
    };

    void takeLines(const std::vector<LayerPointer> &moved);
    void moveBy(const Way &way);

    CanvasDocument &m_document;
    LayerPointer m_grabbed;
    QPoint m_press;
    std::vector<Moved> m_moved;
    PixelBox m_box;       ///< around them at the press
    PixelSpan m_xAtPress; ///< least and greatest place of them
    PixelSpan m_yAtPress;
    Attraction m_across;
    Attraction m_down;
    Way m_way;
    std::vector<double> m_uprightLines;
    std::vector<double> m_levelLines;
};
