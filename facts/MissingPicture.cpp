#include "facts/MissingPicture.h"

#include "still/LWStill.h"
#include "still/PictureFile.h"

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
    return QString("\"%1\" %2")
        .arg(address.relative, PictureFile::obstacle(address).value_or("is missing or no picture"));
}

} // namespace MissingPicture
