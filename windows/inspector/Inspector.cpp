#include "windows/inspector/Inspector.h"

#include "app/LWAppDelegate.h"
#include "app/Settings.h"
#include "base/NumberText.h"
#include "drawing/Raster.h"
#include "facts/WiredPorts.h"
#include "still/LWStill.h"
#include "windows/Icons.h"
#include "windows/LayerText.h"
#include "windows/TextField.h"
#include "windows/Theme.h"
#include "windows/WindowPerson.h"
#include "windows/inspector/ColourButton.h"
#include "windows/inspector/FigureBlock.h"
#include "windows/inspector/NumberField.h"
#include "windows/inspector/PatternGrid.h"
#include "windows/inspector/SummaryLine.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QEvent>
#include <QFileInfo>
#include <QFocusEvent>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace {
constexpr int mostOffered = 24; ///< colours of the show

QPushButton *textButton(const QString &text, const QString &tip)
{
    auto *button = new QPushButton(text);
    button->setToolTip(tip);
    return button;
}
} // namespace

Inspector::Inspector(LWAppDelegate &document, WindowPerson &person, QWidget *parent)
    : QScrollArea(parent), m_document(document), m_person(person)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // it scrolls to the control that has the focus
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName("Inspector");
}

Inspector::~Inspector() = default;

void Inspector::makeControls()
{
    if (m_content)
        return;
    m_content = new QWidget;
    auto *column = new QVBoxLayout(m_content);
    column->setContentsMargins(0, Theme::edge / 2, 0, Theme::edge);
    column->setSpacing(0);
    column->addWidget(m_figures = new FigureBlock);
    m_form = std::make_unique<InspectorForm>(
        *column, [this](const QString &property, const QVariant &value) { edit(property, value); });
    addEmptyGroup();
    m_form->beginGroup({}, InspectorForm::All);
    m_form->addText("label");
    m_form->addSwitch("visible", {"Visible", 0, "Composes the layer into the output", "Visible"});
    addPlaceGroup();
    addWallGroup();
    addPanelsGroup();
    addChartGroup();
    addLabelsGroup();
    addDataFlowGroup();
    addSignalGroup();
    addPowerGroup();
    addStillGroup();
    addOutputGroup();
    column->addStretch(1);
    setWidget(m_content);

    m_form->fold(Settings::foldedGroups());
    m_form->foldingDidChange = [this] {
        Settings::setFoldedGroups(m_form->foldedGroups());
        if (m_isOutputFirst)
            makeRoomBelowOutput(isOutputAtTop());
    };
    for (QWidget *control : m_content->findChildren<QWidget *>())
        control->installEventFilter(this);
    followEntries();
    follow();
}

/// What is one step of the history: what was typed until Enter or until the field was left, what was chosen in a
/// dialog.
void Inspector::followEntries()
{
    for (const NumberField *field : m_content->findChildren<NumberField *>()) {
        connect(field, &NumberField::aboutToStep, this, [this] { m_document.keepTyped(); });
        connect(field, &NumberField::takenBack, this, [this] {
            m_document.takeBackTyping();
            refresh(); // saving may have ended the typing: what was saved stays
        });
        connect(field, &NumberField::editingFinished, this, [this] { m_document.endTyping(); });
    }
    for (const TextField *field : m_content->findChildren<TextField *>())
        connect(field, &TextField::editingFinished, this, [this] { m_document.endTyping(); });
    for (ColourButton *button : m_content->findChildren<ColourButton *>()) {
        button->setOffered([this] { return coloursOfShow(); });
        connect(button, &ColourButton::choiceBegan, this, [this] { m_document.beginTrial(); });
        connect(button, &ColourButton::choiceEnded, this, [this] { m_document.keepTrial(); });
        connect(button, &ColourButton::choiceCancelled, this, [this] { m_document.dropTrial(); });
    }
}

void Inspector::follow()
{
    LayerList &list = m_document.arraycontroller();
    connect(&m_document, &LWAppDelegate::changed, this, &Inspector::refresh);
    connect(&list, &LayerList::selectionIndexesDidChange, this, [this] { showOutputFirst(false); });
    connect(&list, &LayerList::rowsInserted, this, [this] { verticalScrollBar()->setValue(0); });
    refresh();
}

void Inspector::addEmptyGroup()
{
    m_form->beginGroup({}, InspectorForm::None);
    auto *line = new SummaryLine("Layers");
    line->show("There are no layers. Add one with + above the list of layers.", false);
    m_form->addWide({}, line);
}

void Inspector::addPlaceGroup()
{
    m_form->beginGroup("Place", InspectorForm::Both);
    addPlace();
}

void Inspector::addPlace()
{
    m_form->addNumber("xpoint", {.number = 5});
    m_form->addNumber("ypoint", {.number = 6});
}

