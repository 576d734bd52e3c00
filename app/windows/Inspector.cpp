#include "app/windows/Inspector.h"

#include "app/LWAppDelegate.h"
#include "app/Settings.h"
#include "app/windows/ColourButton.h"
#include "app/windows/Icons.h"
#include "app/windows/LayerText.h"
#include "app/windows/NumberField.h"
#include "app/windows/NumberText.h"
#include "app/windows/PatternGrid.h"
#include "app/windows/Theme.h"
#include "app/windows/WindowInterface.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QEvent>
#include <QFileInfo>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QUrl>

#include <limits>

namespace {
using Range = InspectorForm::Range;

constexpr int mostPanels = 10'000;
constexpr int longestPanel = 16'384;
constexpr int furthest = 100'000;
constexpr int widestLine = 512;
constexpr int largestText = 1'000;
constexpr int mostWatts = 100'000;
constexpr int longestOutput = 32'768;

const Range lineWidths{0, widestLine, "px"};
const Range textSizes{1, largestText, "pt"};
const Range places{-furthest, furthest, "px"};

QToolButton *menuButton(const QString &name, const QString &tip)
{
    auto *button = new QToolButton;
    button->setIcon(Icons::icon("three-dots"));
    button->setAccessibleName(name);
    button->setToolTip(tip);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(new QMenu(button));
    return button;
}

QPushButton *textButton(const QString &text, const QString &tip)
{
    auto *button = new QPushButton(text);
    button->setToolTip(tip);
    return button;
}
} // namespace

Inspector::Inspector(LWAppDelegate &document, WindowInterface &interface, QWidget *parent)
    : QScrollArea(parent), m_document(document), m_interface(interface)
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
    m_form = std::make_unique<InspectorForm>(
        *column, [this](const QString &property, const QVariant &value) { edit(property, value); });
    m_form->beginGroup({}, InspectorForm::All);
    m_form->addText({"Name"}, "label");
    m_form->addSwitch({"Visible", 0, "Composes the layer into the output"}, "visible");
    addScreenGroups();
    addStillGroup();
    addOutputGroup();
    column->addStretch(1);
    setWidget(m_content);

    m_form->fold(Settings::foldedGroups());
    m_form->foldingDidChange = [this] { Settings::setFoldedGroups(m_form->foldedGroups()); };
    for (QWidget *control : m_content->findChildren<QWidget *>())
        control->installEventFilter(this);
    follow();
}

void Inspector::follow()
{
    LayerList &list = m_document.arraycontroller();
    connect(&list, &LayerList::selectionIndexesDidChange, this, &Inspector::refresh);
    connect(&list, &LayerList::selectionIndexDidChange, this, &Inspector::refresh);
    connect(&list, &LayerList::dataChanged, this, &Inspector::refresh);
    connect(&m_interface, &WindowInterface::layersRendered, this, &Inspector::refresh);
    connect(&m_interface, &WindowInterface::powerComputed, this, &Inspector::refresh);
    connect(&m_interface, &WindowInterface::patternShown, m_patterns, &PatternGrid::show);
    if (const LayerPointer shown = list.selectedLayer())
        m_patterns->show(shown->pattern());
    refresh();
}

