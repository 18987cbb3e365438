#pragma once

#include "platform/windowing/control.h"

#include <memory>
#include <string>
#include <vector>

namespace device {

struct WindowClass {
    std::wstring name;
    WNDPROC procedure = nullptr;
    ControlFactory factory = nullptr; ///< null: a program's class
    bool isDialog = false;
};

/// What a modal loop knows of its window.
struct ModalState {
    bool ended = false;
    LONG_PTR result = 0;
    std::vector<std::wstring> openedWith; ///< the FieldValues at its start
    int scroll = 0; ///< how far the content of a dialog is scrolled up, in device pixels
};

/// A window as the device keeps it. Children belong to their parent; the table of windows owns them all.
struct Window {
    HWND handle = nullptr;
    const WindowClass* windowClass = nullptr;
    Window* parent = nullptr; ///< null for a top-level window and for a soft-key bar
    HWND owner = nullptr;
    std::vector<Window*> children; ///< in order of creation, which is the order of a dialog template
    DWORD style = 0;
    LONG_PTR id = 0; ///< NoDialogItemId for a control that nobody asks for
    RECT place; ///< in the parent's client area; of a top-level window, on the screen
    RECT insets; ///< what border and scroll bars take from each side of the client area
    std::wstring text;
    HFONT font = nullptr;
    WNDPROC procedure = nullptr;
    LONG_PTR userData = 0;
    bool redraw = true;
    bool destroying = false;
    std::unique_ptr<Control> control;

    // Of top-level windows alone.
    HWND bar = nullptr;
    HWND savedFocus = nullptr;
    WNDPROC dialogProcedure = nullptr; ///< a DLGPROC
    std::unique_ptr<ModalState> modal;
    bool isMessageBox = false;

    bool IsTopLevel() const { return parent == nullptr; }
    bool Has(DWORD styleBits) const { return (style & styleBits) == styleBits; }
};

/// Null for a stale or foreign handle.
Window* FindWindowRecord(HWND handle);
Window* TopLevelOf(Window* window);
/// In screen coordinates.
RECT ScreenPlace(const Window& window);
/// The client area in screen coordinates.
RECT ScreenClient(const Window& window);
/// Visible itself and all its parents.
bool IsShown(const Window& window);
/// As much of a text as there is room for, and a NUL; how much that was.
std::size_t CopyText(const std::wstring& text, wchar_t* buffer, std::size_t size);
/// Tells a window the size of its client area.
void SendSize(HWND window);
/// Insets changed: tells the window its new client size.
void SetInsets(Window& window, const RECT& insets);

} // namespace device
