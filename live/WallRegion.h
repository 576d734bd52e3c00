#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <optional>

/// Which part of the output a display shows, one output pixel to one device pixel.
struct WallRegion
{
    QPoint offset = {}; ///< the output's pixel at its upper left, as it is looked at
    int turn = 0;       ///< degrees by which its picture is turned clockwise: 0, 90, 180 or 270

    bool isUpright() const { return turn % 180 == 0; }
    /// The part of the output, for a display of so many device pixels.
    QRect part(const QSize &display) const { return {offset, isUpright() ? display : display.transposed()}; }

    /// The nearest place that an offset may have.
    static QPoint within(const QPoint &offset);

    /// "1920 0 90", as settings hold it.
    QString text() const;
    /// Nullopt: it is none.
    static std::optional<WallRegion> of(const QString &text);

    bool operator==(const WallRegion &) const = default;
};
