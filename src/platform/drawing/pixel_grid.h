#pragma once

#include "platform/drawing/canvas.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace device {

/// Where device pixels lie in an image of `zoom` image pixels a device pixel. Edges are snapped to whole image pixels,
/// so that neighbours meet without a seam and a part that is painted anew ends where it ended before.
struct PixelGrid {
    double zoom = 1.0;

    int Snap(LONG position) const { return static_cast<int>(std::lround(position * zoom)); }
    RECT Snap(const RECT& rectangle) const {
        return {Snap(rectangle.left), Snap(rectangle.top), Snap(rectangle.right), Snap(rectangle.bottom)};
    }
    /// At most what `Snap` leaves between two neighbours, so that a line never runs into the next pixel.
    int Thickness(int width) const { return std::max(1, static_cast<int>(std::floor(width * zoom))); }
    /// The image pixels of a level or an upright line.
    RECT Line(POINT from, POINT to, int width) const {
        const LONG before = width / 2;
        if (from.y == to.y) {
            const int top = Snap(from.y - before);
            return {Snap(std::min(from.x, to.x)), top, Snap(std::max(from.x, to.x)), top + Thickness(width)};
        }
        const int left = Snap(from.x - before);
        return {left, Snap(std::min(from.y, to.y)), left + Thickness(width), Snap(std::max(from.y, to.y))};
    }
    /// The image pixels of a frame; they do not overlap.
    std::array<RECT, 4> FrameEdges(const RECT& rectangle, int width) const {
        const RECT outer = Snap(rectangle);
        const int edge
            = std::min({Thickness(width), (outer.right - outer.left + 1) / 2, (outer.bottom - outer.top + 1) / 2});
        return {RECT{outer.left, outer.top, outer.right, outer.top + edge},
            RECT{outer.left, outer.bottom - edge, outer.right, outer.bottom},
            RECT{outer.left, outer.top + edge, outer.left + edge, outer.bottom - edge},
            RECT{outer.right - edge, outer.top + edge, outer.right, outer.bottom - edge}};
    }
};

} // namespace device
