#pragma once

#include <memory>

/// Asks the desktop to leave the screen on. What was asked for ends with the program. Main thread only.
class ScreenAwake
{
public:
    /// That of the system the program runs on.
    static std::unique_ptr<ScreenAwake> ofDesktop();
    virtual ~ScreenAwake() = default;

    /// Whether the screen shall stay on.
    virtual void keep(bool isAwake) = 0;
};
