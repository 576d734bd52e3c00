#include "screen/LWScreen.h"

#include "layer/LayerHost.h"

#include <QVariant>

#include <array>

namespace {
/// The archive of a screen, in the order of writing. Spellings and forms are what makes saved files readable.
constexpr std::array archiveFields{
    ArchiveField{"col", "col", StoredAs::Integer32},
    ArchiveField{"bgenable", "bgEnable", StoredAs::Boolean},
    ArchiveField{"boarderenable", "BoarderEnable", StoredAs::Boolean},
    ArchiveField{"panelwidth", "panelWidth", StoredAs::Integer32},
    ArchiveField{"panelheight", "panelHeight", StoredAs::Integer32},
    ArchiveField{"row", "row", StoredAs::Integer32},
    ArchiveField{"rectcolor", "rectColor", StoredAs::Colour},
    ArchiveField{"rectcolor2", "rectColor2", StoredAs::Colour},
    ArchiveField{"visible", "visible", StoredAs::Boolean},
    ArchiveField{"screenheight", "screenSizeHeight", StoredAs::Integer32},
    ArchiveField{"screenwidth", "screenSizeWidth", StoredAs::Integer32},
    ArchiveField{"xpoint", "xpoint", StoredAs::Integer32},
    ArchiveField{"ypoint", "ypoint", StoredAs::Integer32},
    ArchiveField{"xycolor", "xyColor", StoredAs::Colour},
    ArchiveField{"sfcolor", "sfColor", StoredAs::Colour},
    ArchiveField{"xyfontsize", "XYFontSize", StoredAs::Integer32},
    ArchiveField{"xyenable", "XYFontEnable", StoredAs::Boolean},
    ArchiveField{"fontenable", "screenFontEnable", StoredAs::Boolean},
    ArchiveField{"circleenable", "CircleEnable", StoredAs::Boolean},
    ArchiveField{"screenfontsize", "screenFontSize", StoredAs::Integer32},
    ArchiveField{"circlecolor", "circleColor", StoredAs::Colour},
    ArchiveField{"boardercolor", "boarderColor", StoredAs::Colour},
    ArchiveField{"label", "label", StoredAs::Text},
    ArchiveField{"boarderwidth", "boarderWidth", StoredAs::Integer32},
    ArchiveField{"circlebwidth", "circleBWidth", StoredAs::Integer32},
    ArchiveField{"drawLabels", "drawLabels", StoredAs::Integer32},
    ArchiveField{"labelColor", "labelColor", StoredAs::Colour},
    ArchiveField{"labelFontSize", "labelFontSize", StoredAs::Integer32},
    ArchiveField{"drawFlowPath", "drawFlowPath", StoredAs::Integer32},
    ArchiveField{"pixelLimit", "pixelLimit", StoredAs::Integer32},
    ArchiveField{"pattern", "pattern", StoredAs::Integer32},
    ArchiveField{"powerOnCell", "powerOnCell", StoredAs::Integer32},
    ArchiveField{"hiddenBoxes", "hiddenBoxes", StoredAs::TextList},
};

/// With what was added since.
const std::vector<ArchiveField> &allFields()
{
    static const std::vector<ArchiveField> fields = withAdditions(archiveFields, LayerKind::Wall);
    return fields;
}

/// What a copy takes over, beside the additions that say so; thumbnail and hidden panels are handled for themselves.
constexpr std::array copiedProperties{
    "screenFontEnable",
    "BoarderEnable",
    "panelWidth",
    "panelHeight",
    "col",
    "row",
    "rectColor",
    "rectColor2",
    "visible",
    "screenSizeHeight",
    "screenSizeWidth",
    "xpoint",
    "ypoint",
    "xyColor",
    "sfColor",
    "XYFontSize",
    "XYFontEnable",
    "screenFontSize",
    "CircleEnable",
    "bgEnable",
    "circleColor",
    "boarderColor",
    "label",
    "boarderWidth",
    "circleBWidth",
    "drawLabels",
    "labelColor",
    "labelFontSize",
    "drawFlowPath",
    "pixelLimit",
    "pattern",
    "powerOnCell",
};

constexpr int defaultPixelLimit = 655360;

void setCaptions(LWScreen &screen)
{
    screen.setLabel1("Panel-H");
    screen.setLabel2("Panel-V");
    screen.setLabel3("COLS");
    screen.setLabel4("ROWS");
    screen.setLabel5("H-Start");
    screen.setLabel6("V-Start");
    screen.setLabel7("XY Label Size");
    screen.setLabel8("Label Screen Size");
}

/// What every new screen starts with, however it is made.
void setCommonDefaults(LWScreen &screen)
{
    screen.setVisible(true);
    screen.setScreenFontSize(50);
    screen.setBoarderWidth(1);
    screen.setCircleBWidth(4);
    screen.setPowerOnCell(1);
    screen.setPixelLimit(defaultPixelLimit);
    setCaptions(screen);
}
} // namespace

