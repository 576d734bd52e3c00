#include "facts/MissingPicture.h"

#include "still/LWStill.h"

namespace MissingPicture {

std::optional<QString> reason(const LWStill &still)
{
    if (!still.thumbnail().isNull())
        return std::nullopt;
    if (const std::optional<Result<ChartText>> chart = still.chart())
        return *chart ? QString("there is no memory for its chart") : chart->error().text;
    const QString &address = still.ImageURL().relative;
    return address.isEmpty() ? QString("it names no file") : QString("\"%1\" is missing or no picture").arg(address);
}

} // namespace MissingPicture
