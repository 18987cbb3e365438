#include "platform/controls/up_down.h"

#include "platform/windowing/window_record.h"

#include <utility>

namespace device {

LRESULT UpDown::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != UDM_SETBUDDY)
        return Control::Message(message, wParam, lParam);
    const HWND former = std::exchange(buddy_, Pointer<HWND__>(static_cast<LPARAM>(wParam)));
    InvalidateRect(buddy_, nullptr, TRUE);
    return reinterpret_cast<LRESULT>(former);
}

HWND UpDown::PartnerOf(HWND control, DWORD styleBits) {
    for (HWND each = GetWindow(GetParent(control), GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT)) {
        const auto* upDown = dynamic_cast<const UpDown*>(ControlOf(each));
        if (upDown && upDown->buddy_ == control && FindWindowRecord(each)->Has(styleBits))
            return each;
    }
    return nullptr;
}

} // namespace device
