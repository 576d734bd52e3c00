#include "live/WallPicture.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <array>

namespace {
constexpr int leastTextHeight = 6;

/// The largest font in which the lines fit into a place.
QFont fontFor(const QRect &place, const QStringList &words)
{
    QFont font;
    font.setStyleStrategy(QFont::NoAntialias);
    int height = place.height() * 2 / (3 * std::max(1, static_cast<int>(words.size())) + 1);
    for (; height > leastTextHeight; height -= std::max(1, height / 10)) {
        font.setPixelSize(height);
        const QFontMetrics metrics(font);
        const bool fits = std::ranges::all_of(
            words, [&](const QString &line) { return metrics.horizontalAdvance(line) <= place.width() * 9 / 10; });
        if (fits)
            return font;
    }
    font.setPixelSize(leastTextHeight);
    return font;
}

void drawCross(QPainter &painter, const WallLight &light, const QSize &output)
{
    const QPoint middle = light.place.center();
    painter.fillRect(QRect(middle.x(), 0, 1, output.height()), Qt::white);
    painter.fillRect(QRect(0, middle.y(), output.width(), 1), Qt::white);
}

void drawLights(QPainter &painter, const std::vector<WallLight> &lights, const QSize &output)
{
    for (const WallLight &light : lights) {
        if (light.hasCross)
            drawCross(painter, light, output);
    }
    for (const WallLight &light : lights) {
        painter.fillRect(light.place & QRect(QPoint(), output), Qt::white);
        painter.setFont(fontFor(light.place, light.words));
        painter.setPen(Qt::black);
        painter.setClipRect(light.place & QRect(QPoint(), output));
        painter.drawText(light.place, Qt::AlignCenter, light.words.join('\n'));
        painter.setClipping(false);
    }
}

void drawPart(QPainter &painter, const QImage &picture, const QRect &part)
{
    const QRect seen = part & picture.rect();
    if (!seen.isEmpty())
        painter.drawImage(seen.topLeft(), picture, seen);
}

/// What a lit place and its cross cover.
QRegion extentOf(const std::vector<WallLight> &lights, const QSize &output)
{
    QRegion extent;
    for (const WallLight &light : lights) {
        extent += light.place;
        if (!light.hasCross)
            continue;
        extent += QRect(light.place.center().x(), 0, 1, output.height());
        extent += QRect(0, light.place.center().y(), output.width(), 1);
    }
    return extent;
}
} // namespace

namespace WallPicture {

QImage draw(const QImage &output, const WallLook &look, const QRect &part)
{
    QImage picture(part.size(), QImage::Format_RGB32);
    picture.fill(Qt::black);
    if (look.isBlack || picture.isNull())
        return picture;
    QPainter painter(&picture);
    painter.translate(-part.topLeft());
    if (look.lights)
        drawLights(painter, *look.lights, output.size());
    else
        drawPart(painter, look.frozen.isNull() ? output : look.frozen, part);
    painter.end();
    dim(picture, look.level);
    return picture;
}

std::optional<QRegion> difference(const WallLook &before, const WallLook &after, const QSize &output)
{
    if (before == after || (before.isBlack && after.isBlack))
        return QRegion();
    const bool isOtherLight = before.isBlack != after.isBlack || before.level != after.level ||
                              before.lights.has_value() != after.lights.has_value();
    if (isOtherLight || !before.lights)
        return std::nullopt;
    return extentOf(*before.lights, output) + extentOf(*after.lights, output);
}

void dim(QImage &picture, int level)
{
    if (level == 100)
        return;
    std::array<uchar, 256> dimmed{};
    for (std::size_t value = 0; value < dimmed.size(); ++value)
        dimmed[value] = static_cast<uchar>((static_cast<int>(value) * level + 50) / 100);
    for (int y = 0; y < picture.height(); ++y) {
        auto *pixel = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (QRgb *const end = pixel + picture.width(); pixel != end; ++pixel)
            *pixel = qRgb(dimmed[qRed(*pixel)], dimmed[qGreen(*pixel)], dimmed[qBlue(*pixel)]);
    }
}

} // namespace WallPicture
