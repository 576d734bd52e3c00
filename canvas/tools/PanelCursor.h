#pragma once

#include "screen/LWScreen.h"

#include <QPoint>

#include <memory>
#include <optional>

class CanvasDocument;

/// The panel that the arrow keys have reached; it counts only while its wall is the one that clicks go to. Main thread
/// only.
class PanelCursor
{
public:
    /// `document` outlives this.
    explicit PanelCursor(CanvasDocument &document) : m_document(document) {}

    /// Goes on by columns and rows, as far as the selected wall goes; from `start`, or else to the first panel, where
    /// it was led nowhere before. False: there is nothing to go over.
    bool move(const QPoint &step, const std::optional<Cell> &start);
    /// None: it was led nowhere.
    std::optional<Cell> panel() const;
    /// That panel() is on; only where there is one.
    const LWScreen &wall() const { return *m_wall; }
    /// Its output pixels; only where there is one.
    QRectF place() const;
    /// As a click on it does, one edit. False: there is none.
    bool switchPanel();
    /// Returns whether there was one.
    bool drop();

private:
    CanvasDocument &m_document;
    std::shared_ptr<LWScreen> m_wall; ///< null: led nowhere
    Cell m_panel;
};
