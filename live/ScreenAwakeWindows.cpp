#include "live/ScreenAwake.h"

#include <windows.h>

namespace {
/// Holds for the thread that asks, which is the main one.
class ThreadScreenAwake final : public ScreenAwake
{
public:
    void keep(bool isAwake) override
    {
        SetThreadExecutionState(isAwake ? ES_CONTINUOUS | ES_DISPLAY_REQUIRED : ES_CONTINUOUS);
    }
};
} // namespace

std::unique_ptr<ScreenAwake> ScreenAwake::ofDesktop()
{
    return std::make_unique<ThreadScreenAwake>();
}
