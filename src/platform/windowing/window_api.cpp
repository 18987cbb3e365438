// The windows' interface: each function forwards to the desktop or translates in a few lines.

#include "platform/drawing/device_context.h"
#include "platform/drawing/rectangles.h"
#include "platform/metrics.h"
#include "platform/process.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/dialog_loop.h"
#include "platform/windowing/process_windows.h"

#include <algorithm>
#include <utility>

using device::Desktop;
using device::FindWindowRecord;
using device::Window;

ATOM RegisterClassW(const WNDCLASSW* windowClass) {
    return windowClass ? device::AddWindowClass(windowClass->lpszClassName, windowClass->lpfnWndProc, nullptr) : 0;
}

HWND CreateWindowExW(DWORD /*exStyle*/, const wchar_t* className, const wchar_t* title, DWORD style, int x, int y,
    int width, int height, HWND parent, HMENU menu, HINSTANCE /*module*/, void* parameter) {
    Desktop& desktop = Desktop::The();
    const device::WindowClass* windowClass = device::FindWindowClass(className);
    const bool isChild = (style & WS_CHILD) != 0;
    Window* parentWindow = FindWindowRecord(parent);
    if (!desktop.IsOn() || !windowClass || (isChild && !parentWindow))
        return nullptr;
    Window* window = desktop.Create(*windowClass, isChild ? parentWindow : nullptr, isChild ? nullptr : parent);
    if (!window)
        return nullptr;
    const HWND handle = window->handle;
    // A top-level window shows with ShowWindow, so that nothing of it is painted before WM_CREATE is over.
    window->style = isChild ? style : style & ~WS_VISIBLE;
    window->text = title ? title : L"";
    window->id = isChild ? reinterpret_cast<LONG_PTR>(menu) : 0;
    if (isChild) {
        window->place = {x, y, x + std::max(width, 0), y + std::max(height, 0)};
    } else {
        window->place = device::WorkArea();
        desktop.AddTopLevel(*window);
    }
    if (windowClass->factory)
        window->control = windowClass->factory(handle);
    CREATESTRUCTW creation{parameter};
    if (SendMessageW(handle, WM_CREATE, 0, reinterpret_cast<LPARAM>(&creation)) == -1) {
        DestroyWindow(handle);
        return nullptr;
    }
    if (!FindWindowRecord(handle))
        return nullptr;
    if (!isChild && !windowClass->factory && !windowClass->isDialog)
        device::PublishWindow(handle);
    device::SendSize(handle);
    if (!isChild && (style & WS_VISIBLE) != 0)
        ShowWindow(handle, SW_SHOW);
    InvalidateRect(handle, nullptr, TRUE);
    return handle;
}

BOOL DestroyWindow(HWND handle) {
    Window* window = FindWindowRecord(handle);
    if (!window)
        return FALSE;
    Desktop::The().Destroy(*window);
    return TRUE;
}

BOOL IsWindow(HWND handle) {
    return FindWindowRecord(handle) ? TRUE : FALSE;
}

BOOL ShowWindow(HWND handle, int command) {
    Window* window = FindWindowRecord(handle);
    if (!window)
        return FALSE;
    const bool was = window->Has(WS_VISIBLE);
    const bool shown = command != SW_HIDE;
    if (was == shown)
        return was ? TRUE : FALSE;
    if (!shown)
        InvalidateRect(handle, nullptr, TRUE);
    window->style = shown ? window->style | WS_VISIBLE : window->style & ~WS_VISIBLE;
    if (shown) {
        InvalidateRect(handle, nullptr, TRUE);
        if (window->IsTopLevel() && !window->Has(WS_DISABLED))
            Desktop::The().Activate(handle);
    } else if (window->parent && Desktop::The().Focus() == handle) {
        Desktop::The().SetFocus(window->parent->handle);
    }
    return was ? TRUE : FALSE;
}

BOOL EnableWindow(HWND handle, BOOL enable) {
    Window* window = FindWindowRecord(handle);
    if (!window)
        return FALSE;
    const bool wasDisabled = window->Has(WS_DISABLED);
    if (wasDisabled != (enable == FALSE)) {
        window->style = enable ? window->style & ~WS_DISABLED : window->style | WS_DISABLED;
        SendMessageW(handle, WM_ENABLE, enable ? 1 : 0, 0);
        InvalidateRect(handle, nullptr, TRUE);
    }
    return wasDisabled ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND handle) {
    const Window* window = FindWindowRecord(handle);
    return window && !window->Has(WS_DISABLED) ? TRUE : FALSE;
}

LONG_PTR SetWindowLongW(HWND handle, int index, LONG_PTR value) {
    Window* window = FindWindowRecord(handle);
    if (!window)
        return 0;
    switch (index) {
    case GWL_WNDPROC:
        return reinterpret_cast<LONG_PTR>(std::exchange(window->procedure, reinterpret_cast<WNDPROC>(value)));
    case GWL_STYLE:
        return static_cast<LONG_PTR>(std::exchange(window->style, static_cast<DWORD>(value)));
    case GWL_USERDATA:
        return std::exchange(window->userData, value);
    default:
        return 0;
    }
}

LONG_PTR GetWindowLongW(HWND handle, int index) {
    const Window* window = FindWindowRecord(handle);
    if (!window)
        return 0;
    switch (index) {
    case GWL_STYLE:
        return static_cast<LONG_PTR>(window->style);
    case GWL_USERDATA:
        return window->userData;
    default:
        return 0;
    }
}

