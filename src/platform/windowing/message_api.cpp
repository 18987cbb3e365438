// Messages: sending, posting, the loop, and what a window does that no procedure took.

#include "platform/dialog.h"
#include "platform/drawing.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"

using device::Desktop;
using device::FindWindowRecord;
using device::Window;

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return Desktop::The().Send(window, message, wParam, lParam);
}

void PostQuitMessage(int exitCode) {
    Desktop::The().PostQuit(exitCode);
}

BOOL GetMessageW(MSG* message, HWND /*window*/, UINT /*first*/, UINT /*last*/) {
    if (!message || !Desktop::The().IsOn())
        return FALSE;
    Desktop::The().Next(*message);
    return message->message == WM_QUIT ? FALSE : TRUE;
}

BOOL TranslateMessage(const MSG* message) {
    if (!message || message->message != WM_KEYDOWN)
        return FALSE;
    const wchar_t character = Desktop::The().TakePendingCharacter();
    if (character == 0)
        return FALSE;
    PostMessageW(message->hwnd, WM_CHAR, static_cast<WPARAM>(character), 0);
    return TRUE;
}

LRESULT DispatchMessageW(const MSG* message) {
    return message ? SendMessageW(message->hwnd, message->message, message->wParam, message->lParam) : 0;
}

LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return procedure ? procedure(window, message, wParam, lParam) : 0;
}

void keybd_event(BYTE key, BYTE /*scan*/, DWORD flags, DWORD /*extra*/) {
    const HWND target = GetFocus();
    if (!IsWindow(target))
        return;
    const bool up = (flags & KEYEVENTF_KEYUP) != 0;
    PostMessageW(target, up ? WM_KEYUP : WM_KEYDOWN, key, 0);
    if (!up && key == VK_BACK)
        PostMessageW(target, WM_CHAR, VK_BACK, 0);
}

namespace {

std::wstring TextOf(const Window& window) {
    return window.control ? window.control->Text() : window.text;
}

LRESULT SetText(Window& window, LPARAM text) {
    window.text = device::TextAt(text);
    if (window.IsTopLevel())
        Desktop::The().Invalidate({0, 0, device::ScreenSize().cx, device::TitleHeight()});
    else
        InvalidateRect(window.handle, nullptr, TRUE);
    return TRUE;
}

} // namespace

LRESULT DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = FindWindowRecord(handle);
    if (!window)
        return 0;
    switch (message) {
    case WM_SETTEXT:
        return SetText(*window, lParam);
    case WM_GETTEXT:
        return static_cast<LRESULT>(device::CopyText(TextOf(*window), device::Pointer<wchar_t>(lParam), wParam));
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(TextOf(*window).size());
    case WM_SETFONT:
        window->font = reinterpret_cast<HFONT>(wParam);
        if (LOWORD(static_cast<std::uintptr_t>(lParam)) != 0)
            InvalidateRect(handle, nullptr, TRUE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(window->font);
    case WM_SETREDRAW:
        window->redraw = wParam != 0;
        return 0;
    case WM_ERASEBKGND: {
        RECT client;
        GetClientRect(handle, &client);
        FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_WINDOW));
        return 1;
    }
    case WM_MOUSEWHEEL:
        return window->parent ? SendMessageW(window->parent->handle, message, wParam, lParam) : 0;
    case WM_CLOSE:
        DestroyWindow(handle);
        return 0;
    default:
        return 0;
    }
}
