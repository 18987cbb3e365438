#pragma once

#include "platform/messages.h"
#include "platform/types.h"

// Windows, messages and focus. Bad handles give the failure that stands with each function, never a crash.

using WNDPROC = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

struct MSG {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

struct WNDCLASSW {
    WNDPROC lpfnWndProc = nullptr;
    const wchar_t* lpszClassName = nullptr;
};

/// What WM_CREATE's lParam points to.
struct CREATESTRUCTW {
    void* lpCreateParams = nullptr;
};

struct NMHDR {
    HWND hwndFrom = nullptr;
    UINT idFrom = 0;
    INT code = 0;
};

inline constexpr int GWL_WNDPROC = -4;
inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_USERDATA = -21;
inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOW = 5;
inline constexpr UINT GW_HWNDNEXT = 2;
inline constexpr UINT GW_CHILD = 5;
inline constexpr UINT IDC_WAIT = 32514;
inline constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000U);

/// 0 when the class exists already.
ATOM RegisterClassW(const WNDCLASSW* windowClass);
/// A top-level window (WS_POPUP or no WS_CHILD) fills the space between title line and soft-key bar whatever size is
/// asked for; `parent` is then its owner. For a child `menu` is its id. Null on failure.
HWND CreateWindowExW(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style, int x, int y,
    int width, int height, HWND parent, HMENU menu, HINSTANCE module, void* parameter);
BOOL DestroyWindow(HWND window);
BOOL IsWindow(HWND window);
BOOL ShowWindow(HWND window, int command);
BOOL EnableWindow(HWND window, BOOL enable);
BOOL IsWindowEnabled(HWND window);

LONG_PTR SetWindowLongW(HWND window, int index, LONG_PTR value);
LONG_PTR GetWindowLongW(HWND window, int index);
BOOL SetWindowTextW(HWND window, const wchar_t* text);
int GetWindowTextLengthW(HWND window);
int GetWindowTextW(HWND window, wchar_t* buffer, int size);
int GetClassNameW(HWND window, wchar_t* buffer, int size);

HWND GetParent(HWND window);
HWND GetWindow(HWND window, UINT command);
/// A window of this class in this process or another of the same storage place; `title` is not looked at.
HWND FindWindowW(const wchar_t* className, const wchar_t* title);
BOOL SetForegroundWindow(HWND window);

BOOL GetClientRect(HWND window, RECT* rectangle);
BOOL GetWindowRect(HWND window, RECT* rectangle);
BOOL ScreenToClient(HWND window, POINT* point);
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
/// A null rectangle is the whole client area.
BOOL InvalidateRect(HWND window, const RECT* rectangle, BOOL erase);

HWND SetFocus(HWND window);
HWND GetFocus();
HWND GetActiveWindow();
HCURSOR LoadCursorW(HINSTANCE module, UINT id);
HCURSOR SetCursor(HCURSOR cursor);
BOOL MessageBeep(UINT type);

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void PostQuitMessage(int exitCode);
/// 0 for WM_QUIT, else 1. Posted messages come before input, input before painting.
BOOL GetMessageW(MSG* message, HWND window, UINT first, UINT last);
BOOL TranslateMessage(const MSG* message);
LRESULT DispatchMessageW(const MSG* message);
LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// The same number for the same name; 0xC000 and above.
UINT RegisterWindowMessageW(const wchar_t* name);
/// A key event as if the user had made it; only key and KEYEVENTF_KEYUP are looked at.
void keybd_event(BYTE key, BYTE scan, DWORD flags, DWORD extra); // NOLINT: the handset's name
inline constexpr DWORD KEYEVENTF_KEYUP = 2;
