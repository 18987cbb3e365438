#pragma once

#include "platform/window.h"

/// A control's place in its dialog's client area.
inline RECT ControlPlace(HWND dialog, HWND control) {
    RECT place;
    GetWindowRect(control, &place);
    POINT corner{place.left, place.top};
    ScreenToClient(dialog, &corner);
    return {corner.x, corner.y, corner.x + place.right - place.left, corner.y + place.bottom - place.top};
}
