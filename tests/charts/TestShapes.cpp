#include "tests/charts/TestShapes.h"

QImage pictureOf(const char *name, const ChartShape &shape, qint64 frame)
{
    const Chart *chart = Chart::find(name);
    EXPECT_NE(chart, nullptr) << name;
    return chart ? chart->picture(shape, frame) : QImage();
}

ChartShape shapeWithPanels(const QSize &size)
{
    ChartShape shape{.size = size};
    int number = 0;
    for (const QRect &wall : {QRect(0, 0, 6, 4), QRect(6, 1, 3, 3)}) { // in panels
        const int side = std::max(1, std::min(size.width() / 9, size.height() / 4));
        shape.walls.emplace_back(wall.left() * side, wall.top() * side, wall.width() * side, wall.height() * side);
        for (int row = 0; row < wall.height(); ++row) {
            for (int column = 0; column < wall.width(); ++column) {
                if ((row * 7 + column) % 5 == 4)
                    continue; // off
                const int port = number / 10 + 1;
                const QRect box((wall.left() + column) * side, (wall.top() + row) * side, side, side);
                shape.panels.push_back(
                    {box, QString("%1/%2").arg(column + 1).arg(row + 1), QString("A%1").arg(port), number % 10 + 1});
                ++number;
            }
        }
    }
    return shape;
}

void expectProbes(const QImage &picture, const std::vector<Probe> &probes)
{
    for (const Probe &probe : probes) {
        const QRgb pixel = picture.pixel(probe.x, probe.y);
        EXPECT_EQ(std::vector({qRed(pixel), qGreen(pixel), qBlue(pixel)}),
                  std::vector({probe.red, probe.green, probe.blue}))
            << probe.x << "," << probe.y;
    }
}

void expectGreys(const QImage &picture, const std::vector<GreyProbe> &probes)
{
    for (const GreyProbe &probe : probes)
        expectProbes(picture, {{probe.x, probe.y, probe.code, probe.code, probe.code}});
}

std::vector<int> edgesInRow(const QImage &picture, int y)
{
    std::vector<int> edges{0};
    for (int x = 1; x < picture.width(); ++x) {
        if (picture.pixel(x, y) != picture.pixel(x - 1, y))
            edges.push_back(x);
    }
    edges.push_back(picture.width());
    return edges;
}
