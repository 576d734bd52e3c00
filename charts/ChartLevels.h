#pragma once

#include "charts/ChartShape.h"

#include <QColor>

#include <algorithm>
#include <cmath>

/// Code values of light: 0 is black, 1 is white, and what lies beyond is clipped.
struct ChartLevels
{
    LevelRange range = LevelRange::Full;

    int code(double level) const
    {
        return range == LevelRange::Full ? static_cast<int>(std::clamp(std::floor(255 * level + 0.5), 0.0, 255.0))
                                         : static_cast<int>(std::clamp(std::floor(16 + 219 * level + 0.5), 1.0, 254.0));
    }
    /// Of part / whole, 0 to 1, without a rounding in between; 0 where the whole is 0.
    int code(qint64 part, qint64 whole) const
    {
        const qint64 most = range == LevelRange::Full ? 255 : 219;
        const qint64 black = range == LevelRange::Full ? 0 : 16;
        return static_cast<int>(black + (whole == 0 ? 0 : (2 * most * part + whole) / (2 * whole)));
    }

    QRgb colour(double red, double green, double blue) const { return qRgb(code(red), code(green), code(blue)); }
    QRgb grey(double level) const { return colour(level, level, level); }
    static QRgb greyOfCode(int code) { return qRgb(code, code, code); }
    QRgb black() const { return grey(0); }
    QRgb white() const { return grey(1); }
};
