#include "platform/windowing/dialog_loop.h"

#include "platform/dialog.h"
#include "platform/input.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/dialog_scroll.h"

#include <algorithm>

namespace device {

namespace {

bool TakesFocus(const Window& control) {
    return control.Has(WS_VISIBLE | WS_TABSTOP) && !control.Has(WS_DISABLED) && control.control
        && control.control->TakesFocus();
}

void Walk(Window& dialog, int step) {
    const std::vector<HWND> order = FocusOrder(dialog);
    const auto own = std::find(order.begin(), order.end(), GetFocus());
    const bool atEnd = order.empty() || (own != order.end() && GetFocus() == (step > 0 ? order.back() : order.front()));
    // Texts beyond the last control, or before the first one, are scrolled into view before the walk begins anew.
    if ((atEnd && ScrollToHidden(dialog, step)) || order.empty())
        return;
    const auto count = static_cast<std::ptrdiff_t>(order.size());
    std::ptrdiff_t index = own == order.end() ? (step > 0 ? -1 : 0) : own - order.begin();
    index = (index + step + count) % count;
    FocusDlgItem(dialog.handle, order[static_cast<std::size_t>(index)]);
}

/// True when the dialog took the message, or is gone.
bool IsDialogMessage(HWND handle, const MSG& message) {
    Window* dialog = FindWindowRecord(handle);
    const Window* target = TopLevelOf(FindWindowRecord(message.hwnd));
    const bool isKey = message.message == WM_KEYDOWN || message.message == WM_KEYUP;
    if (!isKey || !dialog || dialog->isMessageBox || target != dialog)
        return false;
    MSG pending = message;
    const LRESULT wanted
        = SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&pending));
    dialog = FindWindowRecord(handle);
    if (!dialog || dialog->modal->ended)
        return true;
    if (message.message == WM_KEYUP || (wanted & DLGC_WANTMESSAGE) != 0)
        return false;
    switch (message.wParam) {
    case VK_UP:
    case VK_DOWN:
        if ((wanted & DLGC_WANTARROWS) != 0)
            return false;
        Walk(*dialog, message.wParam == VK_UP ? -1 : 1);
        return true;
    case VK_TAB:
        Walk(*dialog, (Desktop::The().Modifiers() & MOD_SHIFT) != 0 ? -1 : 1);
        return true;
    case VK_RETURN:
        SendMessageW(handle, WM_COMMAND, IDOK, 0);
        return true;
    default:
        return false;
    }
}

} // namespace

std::vector<HWND> FocusOrder(const Window& dialog) {
    std::vector<HWND> order;
    for (const Window* child : dialog.children)
        if (TakesFocus(*child))
            order.push_back(child->handle);
    return order;
}

std::vector<std::wstring> FieldValues(const Window& window) {
    std::vector<std::wstring> values;
    for (const Window* child : window.children)
        values.push_back(child->control ? child->control->Value() : std::wstring());
    return values;
}

LONG_PTR RunModal(HWND handle, HWND owner, LONG_PTR otherwise) {
    LONG_PTR result = otherwise;
    if (Window* window = FindWindowRecord(handle))
        window->modal->openedWith = FieldValues(*window);
    for (;;) {
        const Window* window = FindWindowRecord(handle);
        if (!window)
            break;
        if (window->modal->ended) {
            result = window->modal->result;
            break;
        }
        MSG message;
        if (!GetMessageW(&message, nullptr, 0, 0)) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!IsDialogMessage(handle, message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    if (Window* window = FindWindowRecord(handle))
        window->modal->ended = true;
    EnableWindow(owner, TRUE);
    if (Desktop::The().Active() == handle && IsWindow(owner))
        Desktop::The().Activate(owner);
    DestroyWindow(handle);
    return result;
}

void EnterControl(HWND handle) {
    Window* control = FindWindowRecord(handle);
    Window* top = TopLevelOf(control);
    if (!top || top == control || !top->dialogProcedure)
        return;
    ShowDialogControl(*top, *control);
    if ((SendMessageW(handle, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0 || TakesText(handle))
        SendMessageW(handle, EM_SETSEL, 0, -1);
}

} // namespace device
