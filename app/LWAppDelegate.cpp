#include "app/LWAppDelegate.h"

#include "base/NearestInt.h"
#include "layer/LayerValues.h"
#include "screen/LWScreen.h"
#include "show/EditNames.h"
#include "still/LWStill.h"

#include <QTimer>

#include <algorithm>
#include <cmath>

namespace {
constexpr QLatin1StringView panelWidthPath{"arrangedObjects.panelWidth"};
constexpr QLatin1StringView panelHeightPath{"arrangedObjects.panelHeight"};
constexpr QLatin1StringView aspectRatioPath{"arrangedObjects.aspectRatio"};
constexpr QLatin1StringView outputWidthPath{"OutputWidth"};
constexpr QLatin1StringView outputHeightPath{"OutputHeight"};
constexpr QLatin1StringView updatePatternPath{"updatePattern"};
constexpr QLatin1StringView patternPath{"arrangedObjects.pattern"};
constexpr QLatin1StringView thumbnailPath{"arrangedObjects.thumbnail"};

bool isWatched(const QString &keyPath)
{
    const LayerValue *const value = LayerValues::find(LayerList::nameIn(keyPath));
    return value && value->isWatched;
}

/// Width to height, as the lock keeps it; nothing where that would be no ratio.
std::optional<double> ratioOf(const Layer &layer)
{
    const QSizeF aspect = layer.aspectValue();
    const double ratio = aspect.width() / aspect.height();
    return std::isfinite(ratio) && ratio != 0 ? std::optional(ratio) : std::nullopt;
}

/// Copies of pictures, and those from files, have no ratio: a lock that is put on keeps that of their sides.
void takeRatioOfSides(const std::vector<LayerPointer> &layers)
{
    for (const LayerPointer &layer : layers) {
        const bool isPicture = qobject_cast<LWStill *>(layer.get()) != nullptr;
        if (isPicture && layer->aspectRatio() && !ratioOf(*layer))
            layer->setAspectValue(QSizeF(layer->panelWidth(), layer->panelHeight()));
    }
}

/// The layers, looking as their states say.
std::vector<LayerPointer> restored(const LayerStates &states)
{
    std::vector<LayerPointer> layers;
    for (const LayerState &state : states) {
        state.apply();
        layers.push_back(state.layer);
    }
    return layers;
}
} // namespace

LWAppDelegate::LWAppDelegate(Person &person, const QString &recoveryFolder, const QString &presetsFile)
    : m_person(person)
{
    connectLists();
    if (!recoveryFolder.isEmpty()) {
        m_recovery.emplace([this] { return project(); }, recoveryFolder);
        connectRecovery();
    }
    if (!presetsFile.isEmpty())
        m_keptPresets.emplace(presetsFile);
}

LWAppDelegate::~LWAppDelegate()
{
    if (m_keptPresets)
        tellIfFailed(m_keptPresets->keep(m_history.state().presets, *this));
    m_recovery.reset(); // keeps what is unsaved while all of it is still there
}

void LWAppDelegate::connectLists()
{
    connect(&m_arraycontroller, &LayerList::valueDidChange, this, [this](const QString &keyPath) {
        if (isWatched(keyPath))
            observeValueForKeyPath(keyPath);
        else
            recordUnwatched(EditNames::ofKeyPath(keyPath));
    });
    connect(&m_presetarraycontroller, &LayerList::valueDidChange, this, [this](const QString &keyPath) {
        if (keyPath == thumbnailPath)
            observeValueForKeyPath(keyPath);
        else
            recordUnwatched("preset " + EditNames::ofKeyPath(keyPath));
    });
    connect(&m_arraycontroller, &LayerList::selectionIndexesDidChange, this,
            [this] { tableViewSelectionDidChange(m_arraycontroller.selectionIndex()); });
    connect(&m_arraycontroller, &LayerList::selectionIndexDidChange, this, &LWAppDelegate::tableViewSelectionDidChange);
    connect(&m_presetarraycontroller, &LayerList::selectionIndexesDidChange, this, &LWAppDelegate::noteSelection);
    connect(&m_news, &ShowNews::changed, this, &LWAppDelegate::changed);
    for (LayerList *list : {&m_arraycontroller, &m_presetarraycontroller}) {
        connect(list, &LayerList::dragDidStart, this, [this, list] { tableViewWriteRowsWithIndexes(*list); });
        connect(list, &LayerList::rowWasDropped, this,
                [this, list](qsizetype index, qsizetype row) { tableViewAcceptDrop(*list, index, row); });
    }
}