void Inspector::addWallGroup()
{
    m_form->beginGroup("Wall", InspectorForm::Screens);
    m_form->addNumber("col", {.number = 3});
    m_form->addNumber("row", {.number = 4});
    m_form->addNumber("panelWidth", {.number = 1});
    m_form->addNumber("panelHeight", {.number = 2});
    addPlace();
    m_form->addSummary("Wall", LayerText::wall);
    QPushButton *allOn = textButton("Switch all panels on", "Switches on what is off of the wall");
    connect(allOn, &QPushButton::clicked, &m_document, &LWAppDelegate::switchAllPanelsOn);
    m_form->addControl({{}}, allOn);
}

void Inspector::addPanelsGroup()
{
    m_form->beginGroup("Panels", InspectorForm::Screens);
    m_form->addSwitch("bgEnable", {.tip = "Fills the panels with the two colours"});
    m_form->addColour("rectColor");
    m_form->addColour("rectColor2");
    QPushButton *exchange = textButton("Exchange", "Exchanges the two colours");
    connect(exchange, &QPushButton::clicked, &m_document, &LWAppDelegate::exchangeColours);
    m_form->addControl({{}}, exchange);
    m_form->addSwitchRow("BoarderEnable", "boarderWidth", "boarderColor");
}

void Inspector::addChartGroup()
{
    m_form->beginGroup("Chart", InspectorForm::Screens);
    m_form->addSwitchRow("CircleEnable", "circleBWidth", "circleColor", {.text = "Circle"});
    m_form->addSwitchRow("XYFontEnable", "XYFontSize", "xyColor", {.text = "Coordinates", .number = 7});
    m_form->addControl({"At the corners"}, cornerChoice());
    m_form->addSwitchRow("screenFontEnable", "screenFontSize", "sfColor", {.text = "Name and size", .number = 8});
    m_form->addSwitch("showCurrent", {.tip = "Adds current, volts and phases to name and size at the centre"},
                      "sfColor");
}

void Inspector::addLabelsGroup()
{
    m_form->beginGroup("Labels", InspectorForm::Screens);
    m_form->addSwitchRow("drawLabels", "labelFontSize", "labelColor");
    m_form->addSwitch("XYLabelDirection", {.tip = "Letters count the rows instead of the columns"});
}

void Inspector::addDataFlowGroup()
{
    m_form->beginGroup("Data flow", InspectorForm::Screens);
    m_form->addSwitch("drawFlowPath", {.tip = "Draws the path of the data from panel to panel"});
    m_patterns = new PatternGrid;
    connect(m_patterns, &PatternGrid::chosen, &m_document, &LWAppDelegate::choosePattern);
    m_form->addWide("Pattern of the path", m_patterns);
    QWidget *limit =
        m_form->addNumberWith(portSizes(), "pixelLimit", {.tip = "Pixels that one port carries; 0: all on one"});
    m_form->addShow([limit](const std::vector<LayerPointer> &layers) {
        const auto isGiven = InspectorForm::commonValue(layers, "limitFromProcessor");
        limit->setEnabled(!isGiven || !isGiven->toBool());
    });
    m_form->addSummary(
        "Ports",
        [this](const std::vector<LayerPointer> &layers) {
            const auto ports = wired();
            return ports ? ports->text() : LayerText::ports(layers);
        },
        [this](const std::vector<LayerPointer> &layers) {
            const auto ports = wired();
            return ports ? ports->over > 0 || !ports->trouble.isEmpty() : LayerText::hasPortOverLimit(layers);
        });
}

void Inspector::addPowerGroup()
{
    m_form->beginGroup("Power", InspectorForm::Screens);
    m_form->addNumber("powerOnCell");
    m_form->addSummary(
        "Power",
        [this](const std::vector<LayerPointer> &layers) {
            return LayerText::power(layers, m_document.voltageCalc(), m_document.phaseCalc());
        },
        [](const std::vector<LayerPointer> &layers) { return !LayerText::isPowerCounted(layers); });
}

void Inspector::addStillGroup()
{
    constexpr NumberRange sides{1, Raster::longestSide, "px"};
    m_form->beginGroup("Picture", InspectorForm::Stills);
    m_form->addNumber("panelWidth", {.text = "Width", .number = 1, .name = "Width"}, sides);
    m_form->addNumber("panelHeight", {.text = "Height", .number = 2, .name = "Height"}, sides);
    m_form->addSwitch("aspectRatio", {.tip = "Width and height keep their ratio"});
    addPlace();
    m_form->addSummary("Picture", LayerText::picture);
    addChartChoice();
    QPushButton *choose = textButton("Choose picture...", "Shows another picture, or finds a missing one again");
    connect(choose, &QPushButton::clicked, &m_document, &LWAppDelegate::choosePicture);
    QPushButton *folder = textButton("Show in folder", "Shows the picture's file among the others");
    connect(folder, &QPushButton::clicked, this, &Inspector::showFolder);
    m_form->addControl({"File"}, choose);
    m_form->addControl({{}}, folder);
}

QToolButton *Inspector::menuButton(const QString &name, const QString &tip)
{
    auto *button = new QToolButton;
    button->setIcon(Icons::icon("three-dots"));
    button->setAccessibleName(name);
    button->setToolTip(tip);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(new QMenu(button));
    return button;
}

