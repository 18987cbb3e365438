#pragma once

#include "platform/windowing/zoom_rule.h"

#include <string>

struct SDL_Window;

namespace device {

/// Whether a variable of the process's environment has a content.
bool IsSet(const char* variable);
/// Connects to a display that a person can see; false without one, and then `error` says why in one line.
bool InitVideo(std::string& error);
/// Pixels of the window for each of the desktop's own points.
double PixelsPerPoint(SDL_Window* window);
/// What the display where the window stands has room for. Its zoom is the desktop's scale, else the density in steps of
/// a half, but no larger than there is room for that screen. A frame is known once the window was shown.
DisplayRoom RoomOfDisplay(SDL_Window* window, SIZE screen);
/// Gives the window the program's icon, which is the picture with the lowest number of its module. Without a module or
/// a picture the desktop shows its own.
void SetProgramIcon(SDL_Window* window);

} // namespace device
