#include "app/LWAppDelegate.h"
#include "formats/BuiltInPresets.h"
#include "formats/PresetLibrary.h"
#include "show/LayerArchive.h"

#include <algorithm>
#include <numeric>
#include <utility>

void LWAppDelegate::insertPreset(qsizetype index)
{
    const LayerPointer preset = m_presetarraycontroller.layer(index);
    if (!preset)
        return;
    insertCopy(preset, m_arraycontroller, std::max<qsizetype>(m_arraycontroller.selectionIndex(), 0));
    finishEdit("insert preset");
}

void LWAppDelegate::keepAsPresets()
{
    if (!hasRoomFor(std::ssize(m_arraycontroller.selectionIndexes()), m_presetarraycontroller))
        return;
    const Result<std::vector<LayerPointer>> copies = LayerArchive::copies(selectedLayers(), *this);
    if (!copies)
        return m_person.tellFailure("Cannot keep " + copies.error().text);
    for (const LayerPointer &copy : *copies)
        ShowProcessors::leaveShow(*copy);
    m_presetarraycontroller.insertObjectsAtArrangedObjectIndex(*copies, 0);
    std::vector<qsizetype> rows(copies->size());
    std::iota(rows.begin(), rows.end(), 0);
    m_presetarraycontroller.setSelectionIndexes(std::move(rows), 0);
    if (!finishEdit("store preset"))
        return;
    m_person.tellStatus(copies->size() == 1 ? QString("%1 is kept as a preset").arg(copies->front()->label())
                                            : QString("%1 layers are kept as presets").arg(copies->size()));
}

void LWAppDelegate::removePreset()
{
    if (presetScreensArray().size() < 2)
        return tellListCannotBeEmpty();
    m_presetarraycontroller.removeObjectsAtArrangedObjectIndexes(m_presetarraycontroller.selectionIndexes());
    finishEdit("remove preset");
}

void LWAppDelegate::savePresets()
{
    const std::optional<QString> path = m_person.runModalSavePanel({"Save preset library", FileFormat::Kind::Presets});
    if (!path)
        return;
    if (const Result<void> written = PresetLibrary::write(*path, presetScreensArray()); !written)
        m_person.alert("Cannot save " + written.error().text, "The presets are not saved.");
}

void LWAppDelegate::openPresets()
{
    const std::optional<QString> path = m_person.runModalOpenPanel({"Open preset library", FileFormat::Gives::Presets});
    if (!path)
        return;
    const Result<std::vector<LayerPointer>> presets = PresetLibrary::read(*path, *this);
    if (!presets)
        return m_person.alert("Cannot open " + presets.error().text, "The presets are unchanged.");
    m_presetarraycontroller.setLayers(*presets, {0});
    finishEdit("open presets");
}

void LWAppDelegate::resetPresets()
{
    m_presetarraycontroller.setLayers(BuiltInPresets::make(*this), {0});
    finishEdit("reset presets");
}

std::vector<LayerPointer> LWAppDelegate::firstPresets()
{
    if (!m_keptPresets)
        return BuiltInPresets::make(*this);
    KeptPresets::Beginning beginning = m_keptPresets->ofLastTime(*this);
    if (beginning.failure)
        m_person.tellFailure(beginning.failure->text);
    return std::move(beginning.presets);
}

void LWAppDelegate::keepEditedPresets()
{
    tellIfFailed(m_keptPresets->keepEdited(m_history.state().presets, *this));
}

void LWAppDelegate::tellIfFailed(const Result<void> &done)
{
    if (!done)
        m_person.tellFailure(done.error().text);
}
