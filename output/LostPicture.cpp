#include "output/LostPicture.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace {
QString sentenceOf(const Layer &layer)
{
    const QLocale locale(QLocale::English);
    return QString(
               "%1: there is not enough memory to show it in %2 x %3 pixels; close other programs or make it smaller")
        .arg(layer.label().isEmpty() ? QString("A layer without a name") : layer.label(),
             locale.toString(layer.screenSizeWidth()), locale.toString(layer.screenSizeHeight()));
}
} // namespace

namespace LostPicture {

Result<void> check(const ComposedOutput &output, const std::vector<LayerPointer> &layers)
{
    std::vector<LayerPointer> visible;
    std::ranges::copy_if(layers, std::back_inserter(visible),
                         [](const LayerPointer &layer) { return layer->visible(); });
    QStringList lost;
    for (const std::size_t row : output.lost)
        lost.append(sentenceOf(*visible.at(row)));
    return lost.isEmpty() ? Result<void>() : fail(lost.join(". "));
}

} // namespace LostPicture
