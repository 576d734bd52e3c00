#pragma once

#include <QColor>
#include <QFont>

/// The look of every window: one dark theme, one font, one grid. Lengths are logical pixels.
class QLabel;
class QWidget;

namespace Theme {

inline constexpr QColor ground{0x1b, 0x1d, 0x20};  ///< behind everything, around the output
inline constexpr QColor panel{0x24, 0x27, 0x2b};   ///< lists, bars and dialogs
inline constexpr QColor raised{0x2e, 0x32, 0x37};  ///< buttons, fields, the selected row
inline constexpr QColor line{0x3a, 0x3f, 0x45};    ///< borders and what parts regions
inline constexpr QColor text{0xe6, 0xe8, 0xea};    ///< what is read
inline constexpr QColor dimText{0x9a, 0xa1, 0xa9}; ///< what is read second, and what is switched off
inline constexpr QColor accent{0x4c, 0x9f, 0xfe};  ///< focus, and what is pointed at
inline constexpr QColor chosen{0x34, 0x50, 0x6f};  ///< behind what is chosen; the accent frames the focus
inline constexpr QColor warning{0xf0, 0xb4, 0x29}; ///< something could not be done
inline constexpr QColor danger{0xf2, 0x54, 0x5b};  ///< something would be lost

inline constexpr int textSize = 13;
inline constexpr int smallTextSize = 11;
inline constexpr int figureTextSize = 18; ///< of what is read aloud
inline constexpr int gap = 8;             ///< between controls
inline constexpr int edge = 12;           ///< between controls and the edge of their region
inline constexpr int barMargin = 6;       ///< above and below what a bar at the window's edge holds
inline constexpr int controlHeight = 26;
inline constexpr int cornerRadius = 4;

/// Begins to look for the machine's fonts on another processor: that takes as long as a display takes to answer. To be
/// called before there is a QApplication; where it is not, they are looked for when they are needed.
void findFonts();
/// Gives the application style, colours and fonts. Any number of times; a QApplication exists.
void apply();

/// Has the widget write in this colour.
void colourText(QWidget &widget, const QColor &colour);
/// Gives a field a red frame, whether it has the focus or not, or its own again.
void frameAsWrong(QWidget &field, bool isWrong);

/// The title of a group, which has its words said in capitals; `buddy` is what it names.
QLabel *title(const QString &words, QWidget *buddy = nullptr);

QFont smallFont();
QFont figureFont();
/// For the titles of groups: small semibold capitals, to be drawn in `dimText`. The first use loads them, which takes
/// milliseconds: nothing that is painted first should wait for it.
QFont titleFont();

} // namespace Theme
