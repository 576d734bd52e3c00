#include "app/LWAppDelegate.h"

#include "app/FileBytes.h"
#include "app/PSDExport.h"
#include "app/PngFile.h"
#include "app/PowerCalculator.h"
#include "app/ProjectFile.h"
#include "app/ProjectText.h"
#include "drawing/Raster.h"
#include "screen/LWScreen.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <limits>
#include <numeric>

namespace {
constexpr std::chrono::milliseconds gateTime{100};
constexpr QLatin1StringView panelWidthPath{"arrangedObjects.panelWidth"};
constexpr QLatin1StringView panelHeightPath{"arrangedObjects.panelHeight"};
constexpr QLatin1StringView outputWidthPath{"OutputWidth"};
constexpr QLatin1StringView outputHeightPath{"OutputHeight"};
constexpr QLatin1StringView updatePatternPath{"updatePattern"};

/// The properties whose edits lead to a redraw: what the inspector's controls are bound to.
constexpr std::array observedProperties{
    "panelHeight",  "panelWidth",   "row",           "col",           "rectColor",      "rectColor2",
    "boarderColor", "visible",      "xpoint",        "ypoint",        "xyColor",        "sfColor",
    "XYFontSize",   "XYFontEnable", "CircleEnable",  "BoarderEnable", "screenFontSize", "screenFontEnable",
    "bgEnable",     "circleColor",  "circleBWidth",  "boarderWidth",  "drawFlowPath",   "drawLabels",
    "patternBool",  "pixelLimit",   "labelFontSize", "labelColor",    "label",          "XYLabelDirection",
    "powerOnCell",  "aspectRatio",  "showPower",
};

bool isObserved(const QString &keyPath)
{
    return std::any_of(observedProperties.begin(), observedProperties.end(), [&](const char *property) {
        return keyPath == LayerList::keyPathPrefix + QLatin1StringView(property);
    });
}

/// Truncated toward zero; the nearest end for what 32 bits cannot hold.
int truncated(double value)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, lowest, highest));
}

LWScreen::Arguments firstScreen()
{
    LWScreen::Arguments arguments;
    arguments.row = 5;
    arguments.col = 8;
    arguments.panelWidth = 128;
    arguments.panelHeight = 128;
    arguments.rectColor = NamedColour::red;
    arguments.rectColor2 = NamedColour::lightGray;
    arguments.boarderColor = NamedColour::white;
    arguments.circleColor = NamedColour::white;
    arguments.xyColor = NamedColour::white;
    arguments.sfColor = NamedColour::white;
    arguments.xyFontSize = 50;
    arguments.bgEnable = true;
    arguments.boarderEnable = true;
    arguments.circleEnable = true;
    return arguments;
}

constexpr int firstScreenWatts = 200;
} // namespace

LWAppDelegate::LWAppDelegate(UserInterface &userInterface) : m_userInterface(userInterface)
{
    connect(&m_arraycontroller, &LayerList::valueDidChange, this, [this](const QString &keyPath) {
        if (isObserved(keyPath))
            observeValueForKeyPath(keyPath);
    });
}

LWAppDelegate::~LWAppDelegate() = default;

void LWAppDelegate::applicationDidFinishLaunching()
{
    LWScreen::Arguments arguments = firstScreen();
    arguments.label = QString::asprintf("Layer %i", m_screenNumber);
    const LayerPointer layer = LWScreen::initWithrow(*this, arguments, firstScreenWatts);
    m_OutputHeight = 1080;
    m_OutputWidth = 1920;
    m_shouldUpdate = true;
    replaceLayers({layer});
    update();
    if (!m_preOpenFile.isNull())
        openProjectPre(m_preOpenFile);
}

void LWAppDelegate::update([[maybe_unused]] QObject *sender)
{
    m_updateWasSwallowed = !m_shouldUpdate;
    if (m_shouldUpdate)
        compose();
    QTimer::singleShot(gateTime, this, &LWAppDelegate::gateTimerFired);
    calculatePower();
    m_userInterface.repaintCanvas();
}

