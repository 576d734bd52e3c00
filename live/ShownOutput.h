#pragma once

#include "live/LiveChart.h"
#include "output/ComposedOutput.h"

#include <QObject>
#include <QRegion>

/// The output as it is shown on the canvas, in the preview and on the wall: the composed one, or with the chart that
/// lies over it. Main thread only.
class ShownOutput final : public QObject
{
    Q_OBJECT

public:
    /// Both outlive this.
    ShownOutput(const ComposedOutput &composed, const LiveChart &chart);

    /// To be read where it is painted, never kept: the next frame is drawn into it.
    const ComposedOutput &output() const { return m_withChart.picture.isNull() ? m_composed : m_withChart; }
    const LiveChart &chart() const { return m_chart; }

public slots:
    /// The output was composed anew.
    void takeComposed();

signals:
    /// output() is another, or looks otherwise.
    void changed();

private:
    void layChart();
    void draw(const QRegion &where);
    void drawFrame(const QRegion &where);

    const ComposedOutput &m_composed;
    const LiveChart &m_chart;
    ComposedOutput m_withChart; ///< no picture: there is no chart
    qint64 m_drawnFrom = 0;     ///< the cache key of the composed picture that is in it
};
