#pragma once

#include "platform/types.h"

#include <optional>

namespace device {

/// What a window stands on, in the display's own pixels.
struct DisplayRoom {
    SIZE usable{}; ///< what the desktop leaves to windows; nothing: unknown, and then it limits nothing
    SIZE frame{}; ///< what a window's frame takes of that
    double zoom = 1.0; ///< what the user has asked the desktop for; texts are never made smaller than that
};

struct ZoomWish {
    SIZE screen{320, 480}; ///< at first start
    std::optional<double> fixed; ///< by a person's own choice; else the zoom follows the window
};

/// How a window shows the device: pixels for each of the device's own, and how many of those it has room for.
struct ZoomedScreen {
    double zoom = 1.0;
    SIZE screen{};
};

/// On which the soft keys and one row of a list can be read.
SIZE LeastScreen();
/// The pixels that a screen takes.
SIZE InPixels(SIZE screen, double zoom);
/// The size of a window, made to fit between the frame's edges.
SIZE FitRoom(SIZE window, const DisplayRoom& room);
bool Fits(SIZE window, const DisplayRoom& room);
/// The largest zoom that leaves room for the least screen, so that the soft keys are never off the display.
double LargestZoom(const DisplayRoom& room);
/// The zoom of a window that nobody has given a size yet: the largest step that leaves something of the display to
/// other windows.
double FirstZoom(SIZE screen, const DisplayRoom& room);
/// What a window of that size shows. A larger window has larger text: while the zoom is free, the screen stays between
/// a narrow and a wide handset's, as far as its height lets it; it is the one that is closest to the first zoom, so
/// that a window that comes back to its size comes back to its zoom.
ZoomedScreen ZoomFor(SIZE window, const DisplayRoom& room, const ZoomWish& wish);

} // namespace device