void LWAppDelegate::update([[maybe_unused]] QObject *sender)
{
    m_redraw.update();
}

void LWAppDelegate::redrawNow()
{
    m_redraw.open();
    update();
}

void LWAppDelegate::compose()
{
    m_history.absorb([this] {
        if (const LayerPointer selected = m_arraycontroller.selectedLayer())
            renderForInspector(*selected);
        composeOutput();
    });
}

void LWAppDelegate::renderForInspector(Layer &layer)
{
    const bool isScreen = qobject_cast<LWScreen *>(&layer) != nullptr;
    layer.setAspectHidden(isScreen);
    layer.setShowPower(!isScreen);
    layer.setShowPowerl(!isScreen);
    applyAspectLock(layer);
    layer.drawInRect();
}

void LWAppDelegate::composeOutput()
{
    m_wiring.followCables();
    const OutputStyle style{QSize(m_OutputWidth, m_OutputHeight), m_bgColor, m_edgeColor};
    const std::vector<PlacedPicture> pictures = placedPictures(allScreensArray());
    if (m_composition.isLast(pictures, style))
        return;
    m_composition.compose(pictures, style);
    emit composed();
}

void LWAppDelegate::applyAspectLock(Layer &layer) const
{
    const std::optional<double> ratio = ratioOf(layer);
    if (!layer.aspectRatio() || !ratio)
        return;
    if (!m_hwchange || m_hwchangeVal == panelWidthPath)
        layer.setPanelHeight(truncated(layer.panelWidth() / *ratio));
    else if (m_hwchangeVal == panelHeightPath)
        layer.setPanelWidth(truncated(*ratio * layer.panelHeight()));
}

bool LWAppDelegate::setValue(const QVariant &value, const QString &keyPath)
{
    if (keyPath.startsWith(LayerList::keyPathPrefix))
        return m_arraycontroller.setValue(value, keyPath);
    const bool isOutputSize = keyPath == outputWidthPath || keyPath == outputHeightPath;
    if (!isOutputSize || !setProperty(keyPath.toLatin1(), value))
        return false;
    observeValueForKeyPath(keyPath);
    return true;
}

bool LWAppDelegate::setValueOfSelection(const QVariant &value, const QString &keyPath)
{
    const bool haveOthers = setValueOfOthers(value, keyPath);
    if (m_arraycontroller.setValue(value, keyPath))
        return true;
    if (haveOthers)
        observeValueForKeyPath(keyPath); // nobody else tells of an edit that the first one has no part in
    return haveOthers;
}

/// Of the selected layers but the one before the inspector, whose edit is still to come and to be told. Returns whether
/// there was such a value.
bool LWAppDelegate::setValueOfOthers(const QVariant &value, const QString &keyPath)
{
    noteEditedSide(keyPath);
    bool isAny = false;
    for (const qsizetype index : m_arraycontroller.selectionIndexes()) {
        if (index == m_arraycontroller.selectionIndex() || !m_arraycontroller.setPlainValue(index, value, keyPath))
            continue;
        isAny = true;
        Layer &layer = *m_arraycontroller.layer(index);
        if (m_hwchange)
            applyAspectLock(layer);
        layer.drawInRect();
    }
    return isAny;
}

void LWAppDelegate::noteEditedSide(const QString &keyPath)
{
    m_hwchange = keyPath == panelWidthPath || keyPath == panelHeightPath;
    if (m_hwchange)
        m_hwchangeVal = keyPath;
}

void LWAppDelegate::observeValueForKeyPath(const QString &keyPath)
{
    noteEditedSide(keyPath);
    if (keyPath == aspectRatioPath)
        takeRatioOfSides(selectedLayers());
    if (const LayerPointer selected = m_arraycontroller.selectedLayer()) {
        if (keyPath == updatePatternPath)
            selected->setPattern(m_pattern);
        applyAspectLock(*selected); // an update may come when another layer is selected
        selected->drawInRect();
    }
    finishEdit(EditNames::ofKeyPath(keyPath), gestureOn(keyPath));
}

/// What edits in a row are one step by: the same value of the same layer, unless each is a choice of its own.
Gesture LWAppDelegate::gestureOn(const QString &keyPath) const
{
    const LayerPointer selected = m_arraycontroller.selectedLayer();
    if (keyPath == updatePatternPath || m_arraycontroller.value(keyPath).typeId() == QMetaType::Bool)
        return {};
    return {keyPath, selected};
}

