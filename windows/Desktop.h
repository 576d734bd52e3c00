#pragma once

#include <QColor>
#include <QImage>
#include <QString>

/// What differs between the desktops of operating systems; as base/System.h, with one source each.
namespace Desktop {

/// Looks for the machine's fonts, so that Qt need not. May be called on any thread before there is a QApplication.
void findFonts();

/// Keeps the desktop from having looks of its own in the program's windows: light frames around those that are made
/// from now on, and other fonts in menus. Any number of times; a QApplication exists.
void keepLooks();

/// A sign of :/icons/, "eye-slash", `side` pixels wide and high: from its drawing, or from a picture where Qt has no
/// reader of drawings. Null for a name that there is not.
QImage drawnSign(const QString &name, int side, const QColor &colour);

} // namespace Desktop
