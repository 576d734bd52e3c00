#include "tests/formats/SampleProject.h"

#include "formats/JsonValues.h"
#include "formats/PropertyText.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <QVariant>

#include <limits>

namespace {
LayerPointer oddScreen(LayerHost &host)
{
    const auto screen = std::make_shared<LWScreen>(host);
    screen->setRow(3);
    screen->setCol(4);
    screen->setPanelWidth(31);
    screen->setPanelHeight(17);
    screen->setLabel(QString::fromUtf8("Bühne 左 \xf0\x9f\x8e\xac \"quoted\"\n\t\\"));
    screen->setRectColor(Colour{0.1, 1.0 / 3, 0.7, 1});
    screen->setRectColor2(Colour::fromRgba8(0x80123456U));
    screen->setBoarderColor(Colour{1.25, -0.5, 0, 0.3});
    screen->setCircleColor(NamedColour::clear);
    screen->setLabelColor(NamedColour::orange);
    screen->setXpoint(-100);
    screen->setYpoint(std::numeric_limits<int>::min());
    screen->setLabelFontSize(12);
    screen->setPixelLimit(-3);
    screen->setPattern(8);
    screen->setDrawLabels(true);
    screen->setDrawFlowPath(true);
    screen->setPowerOnCell(std::numeric_limits<int>::max());
    screen->setHiddenBoxes(QStringList{"0,0", "2,3", "18446744073709551615,1", "no key", ""});
    screen->drawInRect();
    return screen;
}

LayerPointer nullScreen(LayerHost &host)
{
    const auto screen = std::make_shared<LWScreen>(host);
    screen->setLabel("$null");
    screen->drawInRect();
    return screen;
}

LayerPointer still(LayerHost &host, const Address &address)
{
    const auto still = LWStill::initWithimage(host, QImage(31, 17, QImage::Format_RGB32));
    still->setImageURL(address);
    still->setLabel("");
    still->setPanelWidth(99);
    still->setSfColor(Colour::gray(0.5));
    return still;
}
} // namespace

Project sampleProject(LayerHost &host)
{
    return {2160,
            3840,
            {oddScreen(host), still(host, {"file:///show/plate%20%C3%BC.png", {}}), LWScreen::init(host),
             still(host, {"logo.png", {"plates/", "file:///show/"}}), nullScreen(host), still(host, {})}};
}

QString archiveText(const Layer &layer)
{
    QString text = layer.className() + '\n';
    ArchiveObject coder(layer.className());
    layer.encodeWithCoder(coder);
    for (const ArchiveField &field : layer.keptFields()) {
        const QByteArray value = PropertyText::text(layer.property(field.property), {});
        text += QString("%1 %2 %3\n").arg(field.key, coder.value(field.key).kind(), QString::fromUtf8(value));
    }
    return text;
}

QString archiveText(const Project &project)
{
    QString text = QString("%1 %2\n").arg(project.outputHeight).arg(project.outputWidth);
    for (const LayerPointer &layer : project.layers)
        text += archiveText(*layer);
    return text;
}
