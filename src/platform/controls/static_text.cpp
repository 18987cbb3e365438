#include "platform/controls/static_text.h"

#include "platform/metrics.h"

#include <string>

namespace device {

void StaticText::Paint(HDC context) const {
    RECT client;
    GetClientRect(Handle(), &client);
    if (picture_) {
        DrawIconEx(context, 0, 0, picture_, client.right, client.bottom, 0, nullptr, DI_NORMAL);
        return;
    }
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(Handle())), L'\0');
    if (text.empty())
        return;
    GetWindowTextW(Handle(), text.data(), static_cast<int>(text.size()) + 1);
    const auto style = static_cast<DWORD>(GetWindowLongW(Handle(), GWL_STYLE));
    const bool centred = (style & 0x1FU) == SS_CENTER;
    const UINT breaking = (style & SS_ENDELLIPSIS) != 0 ? DT_SINGLELINE | DT_END_ELLIPSIS : DT_WORDBREAK;
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    SetBkMode(context, TRANSPARENT);
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &client,
        breaking | DT_NOPREFIX | (centred ? DT_CENTER : 0));
}

LRESULT StaticText::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_ERASEBKGND:
        return 1; // the dialog's own ground shows
    case WM_PAINT:
        Paint(reinterpret_cast<HDC>(wParam)); // NOLINT(performance-no-int-to-ptr)
        return 0;
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    case STM_SETIMAGE:
        picture_ = reinterpret_cast<HICON>(lParam); // NOLINT(performance-no-int-to-ptr)
        InvalidateRect(Handle(), nullptr, TRUE);
        return 0;
    default:
        return DefWindowProcW(Handle(), message, wParam, lParam);
    }
}

} // namespace device
