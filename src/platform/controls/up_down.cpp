#include "platform/controls/up_down.h"

namespace device {

LRESULT UpDown::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case UDM_SETBUDDY: {
        const HWND former = buddy_;
        buddy_ = reinterpret_cast<HWND>(wParam); // NOLINT(performance-no-int-to-ptr)
        InvalidateRect(buddy_, nullptr, TRUE);
        return reinterpret_cast<LRESULT>(former);
    }
    case WM_ERASEBKGND:
        return 1;
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    default:
        return DefWindowProcW(Handle(), message, wParam, lParam);
    }
}

HWND UpDown::PartnerOf(HWND control, DWORD styleBits) {
    for (HWND each = GetWindow(GetParent(control), GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT)) {
        const auto* upDown = dynamic_cast<const UpDown*>(ControlOf(each));
        const auto style = static_cast<DWORD>(GetWindowLongW(each, GWL_STYLE));
        if (upDown && upDown->buddy_ == control && (style & styleBits) == styleBits)
            return each;
    }
    return nullptr;
}

} // namespace device
