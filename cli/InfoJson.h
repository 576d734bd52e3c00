#pragma once

#include <QString>

struct ProjectFacts;

/// A project's facts for programs.
namespace InfoJson {

/// One JSON object, its members always in the order of the example; every layer has the members of its class,
/// "LWScreen" or "LWStill". Sizes are in pixels, positions from the output's top-left corner.
///
///     {
///       "format": 1,
///       "OutputWidth": 1920,
///       "OutputHeight": 1080,
///       "voltage": 110,
///       "phases": 1,
///       "watts": 1200,
///       "amperes": 10.909090995788574,
///       "layers": [
///         {
///           "index": 0,                 from the top of the list
///           "class": "LWScreen",
///           "label": "Main",            or null
///           "visible": true,
///           "xpoint": 0,
///           "ypoint": 0,
///           "screenSizeWidth": 400,
///           "screenSizeHeight": 300,
///           "ImageURL": "logo.png",     or null; only "LWStill", whose members end here or with
///           "chart": "rp219",           which is there only where it shows one
///           "tooLargeToDraw": false,
///           "col": 4,
///           "row": 3,
///           "panelWidth": 100,
///           "panelHeight": 100,
///           "panels": 12,               hidden ones too
///           "hiddenPanels": 0,
///           "powerOnCell": 100,         watts of a panel
///           "watts": 1200,
///           "amperes": 10.909090995788574,
///           "drawFlowPath": true,       false also where "pattern" is no pattern
///           "pattern": 2,
///           "pixelLimit": 80000,        of a port; 0: none
///           "ports": [                  equal ports that follow each other share an entry
///             {"first": 1, "last": 1, "rows": 2, "panels": 8, "pixels": 80000},
///             {"first": 2, "last": 2, "rows": 1, "panels": 4, "pixels": 40000}
///           ]
///         }
///       ]
///     }
///
/// Along columns a port has "columns" in the place of "rows". Figures are those of one port; "pixels" is null where 64
/// bits cannot count them. "watts" wrap in 32 bits, as the program's own sum does; "amperes" are of single precision,
/// told to the last bit.
QString of(const ProjectFacts &facts);

} // namespace InfoJson
