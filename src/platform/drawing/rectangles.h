#pragma once

#include "platform/drawing.h"

#include <algorithm>

namespace device {

inline RECT Intersection(const RECT& a, const RECT& b) {
    const RECT common{
        std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
    return IsRectEmpty(common) ? RECT{} : common;
}

inline bool Intersects(const RECT& a, const RECT& b) {
    return !IsRectEmpty(Intersection(a, b));
}

/// Nothing contains an empty rectangle.
inline bool Contains(const RECT& outer, const RECT& inner) {
    return !IsRectEmpty(inner) && inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right
        && inner.bottom <= outer.bottom;
}

inline bool Contains(const RECT& outer, POINT point) {
    return point.x >= outer.left && point.x < outer.right && point.y >= outer.top && point.y < outer.bottom;
}

inline int HeightOf(const RECT& rectangle) {
    return static_cast<int>(rectangle.bottom - rectangle.top);
}

inline POINT Moved(POINT point, POINT by) {
    return {point.x + by.x, point.y + by.y};
}

inline RECT Moved(const RECT& rectangle, POINT by) {
    return {rectangle.left + by.x, rectangle.top + by.y, rectangle.right + by.x, rectangle.bottom + by.y};
}

} // namespace device
