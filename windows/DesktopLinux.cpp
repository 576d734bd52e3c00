#include "windows/Desktop.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <fontconfig/fontconfig.h>

void Desktop::findFonts()
{
    FcInit();
}

void Desktop::keepLooks() {}

QImage Desktop::drawnSign(const QString &name, int side, const QColor &colour)
{
    QFile file(":/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray drawing = file.readAll().replace("currentColor", colour.name().toLatin1());
    QBuffer buffer(&drawing);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize({side, side});
    return reader.read();
}