void Inspector::addScreenGroups()
{
    m_form->beginGroup("Wall", InspectorForm::Screens);
    m_form->addNumber({"Columns", 3}, "col", {1, mostPanels, {}});
    m_form->addNumber({"Rows", 4}, "row", {1, mostPanels, {}});
    m_form->addNumber({"Panel width", 2}, "panelWidth", {1, longestPanel, "px"});
    m_form->addNumber({"Panel height", 1}, "panelHeight", {1, longestPanel, "px"});
    m_form->addNumber({"Left", 5}, "xpoint", places);
    m_form->addNumber({"Top", 6}, "ypoint", places);
    m_form->addSummary("Wall", LayerText::wall);
    QPushButton *allOn = textButton("Switch all on", "Switches all panels on");
    connect(allOn, &QPushButton::clicked, this, &Inspector::switchAllOn);
    m_form->addControl({"Panels"}, allOn);

    m_form->beginGroup("Panels", InspectorForm::Screens);
    m_form->addSwitch({"Fill", 0, "Fills the panels with the two colours"}, "bgEnable");
    m_form->addColour({"Colour 1"}, "rectColor");
    m_form->addColour({"Colour 2"}, "rectColor2");
    QPushButton *exchange = textButton("Exchange", "Exchanges the two colours");
    connect(exchange, &QPushButton::clicked, this, &Inspector::exchangeColours);
    m_form->addControl({{}}, exchange);
    m_form->addSwitchRow({"Frame"}, "BoarderEnable", "boarderWidth", lineWidths, "boarderColor");

    m_form->beginGroup("Chart", InspectorForm::Screens);
    m_form->addSwitchRow({"Circle"}, "CircleEnable", "circleBWidth", lineWidths, "circleColor");
    m_form->addSwitchRow({"Coordinates", 7}, "XYFontEnable", "XYFontSize", textSizes, "xyColor");
    m_form->addControl({"At the corners"}, cornerChoice());
    m_form->addSwitchRow({"Name and size", 8}, "screenFontEnable", "screenFontSize", textSizes, "sfColor");

    m_form->beginGroup("Labels", InspectorForm::Screens);
    m_form->addSwitchRow({"Panel labels"}, "drawLabels", "labelFontSize", textSizes, "labelColor");
    m_form->addSwitch({"Letters by row", 0, "Letters count the rows instead of the columns"}, "XYLabelDirection");

    m_form->beginGroup("Data flow", InspectorForm::Screens);
    m_form->addSwitch({"Path", 0, "Draws the path of the data from panel to panel"}, "drawFlowPath");
    m_patterns = new PatternGrid;
    connect(m_patterns, &PatternGrid::chosen, this, [this](int pattern) { m_document.choosePattern(pattern); });
    m_form->addWide("Pattern of the path", m_patterns);
    m_form->addNumberWith(portSizes(), {"Pixels per port", 0, "Pixels that one port carries; 0: all on one"},
                          "pixelLimit", {0, std::numeric_limits<int>::max(), "px"});
    m_form->addSummary("Ports", LayerText::ports);

    m_form->beginGroup("Power", InspectorForm::Screens);
    m_form->addNumber({"Per panel"}, "powerOnCell", {0, mostWatts, "W"});
    m_form->addSummary("Power", [this](const Layer &layer) {
        return LayerText::power(layer, m_document.voltageCalc(), m_document.phaseCalc());
    });
}

void Inspector::addStillGroup()
{
    m_form->beginGroup("Picture", InspectorForm::Stills);
    m_form->addNumber({"Width", 2}, "panelWidth", {1, longestOutput, "px"});
    m_form->addNumber({"Height", 1}, "panelHeight", {1, longestOutput, "px"});
    m_form->addSwitch({"Keep ratio", 0, "Width and height keep their ratio"}, "aspectRatio");
    m_form->addNumber({"Left", 5}, "xpoint", places);
    m_form->addNumber({"Top", 6}, "ypoint", places);
    m_form->addSummary("Picture", LayerText::picture);
    QPushButton *choose = textButton("Choose picture...", "Shows another picture, or finds a missing one again");
    connect(choose, &QPushButton::clicked, this, &Inspector::choosePicture);
    QPushButton *folder = textButton("Show in folder", "Shows the picture's file among the others");
    connect(folder, &QPushButton::clicked, this, &Inspector::showFolder);
    m_form->addControl({"File"}, choose);
    m_form->addControl({{}}, folder);
}