LWScreen::LWScreen(LayerHost &host) : Layer(host) {}

LWScreen::~LWScreen() = default;

std::shared_ptr<LWScreen> LWScreen::init(LayerHost &host)
{
    auto screen = std::make_shared<LWScreen>(host);
    setCommonDefaults(*screen);
    screen->setRow(5);
    screen->setCol(5);
    screen->setPanelWidth(48);
    screen->setPanelHeight(48);
    screen->setRectColor(NamedColour::red);
    screen->setRectColor2(NamedColour::green);
    screen->setBoarderColor(NamedColour::white);
    screen->setCircleColor(NamedColour::white);
    screen->setXyColor(NamedColour::white);
    screen->setXYFontSize(50);
    screen->setLabelFontSize(40);
    screen->setBgEnable(true);
    screen->setBoarderEnable(true);
    screen->setPositionArray(QStringList{"TOP LEFT", "TOP RIGHT", "CENTER", "BOTTOM LEFT", "BOTTOM RIGHT"});
    screen->setAspectHidden(true);
    screen->drawInRect();
    return screen;
}

std::shared_ptr<LWScreen> LWScreen::initWithrow(LayerHost &host, const Arguments &arguments)
{
    auto screen = std::make_shared<LWScreen>(host);
    setCommonDefaults(*screen);
    screen->setHiddenBoxes(arguments.hiddenBoxes.value_or(QStringList()));
    screen->setRow(arguments.row);
    screen->setCol(arguments.col);
    screen->setPanelWidth(arguments.panelWidth);
    screen->setPanelHeight(arguments.panelHeight);
    screen->setRectColor(arguments.rectColor);
    screen->setRectColor2(arguments.rectColor2);
    screen->setBoarderColor(arguments.boarderColor);
    screen->setCircleColor(arguments.circleColor);
    screen->setXyColor(arguments.xyColor);
    screen->setSfColor(arguments.sfColor);
    screen->setXYFontSize(arguments.xyFontSize);
    screen->setBgEnable(arguments.bgEnable);
    screen->setBoarderEnable(arguments.boarderEnable);
    screen->setLabel(arguments.label);
    screen->setCircleEnable(arguments.circleEnable);
    screen->setXpoint(arguments.hpos);
    screen->setYpoint(arguments.vpos);
    screen->drawInRect();
    return screen;
}

std::shared_ptr<LWScreen> LWScreen::initWithrow(LayerHost &host, Arguments arguments, int power)
{
    arguments.hiddenBoxes.reset();
    auto screen = initWithrow(host, arguments);
    screen->setPowerOnCell(power);
    return screen;
}

std::shared_ptr<LWScreen> LWScreen::of(LayerHost &host, const LayerRecordPointer &record)
{
    auto screen = std::make_shared<LWScreen>(host);
    screen->setRecord(record);
    screen->drawInRect();
    return screen;
}

Result<LayerRecord> LWScreen::decode(const ArchiveObject &coder)
{
    LayerRecord record;
    return decodeFields(record, allFields(), coder).map([&] { return std::move(record); });
}

Result<std::shared_ptr<LWScreen>> LWScreen::initWithCoder(LayerHost &host, const ArchiveObject &coder)
{
    return decode(coder).map(
        [&](const LayerRecord &record) { return of(host, std::make_shared<LayerRecord>(record)); });
}

QSet<QString> LWScreen::archiveKeys()
{
    return keysOf(allFields());
}

LayerPointer LWScreen::copyWithZone() const
{
    auto copy = init(host());
    copy->takeOver(*this, copiedProperties);
    copy->takeOver(*this, LayerValues::copiedAdditions(LayerKind::Wall));
    copy->setThumbnail(thumbnail());
    copy->setPanelsOff(panelsOff().value_or(PanelKeys()));
    return copy;
}

std::optional<QStringList> LWScreen::hiddenBoxes() const
{
    return panelsOff() ? std::optional(panelsOff()->texts()) : std::nullopt;
}

void LWScreen::setHiddenBoxes(const std::optional<QStringList> &texts)
{
    setPanelsOff(texts ? std::optional<PanelKeys>(*texts) : std::nullopt);
}

void LWScreen::encodeWithCoder(ArchiveObject &coder) const
{
    encodeFields(values(), allFields(), coder);
}

std::span<const ArchiveField> LWScreen::keptFields() const
{
    return allFields();
}

void LWScreen::changeArrows(int tag)
{
    host().choosePattern(tag);
}