void LWAppDelegate::gateTimerFired()
{
    timerupdate();
    if (m_updateWasSwallowed)
        update();
}

void LWAppDelegate::compose()
{
    m_shouldUpdate = false;
    if (const LayerPointer selected = m_arraycontroller.selectedLayer()) {
        const bool isScreen = qobject_cast<LWScreen *>(selected.get()) != nullptr;
        selected->setAspectHidden(isScreen);
        selected->setShowPower(!isScreen);
        selected->setShowPowerl(!isScreen);
        applyAspectLock(*selected);
        selected->drawInRect();
        m_userInterface.reloadTable();
    }

    // The composition's buffer can be used again only when nobody else holds it.
    m_userInterface.releaseOutput();
    m_offscreenRep = {};
    m_offscreenRep = m_composition.compose(placedPictures(allScreensArray()),
                                           {QSize(m_OutputWidth, m_OutputHeight), m_bgColor, m_edgeColor});
    m_userInterface.showOutput(img());
}

void LWAppDelegate::applyAspectLock(Layer &layer) const
{
    const QSizeF aspect = layer.aspectValue();
    const double ratio = aspect.width() / aspect.height();
    if (!layer.aspectRatio() || !std::isfinite(ratio) || ratio == 0)
        return;
    if (!m_hwchange || m_hwchangeVal == panelWidthPath)
        layer.setPanelHeight(truncated(layer.panelWidth() / ratio));
    else if (m_hwchangeVal == panelHeightPath)
        layer.setPanelWidth(truncated(ratio * layer.panelHeight()));
}

