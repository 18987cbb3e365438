#pragma once

#include "platform/resources.h"
#include "platform/window.h"

// Dialogs, the message box, and the handset shell's services for them.

using DLGPROC = LPARAM (*)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;
inline constexpr UINT MB_OK = 0;
inline constexpr UINT MB_OKCANCEL = 1;
inline constexpr UINT MB_YESNO = 4;
inline constexpr UINT MB_ICONEXCLAMATION = 48;
inline constexpr UINT MB_ICONINFORMATION = 64;

/// Runs a dialog modally: disables the owner, runs its own message loop, gives what EndDialog was given. -1 on failure.
/// The procedure returns non-zero for a message that it handled; its WM_INITDIALOG returns 0 to keep the focus that it
/// set itself.
LONG_PTR DialogBoxIndirectParamW(
    HINSTANCE module, LPCDLGTEMPLATEW dialogTemplate, HWND owner, DLGPROC procedure, LPARAM parameter);
BOOL EndDialog(HWND dialog, LONG_PTR result);

HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND control);
/// Fails (translated FALSE, 0) on an empty text, anything but digits with an optional minus, and beyond 32 bits.
UINT GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned);
BOOL SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned);
UINT GetDlgItemTextW(HWND dialog, int id, wchar_t* buffer, int size);
BOOL SetDlgItemTextW(HWND dialog, int id, const wchar_t* text);
LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
/// What WM_NEXTDLGCTL would do: the focus to a control, as if walked to.
void FocusDlgItem(HWND dialog, HWND control);

/// Runs a message box modally and gives the IDOK ... IDNO of the answer. A null caption shows the device's own.
int MessageBoxW(HWND owner, const wchar_t* text, const wchar_t* caption, UINT style);

// Shell services.

inline constexpr DWORD SHCMBF_HMENU = 16; ///< the id names a menu resource
inline constexpr DWORD SHIDIF_SIZEDLGFULLSCREEN = 4;
/// Flags of SHCMBM_OVERRIDEKEY's lParam: mask below 0x10000 shifted up by 16.
inline constexpr LPARAM SHMBOF_NODEFAULT_NOTIFY = 0x30003;

struct SHMENUBARINFO {
    HWND hwndParent = nullptr; ///< the top-level window that the bar belongs to
    DWORD dwFlags = 0;
    UINT nToolBarId = 0;
    HINSTANCE hInstRes = nullptr;
    HWND hwndMB = nullptr; ///< out: the bar
};

/// Makes the soft-key bar of a top-level window from a menu resource; a former bar goes.
BOOL SHCreateMenuBar(SHMENUBARINFO* info);
/// The bar of a window, or null.
HWND SHFindMenuBar(HWND window);
/// Fits a dialog to the full screen.
BOOL SHInitDialog(HWND dialog, DWORD flags);
/// Hands a WM_HOTKEY of the Back key on to the focused window: an edit deletes a character on the key-down.
void SHSendBackToFocusWindow(UINT message, WPARAM wParam, LPARAM lParam);
/// Leaves the program for the one before it.
void SHNavigateBack();
/// The user's interface font height in device pixels (metric 2).
BOOL SHGetUIMetrics(UINT metric, void* value, DWORD size, DWORD* required);
/// The input panel's fit of a dialog; this device has no input panel, so nothing moves.
BOOL SHHandleWMSettingChange(HWND dialog, WPARAM wParam, LPARAM lParam, void* record);

// Menus of the bar.

inline constexpr UINT MF_GRAYED = 1;
inline constexpr UINT MF_ENABLED = 0;
inline constexpr UINT MF_CHECKED = 8;
inline constexpr UINT MF_UNCHECKED = 0;

/// Both work on a popup and its inner popups; -1 when the command is not there, else the former state.
int EnableMenuItem(HMENU menu, UINT command, UINT flags);
DWORD CheckMenuItem(HMENU menu, UINT command, UINT flags);
HACCEL LoadAcceleratorsW(HINSTANCE module, UINT id);
/// Sends WM_COMMAND with no sending window when the message is a key of the table; 1 when it was.
int TranslateAcceleratorW(HWND window, HACCEL table, MSG* message);
