#include "lists/client_context.h"

#include <cwchar>

RECT PlaceIn(HWND parent, HWND child) {
    RECT place;
    GetWindowRect(child, &place);
    POINT corner{place.left, place.top};
    ScreenToClient(parent, &corner);
    return {corner.x, corner.y, corner.x + place.right - place.left, corner.y + place.bottom - place.top};
}

LONG LineHeight(HWND window, HFONT font) {
    const CClientContext context(window);
    SelectObject(context.GetHandle(), font);
    TEXTMETRICW metrics;
    GetTextMetricsW(context.GetHandle(), &metrics);
    return metrics.tmHeight + metrics.tmExternalLeading;
}

SIZE TextExtent(HDC context, const wchar_t* text) {
    SIZE extent;
    GetTextExtentPoint32W(context, text, static_cast<int>(std::wcslen(text)), &extent);
    return extent;
}