void Inspector::addOutputGroup()
{
    m_form->beginGroup("Output", InspectorForm::All);
    const auto side = [this](const char *keyPath) {
        auto *field = new NumberField(1, longestOutput, "px");
        connect(field, &NumberField::edited, this,
                [this, keyPath](int pixels) { m_document.setValue(pixels, keyPath); });
        return field;
    };
    m_outputWidth = side("OutputWidth");
    m_outputHeight = side("OutputHeight");
    m_form->addControlWith(outputSizes(), {"Width"}, m_outputWidth);
    m_form->addControl({"Height"}, m_outputHeight);
    m_background = outputColour("Background", &LWAppDelegate::setBgColor);
    m_edge = outputColour("Edge", &LWAppDelegate::setEdgeColor);
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
        button->menu()->addAction(text, this, [this, pixels] { edit("pixelLimit", pixels); });
    }
    return button;
}

QWidget *Inspector::outputSizes()
{
    QToolButton *button = menuButton("Usual sizes of the output", "Takes a size that outputs have");
    for (const QSize size : {QSize(1920, 1080), QSize(3840, 2160), QSize(4096, 2160), QSize(7680, 4320)}) {
        button->menu()->addAction(NumberText::size(size), this, [this, size] {
            m_document.setOutputHeight(size.height());
            m_document.setValue(size.width(), "OutputWidth");
        });
    }
    return button;
}

ColourButton *Inspector::outputColour(const QString &name, void (LWAppDelegate::*set)(const Colour &))
{
    auto *button = new ColourButton(name + " colour");
    connect(button, &ColourButton::edited, this, [this, set](const Colour &colour) {
        (m_document.*set)(colour);
        m_document.update();
    });
    m_form->addControl({name}, button);
    return button;
}

void Inspector::edit(const QString &property, const QVariant &value)
{
    m_document.setValueOfSelection(value, LayerList::keyPathPrefix + property);
}

void Inspector::refresh()
{
    m_outputWidth->show(m_document.OutputWidth());
    m_outputHeight->show(m_document.OutputHeight());
    m_background->show(m_document.bgColor());
    m_edge->show(m_document.edgeColor());
    m_corners->setCurrentIndex(m_document.popupIndex());

    std::vector<LayerPointer> layers;
    if (const LayerPointer shown = m_document.arraycontroller().selectedLayer())
        layers.push_back(shown);
    for (const qsizetype index : m_document.arraycontroller().selectionIndexes()) {
        const LayerPointer layer = m_document.arraycontroller().layer(index);
        if (layer && layer != layers.front())
            layers.push_back(layer);
    }
    if (layers.empty())
        return;
    m_form->show(layers);
}

void Inspector::switchAllOn()
{
    for (const qsizetype index : m_document.arraycontroller().selectionIndexes()) {
        const LayerPointer layer = m_document.arraycontroller().layer(index);
        if (auto *screen = qobject_cast<LWScreen *>(layer.get()))
            screen->setHiddenBoxes(QStringList());
        layer->drawInRect();
    }
    m_document.finishEdit("Switch All Panels On");
}

void Inspector::exchangeColours()
{
    for (const qsizetype index : m_document.arraycontroller().selectionIndexes()) {
        const LayerPointer layer = m_document.arraycontroller().layer(index);
        const OptionalColour first = layer->rectColor();
        layer->setRectColor(layer->rectColor2());
        layer->setRectColor2(first);
        layer->drawInRect();
    }
    m_document.finishEdit("Exchange Colours");
}

void Inspector::choosePicture()
{
    m_interface.prepareOpenPanel("Choose picture");
    m_document.choosePicture();
}

void Inspector::showFolder() const
{
    const LayerPointer selected = m_document.arraycontroller().selectedLayer();
    const auto *still = qobject_cast<const LWStill *>(selected.get());
    const QString path = still ? still->ImageURL().toLocalFile() : QString();
    if (path.isEmpty() || !QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath())))
        m_interface.tellFailure("There is no folder to show; choose the picture first.");
}

bool Inspector::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusOut)
        m_document.endTyping();
    if (event->type() == QEvent::FocusIn)
        ensureWidgetVisible(qobject_cast<QWidget *>(watched));
    return QScrollArea::eventFilter(watched, event);
}
