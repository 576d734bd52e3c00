#include "show/NewScreens.h"

namespace NewScreens {

LWScreen::Arguments plain(const QString &label)
{
    LWScreen::Arguments arguments;
    arguments.boarderColor = NamedColour::white;
    arguments.circleColor = NamedColour::white;
    arguments.xyColor = NamedColour::white;
    arguments.sfColor = NamedColour::white;
    arguments.xyFontSize = 50;
    arguments.bgEnable = true;
    arguments.boarderEnable = true;
    arguments.circleEnable = true;
    arguments.label = label;
    return arguments;
}

LWScreen::Arguments first(const QString &label)
{
    LWScreen::Arguments arguments = plain(label);
    arguments.row = 5;
    arguments.col = 8;
    arguments.panelWidth = 128;
    arguments.panelHeight = 128;
    arguments.rectColor = NamedColour::red;
    arguments.rectColor2 = NamedColour::lightGray;
    return arguments;
}

LWScreen::Arguments added(const QString &label)
{
    LWScreen::Arguments arguments = plain(label);
    arguments.row = 1;
    arguments.col = 1;
    arguments.panelWidth = 80;
    arguments.panelHeight = 80;
    arguments.rectColor = NamedColour::red;
    arguments.rectColor2 = NamedColour::red;
    arguments.hiddenBoxes = QStringList();
    return arguments;
}

} // namespace NewScreens
