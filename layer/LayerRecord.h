#pragma once

#include "archive/Address.h"
#include "base/Colour.h"
#include "grid/PanelKeys.h"
#include "layer/CableRun.h"

#include <QSizeF>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

/// What a layer is like: plain values, shared by the layer, its picture and the steps of the history, and never changed
/// once they are shared. A new one is all zero, false and nil. Integers are signed and any value is kept: drawing
/// guards itself. Nil and empty are two values, also of texts.
struct LayerRecord
{
    // Geometry
    /// Width of one panel (a screen) or of the whole picture (a still), in output pixels.
    int panelWidth = 0;
    /// Height of one panel or of the whole picture, in output pixels.
    int panelHeight = 0;
    /// Panel columns; 0 for a still.
    int col = 0;
    /// Panel rows; 0 for a still.
    int row = 0;
    /// Width on the output in pixels; recomputed by every drawInRect(), never trusted from a file.
    int screenSizeWidth = 0;
    /// Height on the output in pixels; likewise.
    int screenSizeHeight = 0;
    /// Left edge on the output, in pixels from its left edge.
    int xpoint = 0;
    /// Top edge on the output, in pixels from its top edge, growing downwards.
    int ypoint = 0;

    // Appearance
    /// The layer is composed into the output.
    bool visible = false;
    /// The name; nullopt where there is none.
    std::optional<QString> label;
    /// Panels are filled with the two panel colours; off: transparent.
    bool bgEnable = false;
    /// Panel colour where row + column, counted from the bottom left, is even.
    OptionalColour rectColor;
    /// Panel colour where it is odd.
    OptionalColour rectColor2;
    /// Every panel has a frame.
    bool BoarderEnable = false;
    /// Colour of the frames.
    OptionalColour boarderColor;
    /// Width of the frames in pixels, inside the panel.
    int boarderWidth = 0;
    /// Circle and both diagonals are drawn.
    bool CircleEnable = false;
    /// Their colour.
    OptionalColour circleColor;
    /// Their line width in pixels; also the inset of the corner coordinates.
    int circleBWidth = 0;
    /// Corner coordinates are drawn.
    bool XYFontEnable = false;
    /// Their colour.
    OptionalColour xyColor;
    /// Their size in points.
    int XYFontSize = 0;
    /// Size, name and power are drawn at the centre.
    bool screenFontEnable = false;
    /// Colour of size and power.
    OptionalColour sfColor;
    /// Size of the centre texts in points.
    int screenFontSize = 0;
    /// The power text is drawn; set by every composition on the selected layer (off: screen, on: still).
    bool showPower = false;
    /// The power text is drawn, whatever showPower says; chosen by a person, and no composition changes it.
    bool showCurrent = false;
    /// A second power switch, set alike.
    bool showPowerl = false;

    // Labels and data flow
    /// Every panel is labelled.
    bool drawLabels = false;
    /// Off: columns lettered and rows numbered; on: the other way round.
    bool XYLabelDirection = false;
    /// Colour of the panel labels.
    OptionalColour labelColor;
    /// Their size in points; 0 becomes 40 when they are first drawn.
    double labelFontSize = 0;
    /// The data path is drawn.
    bool drawFlowPath = false;
    /// Where the data path starts and which way it runs, 0 to 7; any other value: no path.
    qint64 pattern = 0;
    /// Pixels that one port carries; 0: one run over the whole screen.
    qint64 pixelLimit = 0;

    // Power
    /// Power of one panel in watts.
    int powerOnCell = 0;

    // Inspector
    /// Width and height keep the ratio of `aspectValue` while they are edited.
    bool aspectRatio = false;
    /// That ratio, width to height.
    QSizeF aspectValue{0, 0};
    /// Hides the aspect lock.
    bool aspectHidden = false;
    /// Hides the right-hand captions.
    bool labelGroupRightHidden = false;
    /// Captions of the editable quantities; nullopt: the word of the interface.
    std::optional<QString> label1;
    std::optional<QString> label2;
    std::optional<QString> label3;
    std::optional<QString> label4;
    std::optional<QString> label5;
    std::optional<QString> label6;
    std::optional<QString> label7;
    std::optional<QString> label8;
    /// Hide the captions.
    bool label1Hidden = false;
    bool label2Hidden = false;
    bool label3Hidden = false;
    bool label4Hidden = false;
    bool label5Hidden = false;
    bool label6Hidden = false;
    bool label7Hidden = false;
    bool label8Hidden = false;

    // Of walls alone
    /// Keys "row,column" of the switched-off panels, row from the top, column from the left; nullopt: no list at all,
    /// every panel is on.
    std::optional<PanelKeys> hiddenBoxes;
    /// The choices of a label position; nullopt where there are none.
    std::optional<QStringList> PositionArray;

    // Kept for bindings of a wall's interface; nothing reads them.
    bool label9Hidden = false;
    bool drawBackground = false;
    bool drawBorder = false;
    qint64 columnCount = 0;
    qint64 rowCount = 0;
    double width = 0;
    double height = 0;

    // Of stills alone
    /// Where the picture was loaded from; nil: nowhere.
    Address ImageURL;

    // Additions: without a property; by their names through LayerValues.
    /// What others name the layer by, 128 bits as text; nullopt while nothing refers to it.
    std::optional<QString> id;
    /// The standard chart that a still shows in place of a file's picture, drawn at the still's size, with what was
    /// chosen of it: "field colour=red"; nullopt: none.
    std::optional<QString> chart;
    /// The name of the show's processor that feeds the wall; nullopt: none, and the wall is left out of ports.
    std::optional<QString> processor;
    /// The port that its first run keeps, whatever the other walls do; 0: the next free one.
    int firstPort = 0;
    /// The first run goes on at the last port of the wall before it, while it fits.
    bool goesOn = false;
    /// How its panels are cut into runs.
    CableSplit split = CableSplit::Lines;
    /// `pixelLimit` is what a port of the processor carries.
    bool limitFromProcessor = false;
    /// Its cables as they were laid by hand; they are kept while another way of splitting is chosen.
    CableRuns runs;
    /// The names of checks whose findings in this layer somebody means so; nullopt: none.
    std::optional<QStringList> meant;
    /// Each port's cable has a colour of its own.
    bool portColours = false;
    /// The first panel of each port bears its name, the last one the end of a loop.
    bool portNames = false;
    /// What stands for the name, with {processor} and {port} in it; nullopt: "{processor}{port}".
    std::optional<QString> portName;
    /// Labels tell the place of a panel on its port, "A3.12".
    bool panelPlaces = false;

    bool operator==(const LayerRecord &) const = default;
};

using LayerRecordPointer = std::shared_ptr<const LayerRecord>;
