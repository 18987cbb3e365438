#include "platform/metrics.h"

#include "platform/system/environment.h"

#include <algorithm>

namespace {

constexpr int ReferenceDpi = 96;
constexpr int BarHeight = 24;
constexpr int EdgeWidth = 2;
constexpr int ScrollBarWidth = 8;

struct Screen {
    SIZE size = device::TheEnvironment().screen;
    int touchTarget = 0;
};

Screen& TheScreen() {
    return device::MadeForEnvironment<Screen>();
}

} // namespace

COLORREF GetSysColor(int index) {
    switch (index) {
    case COLOR_WINDOW:
    case COLOR_HIGHLIGHTTEXT:
        return RGB(0xFF, 0xFF, 0xFF);
    case COLOR_HIGHLIGHT:
        return RGB(0x1A, 0x4F, 0x9C);
    case COLOR_3DFACE:
        return RGB(0xE4, 0xE6, 0xEA);
    case COLOR_GRAYTEXT:
        return RGB(0x6B, 0x6F, 0x76);
    default: // the window's text among them
        return RGB(0, 0, 0);
    }
}

int GetSystemMetrics(int index) {
    switch (index) {
    case SM_CXVSCROLL:
        return device::Scaled(ScrollBarWidth);
    case SM_CXEDGE:
        return device::Scaled(EdgeWidth);
    default:
        return 0;
    }
}

BOOL SystemParametersInfoW(UINT action, UINT /*parameter*/, void* data, UINT /*update*/) {
    if (action != SPI_GETWORKAREA || data == nullptr)
        return FALSE;
    *static_cast<RECT*>(data) = device::WorkArea();
    return TRUE;
}

int device::TitleHeight() {
    return std::max(Scaled(BarHeight), TouchTarget());
}

int device::SoftKeyBarHeight() {
    return std::max(Scaled(BarHeight), TouchTarget());
}

RECT device::WorkArea() {
    const SIZE screen = ScreenSize();
    const int top = std::min<int>(TitleHeight(), screen.cy);
    return {0, top, screen.cx, std::max<int>(top, screen.cy - SoftKeyBarHeight())};
}

int device::Dpi() {
    return TheEnvironment().dpi;
}

int device::Scaled(int pixels) {
    return std::max(1, (pixels * Dpi() + ReferenceDpi / 2) / ReferenceDpi);
}

int device::TouchTarget() {
    return TheScreen().touchTarget;
}

void device::SetTouchTarget(int pixels) {
    TheScreen().touchTarget = std::max(0, pixels);
}

SIZE device::ScreenSize() {
    return TheScreen().size;
}

void device::SetScreenSize(SIZE size) {
    TheScreen().size = {std::max(1, size.cx), std::max(1, size.cy)};
}