/// An edit that nothing is drawn anew for.
void LWAppDelegate::recordUnwatched(const QString &name)
{
    tellIfFailed(m_history.record(name));
    tellChanges();
}

void LWAppDelegate::noteSelection()
{
    if (m_history.noteSelection())
        return tellChanges();
    // An edit tells of what it selects itself; nobody else may have.
    QTimer::singleShot(0, this, &LWAppDelegate::tellChanges);
}

void LWAppDelegate::endTyping()
{
    bool isAny = false;
    m_history.absorb([&] { isAny = m_wiring.dropLostPanels(); });
    if (isAny)
        update();
    m_history.endGesture();
}

bool LWAppDelegate::finishEdit(const QString &name, const Gesture &gesture)
{
    m_wiring.followLimits();
    const Result<void> isKept = m_history.record(name, gesture);
    if (isKept) {
        update();
        return true;
    }
    tellIfFailed(isKept);
    m_news.expectChange(); // all is as it was told last, but for the field that was typed into
    tellChanges();
    return false;
}

void LWAppDelegate::choosePattern(qint64 pattern)
{
    m_pattern = pattern;
    setValueOfOthers(pattern, patternPath);
    observeValueForKeyPath(updatePatternPath);
}

DocumentState LWAppDelegate::state(const DocumentState &before) const
{
    return {m_file,
            m_unknown,
            QSize(m_OutputWidth, m_OutputHeight),
            m_supply,
            m_wiring.processors(),
            m_voltageCalc,
            m_phaseCalc,
            LayerStates::of(allScreensArray(), before.layers),
            LayerStates::of(presetScreensArray(), before.presets),
            m_arraycontroller.selectionIndexes(),
            m_arraycontroller.selectionIndex(),
            m_presetarraycontroller.selectionIndexes(),
            m_selectedRow};
}

void LWAppDelegate::setState(const DocumentState &state)
{
    const bool isOtherSupply = state.volts != m_voltageCalc || state.phases != m_phaseCalc;
    const bool isOtherChoice = state.supply != m_supply && state.file == m_file;
    takeState(state);
    if (isOtherSupply)
        renderCurrents();
    showAsItWas(state);
    if (const auto counts = Supply::of(m_voltageCalc, m_phaseCalc); isOtherChoice && counts)
        m_person.noteSupply(*counts);
}

void LWAppDelegate::takeState(const DocumentState &state)
{
    if (m_recovery && state.file != m_file) {
        m_recovery->leave();
        m_recovery->documentWasSaved({state.file->path, *state.file->digest});
    }
    setFile(state.file);
    m_unknown = state.unknown;
    m_supply = state.supply;
    m_wiring.take(state.processors);
    m_voltageCalc = state.volts;
    m_phaseCalc = state.phases;
    m_OutputWidth = state.output.width();
    m_OutputHeight = state.output.height();
    m_arraycontroller.setLayers(restored(state.layers), state.selection, state.shown);
    m_presetarraycontroller.setLayers(restored(state.presets), state.presetSelection);
    m_selectedRow = state.selectedRow;
}

/// An update would render the selected layer anew, and its aspect lock would change it.
void LWAppDelegate::showAsItWas(const DocumentState &state)
{
    m_hwchange = true;
    m_hwchangeVal.clear();
    m_redraw.forget();
    renderAsItWas(state);
    composeOutput();
    for (const LayerState &layer : state.layers) // cables and currents may have rendered it
        layer.takeBackRendering();
    showRedrawn();
}

void LWAppDelegate::showRedrawn()
{
    calculatePower();
    tellChanges();
}

void LWAppDelegate::tellChanges()
{
    const LayerPointer selected = m_arraycontroller.selectedLayer();
    const auto *still = qobject_cast<const LWStill *>(selected.get());
    m_news.look({state(m_history.state()), m_bgColor, m_edgeColor, m_popupIndex, m_powerResult,
                 still ? still->rendered() : nullptr});
}

/// The marker stands around a selected picture as it was rendered last.
void LWAppDelegate::renderAsItWas(const DocumentState &state)
{
    tableViewSelectionDidChange(m_arraycontroller.selectionIndex());
    const LayerPointer selected = m_arraycontroller.selectedLayer();
    if (!qobject_cast<LWStill *>(selected.get()))
        return;
    selected->drawInRect();
    state.layers[static_cast<std::size_t>(m_arraycontroller.selectionIndex())].apply(); // the sizes that it wrote
}

void LWAppDelegate::popupButton()
{
    update();
}
