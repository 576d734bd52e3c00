#include "tests/screen/SamePicture.h"

#include <QPoint>

#include <algorithm>

namespace {
int difference(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                     std::abs(qAlpha(a) - qAlpha(b))});
}
} // namespace

testing::AssertionResult isSamePicture(const QImage &fast, const QImage &plain, int tolerance)
{
    if (fast.size() != plain.size() || fast.format() != plain.format())
        return testing::AssertionFailure() << "size " << fast.width() << " x " << fast.height() << ", plain "
                                           << plain.width() << " x " << plain.height();
    int differing = 0;
    int largest = 0;
    QPoint first;
    for (int y = 0; y < plain.height(); ++y) {
        const auto *fastRow = reinterpret_cast<const QRgb *>(fast.constScanLine(y));
        const auto *plainRow = reinterpret_cast<const QRgb *>(plain.constScanLine(y));
        for (int x = 0; x < plain.width(); ++x) {
            const int steps = difference(fastRow[x], plainRow[x]);
            if (steps <= tolerance)
                continue;
            first = differing == 0 ? QPoint(x, y) : first;
            largest = std::max(largest, steps);
            ++differing;
        }
    }
    if (differing == 0)
        return testing::AssertionSuccess();
    const auto pixel = [&](const QImage &image) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(first.y()));
        return QString::number(row[first.x()], 16).toStdString();
    };
    return testing::AssertionFailure() << differing << " pixels differ by up to " << largest << "; the first at ("
                                       << first.x() << ", " << first.y() << " from the top): " << pixel(fast)
                                       << ", plain " << pixel(plain);
}
