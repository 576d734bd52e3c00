#pragma once

#include <QRect>
#include <QSize>
#include <QString>

class QScreen;

/// A display of the machine, as whoever chooses one needs to know it.
struct WallDisplay
{
    QString connector; ///< "DP-2"; what else the platform tells may be empty
    QString maker = {};
    QString model = {};
    QString serial = {};
    QRect place = {};  ///< on the desktop, logical pixels
    double ratio = 1;  ///< device pixels to a logical one
    QSize pixels = {}; ///< as far as the platform tells

    static WallDisplay of(const QScreen &screen);

    /// What it is known by when it comes back: two of one kind differ in their connector alone.
    QString key() const;
    /// "DP-2, DELL U2720Q"; maker and model only where somebody says them.
    QString title() const;

    /// Pixels by which `pixels` may be too many: the platform rounds the size of a display that it scales.
    int slack() const;

    /// Why it cannot show an output pixel for pixel; empty: it can.
    QString whyNotExact(bool isWayland) const;

    bool operator==(const WallDisplay &) const = default;
};
