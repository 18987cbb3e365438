#pragma once

#include "platform/drawing/canvas.h"
#include "platform/metrics.h"

namespace device {

// The looks of the device's own surroundings: title line, soft-key bar, menus, message boxes.

/// `points` of the device's face, at the device's DPI.
inline FontDescription DeviceFont(int points, bool bold) {
    return {-(points * Dpi()) / 72, bold ? 700 : 400, false, {}};
}

inline constexpr COLORREF BarColor = RGB(0x26, 0x32, 0x38);
inline constexpr COLORREF BarTextColor = RGB(0xFF, 0xFF, 0xFF);
inline constexpr COLORREF BarQuietColor = RGB(0xB0, 0xBE, 0xC5);
inline constexpr COLORREF MenuColor = RGB(0xFA, 0xFA, 0xFA);
inline constexpr COLORREF MenuEdgeColor = RGB(0x90, 0xA4, 0xAE);
inline constexpr int DimAlpha = 110;

} // namespace device
