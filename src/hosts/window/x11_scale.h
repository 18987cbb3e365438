#pragma once

#include <SDL.h>
#include <optional>

namespace device {

/// The dots per inch that the user's desktop asks programs for (the resource "Xft.dpi"), where the window is on an X
/// display that says so.
std::optional<double> AskedDpi(SDL_Window* window);

} // namespace device
