#include "platform/controls/static_text.h"

#include "platform/metrics.h"

namespace device {

void StaticText::Paint(HDC context) {
    RECT client = Client();
    if (picture_) {
        DrawIconEx(context, 0, 0, picture_, client.right, client.bottom, 0, nullptr, DI_NORMAL);
        return;
    }
    const std::wstring text = Text();
    const bool centred = (static_cast<DWORD>(GetWindowLongW(Handle(), GWL_STYLE)) & SS_TYPEMASK) == SS_CENTER;
    const UINT breaking = HasStyle(SS_ENDELLIPSIS) ? DT_SINGLELINE | DT_END_ELLIPSIS : DT_WORDBREAK;
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &client,
        breaking | DT_NOPREFIX | (centred ? DT_CENTER : 0));
}

LRESULT StaticText::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != STM_SETIMAGE)
        return Control::Message(message, wParam, lParam);
    picture_ = Pointer<HICON__>(lParam);
    Redraw();
    return 0;
}

} // namespace device
