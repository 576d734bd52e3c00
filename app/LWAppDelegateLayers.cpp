#include "app/DocumentLog.h"
#include "app/LWAppDelegate.h"
#include "layer/LayerLimits.h"
#include "screen/LWScreen.h"
#include "show/LayerArchive.h"
#include "show/NewScreens.h"
#include "still/LWStill.h"
#include "still/PictureFile.h"

#include <QTimer>

#include <algorithm>

namespace {
constexpr QLatin1StringView nameOfLayerTable{"mainTView"};
constexpr QLatin1StringView nameOfPresetTable{"presetTView"};
} // namespace

void LWAppDelegate::AddScreen()
{
    if (!hasRoomFor(1, m_arraycontroller))
        return;
    ++m_screenNumber;
    const QString label = QString::asprintf("Layer %i", m_screenNumber);
    const LayerPointer wall = LWScreen::initWithrow(*this, NewScreens::added(label));
    m_wiring.welcome({wall});
    insertAndSelect(wall, m_selectedRow + 1);
    m_person.endSheet(Person::Sheet::AddWindow);
    finishEdit("add screen");
}

void LWAppDelegate::AddImage()
{
    if (!hasRoomFor(1, m_arraycontroller))
        return;
    const std::optional<QString> path = m_person.runModalOpenPanel({"Add image", FileFormat::Gives::Layer});
    if (!path)
        return;
    const Address address = Address::fromLocalFile(*path);
    const PictureFile::Loaded loaded = PictureFile::load(address.toLocalFile());
    const auto still = LWStill::initWithimage(*this, loaded.picture ? *loaded.picture : QImage());
    still->takePicture(loaded);
    placeNew(*still, std::nullopt);
    insertAndSelect(still, m_selectedRow + 1);
    m_person.endSheet(Person::Sheet::AddWindow);
    still->setImageURL(address);
    if (!loaded.picture)
        m_person.tellFailure(PictureFile::cannotShow(*path, loaded.obstacle));
    finishEdit("add image");
}

void LWAppDelegate::addChart(const QString &chart)
{
    if (!hasRoomFor(1, m_arraycontroller))
        return;
    const std::shared_ptr<LWStill> still = LWStill::initWithimage(*this, {});
    still->setValue("chart", chart);
    still->setPanelWidth(m_OutputWidth);
    still->setPanelHeight(m_OutputHeight);
    still->drawInRect();
    insertAboveSelection({still});
    finishEdit("add chart");
}

void LWAppDelegate::choosePicture()
{
    const LayerPointer selected = m_arraycontroller.selectedLayer();
    auto *still = qobject_cast<LWStill *>(selected.get());
    const std::optional<QString> path =
        still ? m_person.runModalOpenPanel({"Choose picture", FileFormat::Gives::Layer}) : std::nullopt;
    if (!path)
        return;
    still->setImageURL(Address::fromLocalFile(*path));
    still->setValue("chart", {});
    still->loadThumbnail();
    m_news.expectChange(); // the file may be the same, with another picture
    const QSize size = still->thumbnail().size();
    if (still->panelWidth() == 0 && still->panelHeight() == 0) { // it has never had a picture
        still->setPanelWidth(size.width());
        still->setPanelHeight(size.height());
        still->drawInRect();
    }
    if (size.isEmpty())
        m_person.tellFailure(PictureFile::cannotShow(*path, still->pictureObstacle()));
    finishEdit("choose picture");
}

void LWAppDelegate::AddMask(const QObject *sender)
{
    qCDebug(lcDocument, "add mask %s", sender ? sender->metaObject()->className() : "(null)");
}

void LWAppDelegate::insertAndSelect(const LayerPointer &layer, qsizetype index)
{
    const qsizetype row = std::clamp<qsizetype>(index, 0, std::ssize(allScreensArray()));
    m_arraycontroller.insertObjectAtArrangedObjectIndex(layer, row);
    m_arraycontroller.setSelectionIndex(row);
}

void LWAppDelegate::tellListCannotBeEmpty()
{
    m_person.alert("List Cannot be empty, Function was cancelled", {});
}

bool LWAppDelegate::hasRoomFor(qsizetype more, const LayerList &list)
{
    const Result<void> canBeKept = LayerLimits::checkCount(std::ssize(list.layers()) + more);
    if (!canBeKept)
        m_person.tellFailure("Cannot add: " + canBeKept.error().text);
    return canBeKept.has_value();
}

