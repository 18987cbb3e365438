#include "platform/windowing/control.h"

#include "platform/dialog.h"
#include "platform/drawing/device_context.h"
#include "platform/windowing/desktop.h"

#include <algorithm>

namespace device {

namespace {

LRESULT ControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Control* control = ControlOf(handle);
    return control ? control->Hear(message, wParam, lParam) : DefWindowProcW(handle, message, wParam, lParam);
}

} // namespace

LRESULT Control::Hear(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_GETDLGCODE:
        return WantedKeys(Pointer<const MSG>(lParam));
    case WM_KEYDOWN:
        KeyDown(static_cast<WORD>(wParam));
        return 0;
    case WM_CHAR:
        Character(static_cast<wchar_t>(wParam));
        return 0;
    case WM_LBUTTONDOWN:
        LeftPress(PointOf(lParam), wParam);
        return 0;
    case WM_LBUTTONDBLCLK:
        DoubleClick(PointOf(lParam));
        return 0;
    case WM_RBUTTONDOWN:
        RightPress(PointOf(lParam));
        return 0;
    case WM_MOUSEWHEEL:
        return Wheel(static_cast<std::int16_t>(HIWORD(wParam))) ? 0 : DefWindowProcW(window_, message, wParam, lParam);
    case WM_SIZE:
        Sized();
        return 0;
    case WM_ERASEBKGND:
        PaintGround(Pointer<HDC__>(static_cast<LPARAM>(wParam)));
        return 1;
    case WM_PAINT:
        Paint(Pointer<HDC__>(static_cast<LPARAM>(wParam)));
        return 0;
    default:
        return Message(message, wParam, lParam);
    }
}

void PanRows(int pixels, int rowHeight, int lastFirst, int& first, int& hidden) {
    const int position = std::clamp(first * rowHeight + hidden - pixels, 0, std::max(0, lastFirst) * rowHeight);
    first = position / rowHeight;
    hidden = position % rowHeight;
}

LRESULT Control::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window_, message, wParam, lParam);
}

std::wstring Control::Text() const {
    const Window* window = FindWindowRecord(window_);
    return window ? window->text : std::wstring();
}

bool Control::HasStyle(DWORD styleBits) const {
    return (static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE)) & styleBits) != 0;
}

RECT Control::Client() const {
    RECT client;
    GetClientRect(window_, &client);
    return client;
}

const FontDescription& Control::Font() const {
    const Window* window = FindWindowRecord(window_);
    return FontOf(window ? window->font : nullptr);
}

int Control::TextHeight() const {
    return Desktop::The().Screen().Measurer().Metrics(Font()).Height();
}

void Control::Redraw() const {
    InvalidateRect(window_, nullptr, TRUE);
}

void Control::Notify(UINT code) const {
    const auto id = LOWORD(static_cast<std::uintptr_t>(GetDlgCtrlID(window_)));
    SendMessageW(
        GetParent(window_), WM_COMMAND, id | (static_cast<WPARAM>(code) << 16U), reinterpret_cast<LPARAM>(window_));
}

void RegisterControlClass(const wchar_t* className, ControlFactory factory) {
    AddWindowClass(className, ControlProcedure, factory);
}

Control* ControlOf(HWND window) {
    Window* record = FindWindowRecord(window);
    return record ? record->control.get() : nullptr;
}

bool TakesText(HWND window) {
    const Control* control = ControlOf(window);
    return control && control->TakesText();
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(std::max(0, GetWindowTextLengthW(window))), L'\0');
    if (!text.empty())
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

} // namespace device
