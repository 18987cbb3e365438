#include "lists/parent_reflection.h"

#include "platform/dialog.h"
#include "platform/list_view.h"

namespace {

template <typename Kind> const Kind* Pointer(LPARAM value) {
    return reinterpret_cast<const Kind*>(value);
}

/// The control that a message to its parent speaks of; null for any other message.
HWND ControlOf(HWND parent, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_DRAWITEM:
        return lParam ? Pointer<DRAWITEMSTRUCT>(lParam)->hwndItem : nullptr;
    case WM_MEASUREITEM:
        return lParam ? GetDlgItem(parent, static_cast<int>(Pointer<MEASUREITEMSTRUCT>(lParam)->CtlID)) : nullptr;
    case WM_DELETEITEM:
    case WM_COMPAREITEM:
        return GetDlgItem(parent, static_cast<int>(wParam));
    case WM_NOTIFY:
        return lParam ? Pointer<NMHDR>(lParam)->hwndFrom : nullptr;
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_VSCROLL:
        return reinterpret_cast<HWND>(lParam);
    default:
        return message >= WM_CTLCOLORFIRST && message <= WM_CTLCOLORLAST ? reinterpret_cast<HWND>(lParam) : nullptr;
    }
}

} // namespace

bool ReflectNotification(HWND parent, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const HWND control = ControlOf(parent, message, wParam, lParam);
    if (!control || !IsWindow(control) || GetParent(control) != parent)
        return false;
    result = SendMessageW(control, OCM_BASE + message, wParam, lParam);
    return true;
}
