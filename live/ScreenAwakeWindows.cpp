#include "live/ScreenAwake.h"

#include <windows.h>

namespace {
/// Holds for the thread that asks, which is the main one. A machine that sleeps shows nothing either, and what keeps
/// its display on does not keep it awake.
class ThreadScreenAwake final : public ScreenAwake
{
public:
    void keep(bool isAwake) override
    {
        constexpr EXECUTION_STATE both = ES_DISPLAY_REQUIRED | ES_SYSTEM_REQUIRED;
        SetThreadExecutionState(isAwake ? ES_CONTINUOUS | both : ES_CONTINUOUS);
    }
};
} // namespace

std::unique_ptr<ScreenAwake> ScreenAwake::ofDesktop()
{
    return std::make_unique<ThreadScreenAwake>();
}