void LWAppDelegate::remove()
{
    if (allScreensArray().size() < 2)
        return tellListCannotBeEmpty();
    m_arraycontroller.removeObjectsAtArrangedObjectIndexes(m_arraycontroller.selectionIndexes());
    finishEdit("remove layer");
}

void LWAppDelegate::copyLayer()
{
    qCDebug(lcDocument, "duplicate layer");
    const LayerPointer selected = m_arraycontroller.selectedLayer();
    if (!selected || !hasRoomFor(1, m_arraycontroller))
        return;
    const LayerPointer copy = createCopyOfLayerThroughArch(selected);
    if (!copy)
        return;
    m_wiring.welcomeCopies({copy});
    copy->setLabel(copy->label().isEmpty() ? QString("Copy") : copy->label() + " Copy");
    insertAndSelect(copy, m_selectedRow + 1);
    m_selectedRow = m_arraycontroller.selectionIndex();
    finishEdit("duplicate layer");
}

LayerPointer LWAppDelegate::createCopyOfLayerThroughArch(const LayerPointer &layer)
{
    const Result<std::vector<LayerPointer>> copy = LayerArchive::copies({layer}, *this);
    if (copy)
        return copy->front();
    m_person.tellFailure("Cannot copy " + copy.error().text);
    return nullptr;
}

void LWAppDelegate::tableViewWriteRowsWithIndexes(const LayerList &table)
{
    m_draggedTV = &table == &m_presetarraycontroller ? DraggedTable::Presets : DraggedTable::Layers;
}

void LWAppDelegate::tableViewAcceptDrop(LayerList &table, qsizetype index, qsizetype row)
{
    const bool isLayerTable = &table == &m_arraycontroller;
    qCDebug(lcDocument, "MAKING COPY == %s %d", (isLayerTable ? nameOfLayerTable : nameOfPresetTable).data(),
            static_cast<int>(m_draggedTV));
    const DraggedTable own = isLayerTable ? DraggedTable::Layers : DraggedTable::Presets;
    const LayerList &other = isLayerTable ? m_presetarraycontroller : m_arraycontroller;
    if (m_draggedTV == own) {
        table.moveObjectAtArrangedObjectIndex(index, row);
        finishEdit(isLayerTable ? "move layer" : "move preset");
    } else {
        if (const LayerPointer dragged = other.layer(index))
            insertCopy(dragged, table, row);
        finishEdit(isLayerTable ? "insert preset" : "store preset");
    }
    updateAgainSoon();
}

void LWAppDelegate::moveSelectedRows(LayerList &table, int distance)
{
    std::vector<qsizetype> rows = table.selectionIndexes();
    if (distance > 0)
        std::reverse(rows.begin(), rows.end());
    // Who is at the end has nowhere to go, nor has who comes behind him.
    qsizetype end = distance < 0 ? 0 : table.rowCount() - 1;
    for (const qsizetype row : rows) {
        if (row == end)
            end -= distance;
        else
            table.moveObjectAtArrangedObjectIndex(row, distance < 0 ? row - 1 : row + 2);
    }
    finishEdit(&table == &m_arraycontroller ? "move layer" : "move preset");
}

void LWAppDelegate::insertCopy(const LayerPointer &layer, LayerList &table, qsizetype row)
{
    if (!hasRoomFor(1, table))
        return;
    const LayerPointer copy = createCopyOfLayerThroughArch(layer);
    if (!copy)
        return;
    if (&table == &m_presetarraycontroller)
        ShowProcessors::leaveShow(*copy);
    else
        m_wiring.welcome({copy});
    table.insertObjectAtArrangedObjectIndex(copy, row);
    table.setSelectionIndex(row);
}

/// On the next turn of the event loop, and on the one after it.
void LWAppDelegate::updateAgainSoon()
{
    QTimer::singleShot(0, this, [this] {
        QTimer::singleShot(0, this, [this] { update(); });
        update();
    });
}

void LWAppDelegate::tableViewSelectionDidChange(qsizetype selectedRow)
{
    if (selectedRow >= 0 && selectedRow != m_arraycontroller.selectionIndex())
        m_arraycontroller.setSelectionIndex(selectedRow);
    m_history.endGesture();
    noteSelection();
}
