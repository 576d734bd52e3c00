#include "app/LWAppDelegate.h"
#include "base/NearestInt.h"
#include "layer/PixelBox.h"
#include "screen/LWScreen.h"
#include "show/LayerArchive.h"
#include "show/LayerPasteboard.h"
#include "still/LWStill.h"
#include "still/PictureFile.h"

#include <numeric>

namespace {
/// The way to where so many halves of what stays free of `room` lie before `span`.
qint64 wayInto(int room, const PixelSpan &span, int halves)
{
    return ((room - (span.to - span.from)) * halves >> 1) - span.from;
}
} // namespace

std::vector<LayerPointer> LWAppDelegate::selectedLayers() const
{
    std::vector<LayerPointer> layers;
    for (const qsizetype index : m_arraycontroller.selectionIndexes())
        layers.push_back(m_arraycontroller.layer(index));
    return layers;
}

bool LWAppDelegate::copyToPasteboard()
{
    const std::vector<LayerPointer> layers = selectedLayers();
    if (layers.empty())
        return false;
    const Result<void> copied = LayerPasteboard::write(layers);
    if (!copied)
        m_person.tellFailure("Cannot copy " + copied.error().text);
    return copied.has_value();
}

void LWAppDelegate::cutToPasteboard()
{
    if (allScreensArray().size() < 2)
        return tellListCannotBeEmpty();
    if (!copyToPasteboard())
        return;
    m_arraycontroller.removeObjectsAtArrangedObjectIndexes(m_arraycontroller.selectionIndexes());
    finishEdit("cut layer");
}

void LWAppDelegate::pasteFromPasteboard()
{
    const Result<std::vector<LayerPointer>> layers = LayerPasteboard::read(*this);
    if (!layers)
        return m_person.tellFailure("Cannot paste: " + layers.error().text);
    if (!hasRoomFor(std::ssize(*layers), m_arraycontroller))
        return;
    m_wiring.welcome(*layers);
    insertAboveSelection(*layers);
    finishEdit("paste layer");
}

void LWAppDelegate::insertAboveSelection(const std::vector<LayerPointer> &layers)
{
    const qsizetype first = std::max<qsizetype>(m_arraycontroller.selectionIndex(), 0);
    m_arraycontroller.insertObjectsAtArrangedObjectIndex(layers, first);
    std::vector<qsizetype> rows(layers.size());
    std::iota(rows.begin(), rows.end(), first);
    m_arraycontroller.setSelectionIndexes(std::move(rows), first);
}

void LWAppDelegate::placeNew(Layer &still, std::optional<QPoint> middle) const
{
    still.setAspectRatio(true);
    if (!middle)
        middle = m_person.middleOfView();
    if (!middle)
        return;
    still.setXpoint(middle->x() - still.panelWidth() / 2);
    still.setYpoint(middle->y() - still.panelHeight() / 2);
}

void LWAppDelegate::addImages(const QStringList &paths, const std::optional<QPoint> &middle)
{
    if (!hasRoomFor(paths.size(), m_arraycontroller))
        return;
    std::vector<LayerPointer> stills;
    for (const QString &path : paths) {
        const Address address = Address::fromLocalFile(path);
        const PictureFile::Loaded loaded = PictureFile::load(address.toLocalFile());
        if (!loaded.picture) {
            m_person.tellFailure(PictureFile::cannotShow(path, loaded.obstacle));
            continue;
        }
        const std::shared_ptr<LWStill> still = LWStill::initWithimage(*this, *loaded.picture);
        still->takePicture(loaded);
        still->setImageURL(address);
        placeNew(*still, middle);
        stills.push_back(still);
    }
    if (stills.empty())
        return;
    insertAboveSelection(stills);
    finishEdit("add image");
}

void LWAppDelegate::moveSelection(const QPoint &distance)
{
    shiftSelection(distance.x(), distance.y());
    finishEdit("move layer", {"move", nullptr});
}

void LWAppDelegate::shiftSelection(qint64 right, qint64 down)
{
    for (const LayerPointer &layer : selectedLayers()) {
        layer->setXpoint(nearestInt(layer->xpoint() + right));
        layer->setYpoint(nearestInt(layer->ypoint() + down));
        layer->drawInRect(); // walls show their place
    }
}

/// So that so many halves of what the selected layers leave free of the output lie to their left and above them.
void LWAppDelegate::placeSelection(int halvesLeft, int halvesAbove)
{
    const std::vector<LayerPointer> layers = selectedLayers();
    if (layers.empty())
        return;
    PixelBox box = PixelBox::of(*layers.front());
    for (const LayerPointer &layer : layers)
        box = box.united(PixelBox::of(*layer));
    shiftSelection(wayInto(m_OutputWidth, box.columns, halvesLeft), wayInto(m_OutputHeight, box.rows, halvesAbove));
    finishEdit("move layer");
}

void LWAppDelegate::centreInOutput()
{
    placeSelection(1, 1);
}

void LWAppDelegate::fitToOutputCorner(Qt::Corner corner)
{
    const bool isRight = corner == Qt::TopRightCorner || corner == Qt::BottomRightCorner;
    const bool isBottom = corner == Qt::BottomLeftCorner || corner == Qt::BottomRightCorner;
    placeSelection(isRight ? 2 : 0, isBottom ? 2 : 0);
}

void LWAppDelegate::toggleVisibility()
{
    const LayerPointer shown = m_arraycontroller.selectedLayer();
    if (!shown)
        return;
    const bool isVisible = !shown->visible();
    for (const LayerPointer &layer : selectedLayers())
        layer->setVisible(isVisible);
    finishEdit("visibility");
}

void LWAppDelegate::toggleVisibilityOf(qsizetype row)
{
    const LayerPointer layer = m_arraycontroller.layer(row);
    if (!layer)
        return;
    layer->setVisible(!layer->visible());
    finishEdit("visibility");
}

void LWAppDelegate::hideOthers()
{
    for (const LayerPointer &layer : allScreensArray())
        layer->setVisible(false);
    for (const LayerPointer &layer : selectedLayers())
        layer->setVisible(true);
    finishEdit("hide others");
}

void LWAppDelegate::switchAllPanelsOn()
{
    editSelectedWalls("switch all panels on", [](LWScreen &wall) { wall.setHiddenBoxes(QStringList()); });
}

void LWAppDelegate::exchangeColours()
{
    editSelectedWalls("exchange colours", [](LWScreen &wall) {
        const OptionalColour first = wall.rectColor();
        wall.setRectColor(wall.rectColor2());
        wall.setRectColor2(first);
    });
}

void LWAppDelegate::editSelectedWalls(const QString &name, const std::function<void(LWScreen &wall)> &edit)
{
    for (const LayerPointer &layer : selectedLayers()) {
        auto *wall = qobject_cast<LWScreen *>(layer.get());
        if (!wall)
            continue;
        edit(*wall);
        wall->drawInRect();
    }
    finishEdit(name);
}
