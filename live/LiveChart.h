#pragma once

#include "charts/Chart.h"

#include <QImage>
#include <QObject>
#include <QRect>
#include <QRegion>
#include <QTimer>

#include <functional>
#include <vector>

/// A chart that stands on the wall over the picture, and moves there. All displays show the same frame, which follows
/// from the clock alone. Main thread only.
class LiveChart final : public QObject
{
    Q_OBJECT

public:
    /// A place of the output that a chart is drawn for, with what the chart asks of it.
    struct Place
    {
        QRect box;                           ///< pixels of the output
        std::vector<ChartPanel> panels = {}; ///< in pixels of the output
        std::vector<QRect> walls = {};       ///< likewise

        bool operator==(const Place &) const = default;
    };
    /// How a chart is shown.
    struct Style
    {
        LevelRange range = LevelRange::Full;
        double rate = 60; ///< frames a second
        ChartOptions options = {};
        bool isOver = false; ///< the picture is seen where the chart is black
    };
    /// A picture that lies over the output.
    struct Picture
    {
        QRect box;
        QImage image;        ///< RGB32, of its size
        bool isOver = false; ///< see Style
    };
    /// Nanoseconds that have gone by since any moment.
    using Clock = std::function<qint64()>;

    /// A chart that flashes ends after so long.
    static constexpr qint64 longestFlash = 30'000'000'000;

    explicit LiveChart(Clock clock, QObject *parent = nullptr);

    /// Begins a chart of the table at its first frame. Places without pixels, and those for which there is no memory,
    /// are left out.
    void show(const Chart &chart, const Style &style, const std::vector<Place> &places);
    /// The show has changed: it goes on at the same frame, drawn anew where places are others.
    void setPlaces(const std::vector<Place> &places);
    /// Frames a second from now on. They begin anew, and what tells the time tells it on.
    void setRate(double rate);
    void end();
    /// Null: there is none.
    const Chart *chart() const { return m_chart; }
    const std::vector<Picture> &pictures() const { return m_pictures; }
    const Style &style() const { return m_style; }
    qint64 frame() const { return m_frame; }
    /// Frames that were not shown, as the computer was too slow for them.
    qint64 lateFrames() const { return m_late; }

public slots:
    /// Draws the frame that is due.
    void tick();

signals:
    /// chart() is another now, or all of pictures().
    void changed();
    /// Only this of the output looks otherwise.
    void moved(const QRegion &output);

private:
    void startTimer();
    void drawPlaces();

    Clock m_clock;
    QTimer m_timer; ///< only begins frames: which one it is, the clock says
    const Chart *m_chart = nullptr;
    Style m_style;
    qint64 m_begin = 0;       ///< when it was shown
    qint64 m_beginOfRate = 0; ///< since when it has this rate
    qint64 m_frame = 0;
    qint64 m_late = 0;
    std::vector<Place> m_places;
    std::vector<ChartShape> m_shapes; ///< of the pictures
    std::vector<Picture> m_pictures;
};