BOOL SetWindowTextW(HWND handle, const wchar_t* text) {
    return IsWindow(handle) && SendMessageW(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) ? TRUE : FALSE;
}

int GetWindowTextLengthW(HWND handle) {
    return static_cast<int>(SendMessageW(handle, WM_GETTEXTLENGTH, 0, 0));
}

int GetWindowTextW(HWND handle, wchar_t* buffer, int size) {
    if (!buffer || size <= 0)
        return 0;
    buffer[0] = 0;
    return static_cast<int>(
        SendMessageW(handle, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(buffer)));
}

int GetClassNameW(HWND handle, wchar_t* buffer, int size) {
    const Window* window = FindWindowRecord(handle);
    if (!window || size <= 0)
        return 0;
    return static_cast<int>(device::CopyText(window->windowClass->name, buffer, static_cast<std::size_t>(size)));
}

HWND GetParent(HWND handle) {
    const Window* window = FindWindowRecord(handle);
    if (!window)
        return nullptr;
    return window->parent ? window->parent->handle : window->owner;
}

HWND GetWindow(HWND handle, UINT command) {
    const Window* window = FindWindowRecord(handle);
    if (!window)
        return nullptr;
    if (command == GW_CHILD)
        return window->children.empty() ? nullptr : window->children.front()->handle;
    if (command != GW_HWNDNEXT || !window->parent)
        return nullptr;
    const auto& siblings = window->parent->children;
    const auto own = std::find(siblings.begin(), siblings.end(), window);
    return own == siblings.end() || own + 1 == siblings.end() ? nullptr : (*(own + 1))->handle;
}

BOOL GetClientRect(HWND handle, RECT* rectangle) {
    const Window* window = FindWindowRecord(handle);
    if (!window || !rectangle)
        return FALSE;
    const RECT client = device::ScreenClient(*window);
    *rectangle = {0, 0, client.right - client.left, client.bottom - client.top};
    return TRUE;
}

BOOL GetWindowRect(HWND handle, RECT* rectangle) {
    const Window* window = FindWindowRecord(handle);
    if (!window || !rectangle)
        return FALSE;
    *rectangle = device::ScreenPlace(*window);
    return TRUE;
}

BOOL ScreenToClient(HWND handle, POINT* point) {
    const Window* window = FindWindowRecord(handle);
    if (!window || !point)
        return FALSE;
    const RECT client = device::ScreenClient(*window);
    *point = {point->x - client.left, point->y - client.top};
    return TRUE;
}

BOOL MoveWindow(HWND handle, int x, int y, int width, int height, BOOL repaint) {
    Window* window = FindWindowRecord(handle);
    if (!window)
        return FALSE;
    const RECT former = window->place;
    if (repaint)
        InvalidateRect(handle, nullptr, TRUE);
    window->place = {x, y, x + std::max(width, 0), y + std::max(height, 0)};
    if (repaint)
        InvalidateRect(handle, nullptr, TRUE);
    const bool sized = former.right - former.left != window->place.right - window->place.left
        || former.bottom - former.top != window->place.bottom - window->place.top;
    if (sized)
        device::SendSize(handle);
    return TRUE;
}

BOOL InvalidateRect(HWND handle, const RECT* rectangle, BOOL /*erase*/) {
    const Window* window = FindWindowRecord(handle);
    if (!window)
        return FALSE;
    if (!device::IsShown(*window) || !window->redraw)
        return TRUE;
    // Without a rectangle the frame around the client area is painted anew as well.
    RECT part = device::ScreenPlace(*window);
    if (rectangle) {
        const RECT client = device::ScreenClient(*window);
        part = device::Intersection(client,
            {client.left + rectangle->left, client.top + rectangle->top, client.left + rectangle->right,
                client.top + rectangle->bottom});
    }
    for (const Window* above = window->parent; above; above = above->parent)
        part = device::Intersection(part, device::ScreenClient(*above));
    Desktop::The().Invalidate(part);
    return TRUE;
}

HWND SetFocus(HWND handle) {
    const HWND former = Desktop::The().Focus();
    if (former != handle && Desktop::The().SetFocus(handle) && handle)
        device::EnterControl(handle);
    return former;
}

HWND GetFocus() {
    return Desktop::The().Focus();
}

HWND GetActiveWindow() {
    return Desktop::The().Active();
}

HCURSOR LoadCursorW(HINSTANCE /*module*/, UINT id) {
    return id == IDC_WAIT ? reinterpret_cast<HCURSOR>(static_cast<std::uintptr_t>(IDC_WAIT)) : nullptr;
}

HCURSOR SetCursor(HCURSOR cursor) {
    static HCURSOR current = nullptr;
    const HCURSOR former = current;
    current = cursor;
    Desktop& desktop = Desktop::The();
    if (cursor && !former)
        ++desktop.waitCursors;
    if (desktop.IsOn() && (cursor == nullptr) != (former == nullptr))
        desktop.TheHost()->WaitCursor(cursor != nullptr);
    return former;
}

BOOL MessageBeep(UINT /*type*/) {
    Desktop& desktop = Desktop::The();
    ++desktop.beeps;
    if (desktop.IsOn())
        desktop.TheHost()->Beep();
    return TRUE;
}
