#include "live/BusScreenAwake.h"

std::unique_ptr<ScreenAwake> ScreenAwake::ofDesktop()
{
    return std::make_unique<BusScreenAwake>(QDBusConnection::sessionBus());
}
