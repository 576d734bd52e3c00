#pragma once

/// What differs between the desktops of operating systems; as base/System.h, with one source each.
namespace Desktop {

/// Looks for the machine's fonts, so that Qt need not. May be called on any thread before there is a QApplication.
void findFonts();

/// Has the frames that the desktop draws around windows be as dark as the windows, where it does not find that out by
/// itself: of those that are made from now on. Any number of times; a QApplication exists.
void darkenFrames();

} // namespace Desktop
