#include "show/LWPresets.h"

#include "screen/LWScreen.h"

LWPresets::LWPresets(LayerHost &host)
{
    insertObjectAtArrangedObjectIndex(LWScreen::init(host), 0);
    connect(this, &LayerList::rowWasDropped, this, &LWPresets::moveObjectAtArrangedObjectIndex);
}