void LWAppDelegate::calculatePower()
{
    if (m_voltageCalc == 0)
        m_voltageCalc = 110;
    if (m_phaseCalc == 0)
        m_phaseCalc = 1;
    const float amperes = PowerCalculator::amperes(PowerCalculator::watts(allScreensArray()),
                                                   PowerCalculator::divisor(m_voltageCalc, m_phaseCalc));
    m_powerResult = PowerCalculator::resultText(amperes);
    m_userInterface.showPowerResult(m_powerResult);
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

void LWAppDelegate::observeValueForKeyPath(const QString &keyPath)
{
    if (const LayerPointer selected = m_arraycontroller.selectedLayer()) {
        if (keyPath == updatePatternPath)
            selected->setPattern(m_pattern);
        selected->drawInRect();
        m_userInterface.reloadTable();
    }
    m_hwchange = keyPath == panelWidthPath || keyPath == panelHeightPath;
    if (m_hwchange)
        m_hwchangeVal = keyPath;
    update();
}

void LWAppDelegate::choosePattern(qint64 pattern)
{
    m_pattern = pattern;
    observeValueForKeyPath(updatePatternPath);
}

void LWAppDelegate::saveProject()
{
    const std::optional<QString> chosen = m_userInterface.runModalSavePanel();
    if (!chosen)
        return;
    const QString path = FileBytes::withExtension(*chosen, ProjectFile::extension);
    const Result<void> written = ProjectFile::write(path, {m_OutputHeight, m_OutputWidth, allScreensArray()});
    if (!written)
        return m_userInterface.alert("Cannot save " + written.error().text, "The document is not saved.");
    m_userInterface.noteRecentDocument(path);
}

void LWAppDelegate::openProject()
{
    if (const std::optional<QString> path = m_userInterface.runModalOpenPanel())
        load(*path);
    m_shouldUpdate = true;
    update();
}

void LWAppDelegate::openProjectPre(const QString &path)
{
    load(path);
    m_shouldUpdate = true;
    update();
}

void LWAppDelegate::load(const QString &path)
{
    const bool isText = QFileInfo(path).suffix().compare(ProjectText::extension, Qt::CaseInsensitive) == 0;
    const Result<Project> project = isText ? ProjectText::read(path, *this) : ProjectFile::read(path, *this);
    if (!project)
        return m_userInterface.alert("Cannot open " + project.error().text, "The document is unchanged.");
    m_userInterface.noteRecentDocument(path);
    m_OutputHeight = project->outputHeight;
    m_OutputWidth = project->outputWidth;
    replaceLayers(project->layers);
    tellWallsTooLarge();
}

void LWAppDelegate::tellWallsTooLarge()
{
    for (int index = 0; index < std::ssize(allScreensArray()); ++index) {
        const Layer &layer = *allScreensArray()[static_cast<std::size_t>(index)];
        const qint64 width = qint64{layer.col()} * layer.panelWidth();
        const qint64 height = qint64{layer.row()} * layer.panelHeight();
        if (width > 0 && height > 0 && !Raster::canHold(width, height))
            return m_userInterface.tellFailure(
                QString("Layer %1 is a wall of %2 x %3 pixels, too large to draw; make it smaller.")
                    .arg(index)
                    .arg(width)
                    .arg(height));
    }
}

void LWAppDelegate::replaceLayers(const std::vector<LayerPointer> &layers)
{
    std::vector<qsizetype> previous(allScreensArray().size());
    std::iota(previous.begin(), previous.end(), std::ssize(layers));
    qsizetype index = 0;
    for (const LayerPointer &layer : layers)
        m_arraycontroller.insertObjectAtArrangedObjectIndex(layer, index++);
    m_arraycontroller.removeObjectsAtArrangedObjectIndexes(previous);
    m_arraycontroller.setSelectionIndex(0);
}

bool LWAppDelegate::applicationOpenFile(const QString &path)
{
    if (path.isEmpty())
        m_userInterface.alert("No File Found", "File Not Found");
    else
        m_preOpenFile = path;
    return true;
}

void LWAppDelegate::saveAction()
{
    const std::optional<QString> chosen = m_userInterface.runModalSavePanel();
    if (!chosen)
        return;
    const QString path = FileBytes::withExtension(*chosen, "png");
    if (const Result<void> written = PngFile::write(path, m_offscreenRep); !written)
        return tellFailedExport("PNG", written.error());
    m_userInterface.tellStatus("Exported " + QFileInfo(path).fileName());
}

void LWAppDelegate::savePSD()
{
    if (const Result<void> fits = PSDExport::checkOutputSize(m_OutputWidth, m_OutputHeight); !fits)
        return tellFailedExport("PSD", fits.error());
    const std::optional<QString> chosen = m_userInterface.runModalSavePanel();
    if (!chosen)
        return;

    const QString path = *chosen + '.' + PSDExport::extension; // whatever was typed: "a.psd" becomes "a.psd.psd"
    const QString name = QFileInfo(path).fileName();
    const auto progress = [&](double done) { return m_userInterface.showProgress("Exporting " + name, done); };
    const Result<PSDExport::Outcome> outcome =
        PSDExport::write(path, {m_OutputHeight, m_OutputWidth, allScreensArray()}, m_screenNumber, progress);
    progress(1);
    m_userInterface.reloadTable(); // layers may have got names
    if (!outcome)
        return tellFailedExport("PSD", outcome.error());
    const bool isWritten = *outcome == PSDExport::Outcome::Written;
    m_userInterface.tellStatus(isWritten ? "Exported " + name : "Cancelled the export of " + name);
}

void LWAppDelegate::tellFailedExport(const char *format, const Error &error)
{
    qWarning("There was an error writing the %s: %s", format, qUtf8Printable(error.text));
    m_userInterface.tellFailure("Cannot export " + error.text);
}

void LWAppDelegate::voltageSelect(qint64 tag)
{
    m_voltageCalc = tag;
    update();
}

void LWAppDelegate::phaseSelect(qint64 tag)
{
    m_phaseCalc = tag;
    update();
}

void LWAppDelegate::popupButton()
{
    update();
}
