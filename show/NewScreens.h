#pragma once

#include "screen/LWScreen.h"

#include <QString>

/// The looks that the program gives to screens of its own.
namespace NewScreens {

/// A wall with white lines and texts, coordinates of 50 points, background, border and circle; without panels.
LWScreen::Arguments plain(const QString &label);
/// What a document begins with: 8 x 5 panels of 128 pixels in red and light gray.
LWScreen::Arguments first(const QString &label);
/// What is added: one panel of 80 pixels. It is red twice; the person picks its colours afterwards.
LWScreen::Arguments added(const QString &label);

} // namespace NewScreens
