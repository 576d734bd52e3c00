#include "output/LostPicture.h"

#include "drawing/Raster.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace {
QString sentenceOf(const QString &name, qint64 width, qint64 height)
{
    const QLocale locale(QLocale::English);
    return QString(
               "%1: there is not enough memory to show it in %2 x %3 pixels; close other programs or make it smaller")
        .arg(name, locale.toString(width), locale.toString(height));
}

QString sentenceOf(const Layer &layer)
{
    return sentenceOf(layer.label().isEmpty() ? QString("A layer without a name") : layer.label(),
                      layer.screenSizeWidth(), layer.screenSizeHeight());
}
} // namespace

namespace LostPicture {

Result<void> check(const ComposedOutput &output, const QSize &size, const std::vector<LayerPointer> &layers)
{
    if (output.picture.isNull() && Raster::canHold(size.width(), size.height()))
        return fail(sentenceOf("The output", size.width(), size.height()));
    std::vector<LayerPointer> visible;
    std::ranges::copy_if(layers, std::back_inserter(visible),
                         [](const LayerPointer &layer) { return layer->visible(); });
    QStringList lost;
    for (const std::size_t row : output.lost)
        lost.append(sentenceOf(*visible.at(row)));
    return lost.isEmpty() ? Result<void>() : fail(lost.join(". "));
}

} // namespace LostPicture
