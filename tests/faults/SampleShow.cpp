#include "tests/faults/SampleShow.h"

#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <QImage>
#include <QVariant>

namespace {
LayerPointer wall(LayerHost &host, const QString &label, int row, int columns, int side)
{
    LWScreen::Arguments arguments;
    arguments.row = row;
    arguments.col = columns;
    arguments.panelWidth = side;
    arguments.panelHeight = side;
    arguments.rectColor = NamedColour::orange;
    arguments.rectColor2 = Colour::fromRgba8(0x12a456ffU);
    arguments.bgEnable = true;
    const auto made = LWScreen::initWithrow(host, arguments);
    made->setLabel(label);
    return made;
}

/// One by hand and one by itself, on a model that comes with the program and one of a person's own.
void layCables(Project &show)
{
    ProcessorSettings known;
    known.name = "A";
    known.model = "MX40 Pro";
    ProcessorSettings own;
    own.name = "B";
    own.own = OwnModel::of({.name = "Crate", .ports = 4, .pixels = 300'000}).value();
    own.model = "Crate";
    show.processors = {known, own};
    show.layers[0]->setValue("processor", "B");
    show.layers[0]->setValue("split", "panels");
    show.layers[1]->setValue("processor", "A");
    show.layers[1]->setValue("split", "hand");
    show.layers[1]->setValue("runs", QVariant::fromValue(CableRuns({{{"A", 3}, 1, {{0, 0}, {1, 0}, {1, 1}}}})));
}

QImage plate(const QSize &size)
{
    QImage picture(size, QImage::Format_RGB32);
    quint32 noise = 1; // no file of it is small
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            noise = noise * 1664525 + 1013904223;
            picture.setPixel(x, y, noise >> 8 | 0xff000000);
        }
    }
    return picture;
}

LayerPointer still(LayerHost &host, const QString &label, const QString &path, const QRect &place)
{
    const auto made = LWStill::initWithimage(host, QImage(path));
    made->setImageURL({"file://" + path, {}});
    made->setLabel(label);
    made->setPanelWidth(place.width());
    made->setPanelHeight(place.height());
    made->setXpoint(place.x());
    made->setYpoint(place.y());
    made->drawInRect();
    return made;
}
} // namespace

Project sampleShow(LayerHost &host, const QString &folder, bool large)
{
    const QString path = folder + "/plate.png";
    const QSize own = large ? QSize(900, 700) : QSize(40, 30);
    if (!plate(own).save(path))
        qFatal("%s: cannot be written", qUtf8Printable(path));

    Project show{large ? 900 : 120, large ? 1500 : 200, {}};
    show.layers = {wall(host, "LEFT", 2, 3, 16),
                   wall(host, "MAIN", large ? 7 : 2, large ? 9 : 2, large ? 96 : 12),
                   wall(host, "RIGHT", 1, 2, 16),
                   still(host, "PLATE", path, {{0, 0}, own}),
                   still(host, "LARGER", path, {{0, 0}, own * 1.25}),
                   still(host, "SMALLER", path, {{large ? 900 : 100, 50}, own * 0.75})};
    layCables(show);
    if (large) {
        UnknownContent unknown;
        unknown.ofRoot.push_back({QByteArray(3 << 20, 'u')});
        show.unknown = std::make_shared<const UnknownContent>(unknown);
    }
    return show;
}

std::vector<LayerPointer> samplePresets(LayerHost &host, bool large)
{
    const QString name(large ? 1 << 20 : 8, 'p');
    return {wall(host, name, 2, 2, 8), wall(host, "second", 1, 4, 8)};
}
