#pragma once

#include "platform/types.h"

#include <string>

struct SDL_Window;

namespace device {

struct Picture;

/// Whether a variable of the process's environment has a content.
bool IsSet(const char* variable);
/// Connects to a display that a person can see; false without one, and then `error` says why in one line.
bool InitVideo(std::string& error);
/// Pixels of the image for `devicePixels`, at least one.
int InImage(LONG devicePixels, double zoom);
/// Pixels of the window for each of the desktop's own points.
double PixelsPerPoint(SDL_Window* window);
/// The zoom that suits the display where the window stands, for a screen of that size: by the desktop's scale, else by
/// the density in steps of a half, but no larger than the display has room for.
double ZoomOfDisplay(SDL_Window* window, SIZE screen);
/// The window's mark in the desktop's lists of windows; a picture that cannot be read leaves the desktop's own.
void SetWindowIcon(SDL_Window* window, const Picture& picture);

} // namespace device