QWidget *Inspector::cornerChoice()
{
    m_corners = new QComboBox;
    m_corners->addItems({"Top left", "Bottom", "All"});
    m_corners->setToolTip("Where walls show their coordinates; one choice for all of them");
    connect(m_corners, &QComboBox::activated, this, [this](int index) {
        m_document.setPopupIndex(index);
        m_document.popupButton();
    });
    return m_corners;
}

QWidget *Inspector::portSizes()
{
    QToolButton *button = menuButton("Usual limits of a port", "Takes a limit that processors have");
    for (const int pixels : {655'360, 524'288, 327'680, 262'144, 0}) {
        const QString text = pixels == 0 ? QString("All on one port") : NumberText::grouped(pixels) + " px";
        button->menu()->addAction(text, this, [this, pixels] {
            m_document.endTyping(); // each choice is a step
            edit("pixelLimit", pixels);
            m_document.endTyping();
        });
    }
    return button;
}

void Inspector::edit(const QString &property, const QVariant &value)
{
    m_document.setValueOfSelection(value, LayerList::keyPathPrefix + property);
}

void Inspector::refresh()
{
    showOutput();
    const std::vector<LayerPointer> layers = shownLayers();
    if (std::exchange(m_kinds, InspectorForm::kindsOf(layers)) != m_kinds)
        verticalScrollBar()->setValue(0);
    m_figures->show(layers, m_document.voltageCalc(), m_document.phaseCalc(), wired());
    m_form->show(layers);
    if (layers.empty())
        return;
    const std::optional<QVariant> pattern = InspectorForm::commonValue(layers, "pattern");
    m_patterns->show(pattern ? std::optional(pattern->toLongLong()) : std::nullopt);
}

/// The selected layers, first the one whose captions are shown.
std::vector<LayerPointer> Inspector::shownLayers() const
{
    std::vector<LayerPointer> layers = m_document.selectedLayers();
    const auto shown = std::find(layers.begin(), layers.end(), m_document.arraycontroller().selectedLayer());
    if (shown != layers.end())
        std::rotate(layers.begin(), shown, shown + 1);
    return layers;
}

/// Those of the layers from the topmost, then the output's, each once.
QList<QColor> Inspector::coloursOfShow() const
{
    QList<QColor> colours;
    const auto add = [&colours](const OptionalColour &colour) {
        if (colour && !colours.contains(colour->toQColor()) && colours.size() < mostOffered)
            colours.append(colour->toQColor());
    };
    for (const LayerPointer &layer : m_document.allScreensArray()) {
        for (const char *property :
             {"rectColor", "rectColor2", "boarderColor", "circleColor", "xyColor", "sfColor", "labelColor"})
            add(layer->value(property).value<OptionalColour>());
    }
    add(m_document.bgColor());
    add(m_document.edgeColor());
    return colours;
}

void Inspector::showFolder() const
{
    const LayerPointer selected = m_document.arraycontroller().selectedLayer();
    const auto *still = qobject_cast<const LWStill *>(selected.get());
    const QString path = still ? still->ImageURL().toLocalFile() : QString();
    if (path.isEmpty() || !QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath())))
        m_person.tellFailure("There is no folder to show; choose the picture first.");
}

void Inspector::showOutputFirst(bool isFirst)
{
    if (!m_content || (!isFirst && !m_isOutputFirst))
        return;
    if (isFirst)
        m_form->unfold(outputTitle);
    m_isOutputFirst = isFirst;
    makeRoomBelowOutput(isFirst);
    if (!isFirst)
        verticalScrollBar()->setValue(0);
}

bool Inspector::isOutputAtTop() const
{
    return m_isOutputFirst && verticalScrollBar()->value() == m_outputTop;
}

/// Nothing stands below the group: there has to be some room to scroll.
void Inspector::makeRoomBelowOutput(bool isAtTop)
{
    m_content->layout()->activate();
    m_outputTop = m_output->y();
    const int needed = m_content->minimumSizeHint().height();
    m_content->setMinimumHeight(m_isOutputFirst ? std::max(m_outputTop + viewport()->height(), needed) : 0);
    widget()->adjustSize(); // scrolls at once, not when it is laid out next
    if (isAtTop)
        verticalScrollBar()->setValue(m_outputTop);
}

void Inspector::resizeEvent(QResizeEvent *event)
{
    const bool isAtTop = isOutputAtTop();
    QScrollArea::resizeEvent(event);
    if (m_isOutputFirst)
        makeRoomBelowOutput(isAtTop);
}

bool Inspector::eventFilter(QObject *watched, QEvent *event)
{
    // A field tells itself when its entry has ended.
    if (event->type() == QEvent::FocusOut && !qobject_cast<NumberField *>(watched))
        m_document.endTyping();
    if (event->type() == QEvent::FocusIn) {
        m_document.endTyping(); // of what was done elsewhere
        // Under the mouse it would be gone before the release, and the click with it.
        if (static_cast<QFocusEvent *>(event)->reason() != Qt::MouseFocusReason)
            ensureWidgetVisible(qobject_cast<QWidget *>(watched));
    }
    return QScrollArea::eventFilter(watched, event);
}
