#include "windows/Desktop.h"

#include <fontconfig/fontconfig.h>

void Desktop::findFonts()
{
    FcInit();
}

void Desktop::darkenFrames() {}
