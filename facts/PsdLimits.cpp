#include "facts/PsdLimits.h"

#include "drawing/Raster.h"
#include "psd/KXPSDWriter.h"

namespace PsdLimits {

Result<void> checkOutputSize(qint64 width, qint64 height)
{
    const QString size = QString("an output of %1 x %2 pixels").arg(width).arg(height);
    if (width < 1 || height < 1 || width > KXPSDWriter::longestSide || height > KXPSDWriter::longestSide)
        return fail(QString("%1: a PSD has 1 to %2 on a side; change the output's size")
                        .arg(size)
                        .arg(KXPSDWriter::longestSide));
    if (!Raster::canHold(width, height))
        return fail(QString("%1: at most %2 in all can be drawn; make it smaller").arg(size).arg(Raster::mostPixels));
    return {};
}

} // namespace PsdLimits
