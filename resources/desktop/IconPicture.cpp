// Draws a picture of the program's icon for desktops that show no SVG: make_icon_picture ICON.svg SIDE PICTURE.png.
// Runs while the program is built.

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>

#include <cstdio>
#include <cstdlib>

int main(int argumentCount, char **arguments)
{
    const QCoreApplication application(argumentCount, arguments); // finds the plugin that reads SVG
    if (argumentCount != 4) {
        std::fprintf(stderr, "usage: %s ICON.svg SIDE PICTURE.png\n", arguments[0]);
        return 2;
    }
    const int side = QString(arguments[2]).toInt();
    QImageReader reader(QString::fromLocal8Bit(arguments[1]), "svg");
    reader.setScaledSize({side, side});
    const QImage picture = reader.read();
    const QString path = QString::fromLocal8Bit(arguments[3]);
    QDir().mkpath(QFileInfo(path).path());
    if (!picture.isNull() && picture.save(path, "png"))
        return EXIT_SUCCESS;
    std::fprintf(stderr, "%s: the icon cannot be drawn: %s\n", qPrintable(path), qPrintable(reader.errorString()));
    return EXIT_FAILURE;
}
