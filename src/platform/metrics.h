#pragma once

#include "platform/types.h"

// The device's measures and colours, constant for the life of a process except the size of the screen.

inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
inline constexpr int COLOR_3DFACE = 15;
inline constexpr int COLOR_GRAYTEXT = 17;

inline constexpr int SM_CXVSCROLL = 2;
inline constexpr int SM_CXEDGE = 45;

inline constexpr UINT SPI_GETWORKAREA = 48;

/// 0, black among the colours, for an unknown index.
COLORREF GetSysColor(int index);
int GetSystemMetrics(int index);
/// SPI_GETWORKAREA alone: `data` is a RECT.
BOOL SystemParametersInfoW(UINT action, UINT parameter, void* data, UINT update);

namespace device {
/// Heights in device pixels, at the device's DPI.
int TitleHeight();
int SoftKeyBarHeight();
/// Pixels per logical inch (LOGPIXELSY).
int Dpi();
/// A length given at 96 pixels per inch, in device pixels; at least 1.
int Scaled(int pixels);
/// The least height of what a finger is to hit, in device pixels; 0 where there are none, as at first.
int TouchTarget();
void SetTouchTarget(int pixels);
/// The screen between title line and soft-key bar.
RECT WorkArea();
/// The screen's size in device pixels; starts as HANDSET_SCREEN says and follows the host's window.
SIZE ScreenSize();
void SetScreenSize(SIZE size);
} // namespace device
