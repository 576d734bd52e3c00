#include "facts/MissingPicture.h"

#include "still/LWStill.h"

namespace MissingPicture {

std::optional<QString> reason(const LWStill &still)
{
    if (!still.thumbnail().isNull())
        return std::nullopt;
    if (const std::optional<Result<ChartText>> chart = still.chart())
        return *chart ? QString("there is no memory for its chart") : chart->error().text;
    const Address &address = still.ImageURL();
    if (address.relative.isEmpty())
        return "it names no file";
    return QString("\"%1\" %2").arg(address.relative, still.pictureObstacle().value_or("is missing or no picture"));
}

std::optional<QString> sentenceOf(const Layer &layer)
{
    const auto *still = qobject_cast<const LWStill *>(&layer);
    const std::optional<QString> missing = still ? reason(*still) : std::nullopt;
    return missing ? std::optional(nameOf(layer) + " is left out: " + *missing) : std::nullopt;
}

QString nameOf(const Layer &picture)
{
    return picture.label().isEmpty() ? QString("A picture without a name") : picture.label();
}

} // namespace MissingPicture
