#pragma once

#include "tests/output/SamplePictures.h"

#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <random>

/// The largest difference of any channel of any pixel; 256 for different sizes.
inline int difference(const QImage &left, const QImage &right)
{
    if (left.size() != right.size())
        return 256;
    int largest = 0;
    for (int y = 0; y < left.height(); ++y) {
        const uchar *one = left.constScanLine(y);
        const uchar *other = right.constScanLine(y);
        for (int i = 0; i < left.width() * 4; ++i)
            largest = std::max(largest, std::abs(one[i] - other[i]));
    }
    return largest;
}

/// Pictures of every kind, by chance but the same in each run.
class Chance
{
public:
    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_engine); }
    QColor colour(int alpha) { return QColor(number(0, 255), number(0, 255), number(0, 255), alpha); }

    PlacedPicture picture(const QSize &output)
    {
        QImage picture = filled(QSize(number(1, 150), number(1, 90)), colour(255));
        const int kind = number(0, 4);
        if (kind == 1)
            picture.fill(colour(number(0, 254)));
        if (kind == 2)
            makeHoles(picture);
        if (kind == 3)
            makeNoise(picture);
        return placed(picture, number(-60, output.width() + 10), number(-60, output.height() + 10));
    }

    std::vector<PlacedPicture> pictures(const QSize &output, int most = 9)
    {
        std::vector<PlacedPicture> pictures(number(0, most));
        for (PlacedPicture &one : pictures)
            one = picture(output);
        return pictures;
    }

private:
    void makeHoles(QImage &picture)
    {
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        for (int i = 0; i < 3; ++i) {
            const QRect hole(number(0, picture.width()), number(0, picture.height()), number(1, 90), number(1, 40));
            painter.fillRect(hole, Qt::transparent);
        }
    }
    void makeNoise(QImage &picture)
    {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                picture.setPixelColor(x, y, colour(number(0, 255)));
        }
    }

    std::mt19937 m_engine{20260731};
};
