// Writes the colour profiles that documents embed, as ICC files made by Qt, into the folder that is named on the
// command line. Runs while the program is built.

#include <QColorSpace>
#include <QDir>
#include <QPointF>
#include <QSaveFile>

#include <cstdio>
#include <cstdlib>

namespace {

/// The RGB space of old studio monitors: their phosphors, and the gamma that print shops worked with.
QColorSpace genericRGB()
{
    const QPointF whiteD65(0.3127, 0.3290);
    return QColorSpace(whiteD65, {0.6295, 0.3407}, {0.2949, 0.6055}, {0.1551, 0.0762},
                       QColorSpace::TransferFunction::Gamma, 1.8F);
}

bool writeProfile(const QDir &folder, const QString &fileName, QColorSpace space, const QString &description)
{
    space.setDescription(description);
    const QByteArray profile = space.iccProfile();
    QSaveFile file(folder.filePath(fileName));
    if (!profile.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(profile) == profile.size() && file.commit())
        return true;
    std::fprintf(stderr, "%s: the colour profile cannot be written: %s\n", qPrintable(file.fileName()),
                 qPrintable(file.errorString()));
    return false;
}

} // namespace

int main(int argumentCount, char **arguments)
{
    if (argumentCount != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", arguments[0]);
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(arguments[1]));
    const bool written = writeProfile(folder, "GenericRGB", genericRGB(), "Generic RGB") &&
                         writeProfile(folder, "sRGB", QColorSpace::SRgb, "sRGB") &&
                         writeProfile(folder, "AdobeRGB1998", QColorSpace::AdobeRgb, "Adobe RGB (1998) compatible");
    return written ? EXIT_SUCCESS : EXIT_FAILURE;
}
